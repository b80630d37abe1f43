// SPDX-License-Identifier: MIT
#include "Ravel/ChaseDialog.h"

#include "Ravel/WaitWatcher.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QMovie>
#include <QtGui/QPainter>
#include <QtGui/QShowEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace Ravel {
namespace {

constexpr int kMovieSidePx = 48;
constexpr int kMarginPx = 24;
constexpr int kSpacingPx = 12;

// Draws the frames of a movie at a fixed size, because a label shows a picture in its own size, and
// QMovie's scaling is blurred on a high-resolution screen.
class CMovieView : public QWidget
{
public:
    CMovieView(const QString &path, QWidget *parent) : QWidget(parent)
    {
        if (!path.isEmpty())
            movie_.setFileName(path);
        setObjectName(QStringLiteral("ChaseMovie"));
        setFixedSize(kMovieSidePx, kMovieSidePx);
        connect(&movie_, &QMovie::frameChanged, this, qOverload<>(&QWidget::update));
    }

    QMovie &Movie() { return movie_; }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(rect(), movie_.currentPixmap());
    }

private:
    QMovie movie_;
};

} // namespace

struct CChaseDialogPtr
{
    CMovieView *ptr_movie_ = nullptr;
    bool b_cancellable_ = false;
    bool b_stopped_ = false;
    bool b_counted_ = false; // the wait watcher has counted this dialog
};

CChaseDialog::CChaseDialog(QWidget *parent, const QString &movie, const QString &text,
                           bool cancellable)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      d_ptr_(std::make_unique<CChaseDialogPtr>())
{
    setObjectName(QStringLiteral("ChaseDialog"));
    setAttribute(Qt::WA_StyledBackground);
    setModal(true);
    const QString name =
        text.isEmpty() ? QCoreApplication::translate("Vantor", "Please wait") : text;
    setWindowTitle(name);
    setAccessibleName(name);

    d_ptr_->b_cancellable_ = cancellable;
    d_ptr_->ptr_movie_ = new CMovieView(movie, this);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
    layout->setSpacing(kSpacingPx);
    layout->addWidget(d_ptr_->ptr_movie_, 0, Qt::AlignHCenter);
    if (!text.isEmpty()) {
        auto *const label = new QLabel(text, this);
        label->setObjectName(QStringLiteral("ChaseText"));
        layout->addWidget(label, 0, Qt::AlignHCenter);
    }
}

CChaseDialog::~CChaseDialog()
{
    if (d_ptr_->b_counted_)
        CUiSingleton<CWaitWatcher>::Instance().EndWait();
}

void CChaseDialog::reject()
{
    if (d_ptr_->b_cancellable_ || d_ptr_->b_stopped_)
        QDialog::reject();
}

void CChaseDialog::OnStopChaseByAccept()
{
    d_ptr_->b_stopped_ = true;
    // Queued, because an accept() inside show(), before exec() starts its event loop, would be
    // lost, and exec() would never return.
    if (isVisible())
        QMetaObject::invokeMethod(this, &QDialog::accept, Qt::QueuedConnection);
}

void CChaseDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!d_ptr_->b_counted_) {
        d_ptr_->b_counted_ = true;
        CUiSingleton<CWaitWatcher>::Instance().BeginWait();
    }
    if (d_ptr_->ptr_movie_->Movie().isValid())
        d_ptr_->ptr_movie_->Movie().start();
    if (d_ptr_->b_stopped_)
        QMetaObject::invokeMethod(this, &QDialog::accept, Qt::QueuedConnection);
}

void CChaseDialog::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    d_ptr_->ptr_movie_->Movie().stop();
    // Minimising hides the dialog, too, but the wait goes on.
    if (d_ptr_->b_counted_ && !event->spontaneous()) {
        d_ptr_->b_counted_ = false;
        CUiSingleton<CWaitWatcher>::Instance().EndWait();
    }
}

} // namespace Ravel
