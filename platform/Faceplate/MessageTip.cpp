// SPDX-License-Identifier: MIT
#include "Faceplate/MessageTip.h"

#include <QtGui/QAccessible>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>

#include <algorithm>
#include <chrono>

namespace Faceplate {
namespace {

constexpr int kEdgePx = 16; // between the tip and the edges of its parent
constexpr int kMarginXPx = 16;
constexpr int kMarginYPx = 10;
constexpr int kWidestPx = 560;

} // namespace

CMessageTip::CMessageTip(QWidget *parent) : QFrame(parent), label_(new QLabel(this))
{
    setObjectName(QStringLiteral("MessageTip"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true); // the tip is opaque without a theme, too
    label_->setObjectName(QStringLiteral("MessageTipText"));
    label_->setTextFormat(Qt::PlainText);
    label_->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMarginXPx, kMarginYPx, kMarginXPx, kMarginYPx);
    layout->addWidget(label_);
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &QWidget::hide);
    parent->installEventFilter(this);
    hide();
}

void CMessageTip::ShowText(const QString &text, int kind, int place, int time_s)
{
    label_->setText(text);
    setAccessibleName(text);
    setProperty("kind", kind);
    for (QWidget *const widget : {static_cast<QWidget *>(this), static_cast<QWidget *>(label_)}) {
        style()->unpolish(widget); // a theme's rules for properties are read when polishing
        style()->polish(widget);
    }
    is_above_ = place != 0;
    KeepToEdge();
    show();
    raise();
    if (time_s > 0)
        timer_.start(std::chrono::seconds(time_s));
    else
        timer_.stop();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

bool CMessageTip::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && watched == parentWidget())
        KeepToEdge();
    return QFrame::eventFilter(watched, event);
}

void CMessageTip::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    hide();
}

void CMessageTip::KeepToEdge()
{
    const QRect room = parentWidget()->rect().adjusted(kEdgePx, kEdgePx, -kEdgePx, -kEdgePx);
    const int widest = std::max(0, std::min(kWidestPx, room.width()));
    label_->setWordWrap(false);
    const bool is_long = QFrame::sizeHint().width() > widest;
    label_->setWordWrap(is_long);
    const int width = is_long ? widest : QFrame::sizeHint().width();
    const int height = is_long ? heightForWidth(width) : QFrame::sizeHint().height();
    setGeometry(QStyle::alignedRect(
        Qt::LeftToRight, Qt::AlignHCenter | (is_above_ ? Qt::AlignTop : Qt::AlignBottom),
        QSize(width, std::min(height, std::max(0, room.height()))), room));
}

} // namespace Faceplate
