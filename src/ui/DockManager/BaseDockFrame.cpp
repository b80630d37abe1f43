// SPDX-License-Identifier: MIT
#include "ui/DockManager/BaseDockFrame.h"

#include "common/DisconnectChildren.h"
#include "common/ForwardEvents.h"
#include "common/Translate.h"

#include <QtCore/QEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>

namespace Vantor {
namespace {

constexpr int kMarginPx = 16;
constexpr int kSpacingPx = 8;

QPushButton *NewButton(const char *name, QWidget *parent)
{
    auto *const button = new QPushButton(parent);
    button->setObjectName(QLatin1String(name));
    return button;
}

} // namespace

struct CBaseDockFramePtr
{
    QWidget *ptr_ui_ = nullptr;
    QFrame *ptr_title_frame_ = nullptr;
    QLabel *ptr_title_ = nullptr;
    QScrollArea *ptr_scroll_area_ = nullptr;
    QWidget *ptr_buttons_ = nullptr;
    QPushButton *ptr_reset_ = nullptr;
    QPushButton *ptr_cancel_ = nullptr;
    QPushButton *ptr_save_ = nullptr;
    QString str_save_text_; // set by the host; empty means our own text
    bool b_hide_emit_ = false;
};

CBaseDockFrame::CBaseDockFrame(QWidget *parent)
    : CAbstractDockFrame(parent), d_ptr_(std::make_unique<CBaseDockFramePtr>())
{
    d_ptr_->ptr_ui_ = new QWidget(this);
    d_ptr_->ptr_ui_->setObjectName(QStringLiteral("DockUi"));
    auto *const around = new QVBoxLayout(this);
    around->setContentsMargins(0, 0, 0, 0);
    around->addWidget(d_ptr_->ptr_ui_);

    d_ptr_->ptr_scroll_area_ = new QScrollArea(d_ptr_->ptr_ui_);
    d_ptr_->ptr_scroll_area_->setObjectName(QStringLiteral("DockScrollArea"));
    d_ptr_->ptr_scroll_area_->setWidgetResizable(true);
    d_ptr_->ptr_scroll_area_->setFrameShape(QFrame::NoFrame);
    BuildTitle();
    BuildButtons();

    auto *const layout = new QVBoxLayout(d_ptr_->ptr_ui_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(d_ptr_->ptr_title_frame_);
    layout->addWidget(d_ptr_->ptr_scroll_area_, 1);
    layout->addWidget(d_ptr_->ptr_buttons_);
    Retranslate();
}

CBaseDockFrame::~CBaseDockFrame()
{
    DisconnectChildren(this);
}

void CBaseDockFrame::BuildTitle()
{
    d_ptr_->ptr_title_frame_ = new QFrame(d_ptr_->ptr_ui_);
    d_ptr_->ptr_title_frame_->setObjectName(QStringLiteral("DockTitleFrame"));
    d_ptr_->ptr_title_ = new QLabel(d_ptr_->ptr_title_frame_);
    d_ptr_->ptr_title_->setObjectName(QStringLiteral("DockTitle"));
    d_ptr_->ptr_title_->setTextFormat(Qt::PlainText);
    d_ptr_->ptr_title_->setWordWrap(true);
    auto *const row = new QHBoxLayout(d_ptr_->ptr_title_frame_);
    row->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
    row->addWidget(d_ptr_->ptr_title_);
}

void CBaseDockFrame::BuildButtons()
{
    d_ptr_->ptr_buttons_ = new QFrame(d_ptr_->ptr_ui_);
    d_ptr_->ptr_buttons_->setObjectName(QStringLiteral("DockButtons"));
    d_ptr_->ptr_reset_ = NewButton("DockResetButton", d_ptr_->ptr_buttons_);
    d_ptr_->ptr_cancel_ = NewButton("DockCancelButton", d_ptr_->ptr_buttons_);
    d_ptr_->ptr_save_ = NewButton("DockSaveButton", d_ptr_->ptr_buttons_);
    d_ptr_->ptr_save_->setDefault(true);
    auto *const row = new QHBoxLayout(d_ptr_->ptr_buttons_);
    row->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
    row->setSpacing(kSpacingPx);
    row->addWidget(d_ptr_->ptr_reset_);
    row->addStretch();
    row->addWidget(d_ptr_->ptr_cancel_);
    row->addWidget(d_ptr_->ptr_save_);
    connect(d_ptr_->ptr_save_, &QPushButton::clicked, this, &CBaseDockFrame::signalConfirm);
    connect(d_ptr_->ptr_cancel_, &QPushButton::clicked, this, &CBaseDockFrame::signalCancel);
    connect(d_ptr_->ptr_reset_, &QPushButton::clicked, this, &CBaseDockFrame::signalReset);
}

void CBaseDockFrame::SetTitleText(const QString &title)
{
    d_ptr_->ptr_title_->setText(title);
    setWindowTitle(title); // the dock takes it over: screen readers announce it
    d_ptr_->ptr_scroll_area_->setAccessibleName(title); // the keys scroll it
}

void CBaseDockFrame::SetContentWnd(QWidget *content)
{
    if (content && content == d_ptr_->ptr_scroll_area_->widget())
        return;
    // setWidget() would delete the previous content.
    if (QWidget *const old = d_ptr_->ptr_scroll_area_->takeWidget()) {
        old->hide();
        old->setParent(this);
    }
    if (!content)
        return;
    d_ptr_->ptr_scroll_area_->setWidget(content);
    content->show();
}

void CBaseDockFrame::SetBottomFrameVisible(bool visible)
{
    d_ptr_->ptr_buttons_->setVisible(visible);
}

void CBaseDockFrame::SetResetButtonVisible(bool visible)
{
    d_ptr_->ptr_reset_->setVisible(visible);
}

void CBaseDockFrame::SetCancelButtonVisible(bool visible)
{
    d_ptr_->ptr_cancel_->setVisible(visible);
}

void CBaseDockFrame::SetSaveBtnText(const QString &text)
{
    d_ptr_->str_save_text_ = text;
    Retranslate();
}

void CBaseDockFrame::SetSaveEnabeld(bool enabled)
{
    d_ptr_->ptr_save_->setEnabled(enabled);
}

void CBaseDockFrame::SetHideEmit(bool emits)
{
    d_ptr_->b_hide_emit_ = emits;
}

QString CBaseDockFrame::GetTitleText() const
{
    return d_ptr_->ptr_title_->text();
}

QString CBaseDockFrame::GetSaveBtnText() const
{
    return d_ptr_->str_save_text_;
}

bool CBaseDockFrame::IsSaveEnabled() const
{
    return d_ptr_->ptr_save_->isEnabledTo(this);
}

bool CBaseDockFrame::IsBottomFrameVisible() const
{
    return !d_ptr_->ptr_buttons_->isHidden();
}

bool CBaseDockFrame::IsResetButtonVisible() const
{
    return !d_ptr_->ptr_reset_->isHidden();
}

bool CBaseDockFrame::IsCancelButtonVisible() const
{
    return !d_ptr_->ptr_cancel_->isHidden();
}

bool CBaseDockFrame::IsHideEmit() const
{
    return d_ptr_->b_hide_emit_;
}

QWidget *CBaseDockFrame::GetSetUpUiWidget() const
{
    return d_ptr_->ptr_ui_;
}

QFrame *CBaseDockFrame::GetTitleFrame() const
{
    return d_ptr_->ptr_title_frame_;
}

QScrollArea *CBaseDockFrame::GetScrollArea() const
{
    return d_ptr_->ptr_scroll_area_;
}

QWidget *CBaseDockFrame::GetButtonWidget() const
{
    return d_ptr_->ptr_buttons_;
}

void CBaseDockFrame::OnDockHide()
{
    if (d_ptr_->b_hide_emit_)
        Q_EMIT signalCancel();
}

VANTOR_FORWARD_EVENTS(CBaseDockFrame, CAbstractDockFrame)

void CBaseDockFrame::changeEvent(QEvent *event)
{
    CAbstractDockFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

// The tab order is that of construction, so fields would come after the buttons. It is put right
// here because a host may add fields at any time.
bool CBaseDockFrame::focusNextPrevChild(bool next)
{
    QWidget *const content = d_ptr_->ptr_scroll_area_->widget();
    QWidget *last = nullptr;
    for (QWidget *widget = nextInFocusChain(); content && widget != this;
         widget = widget->nextInFocusChain()) {
        if (widget->focusPolicy() != Qt::NoFocus && content->isAncestorOf(widget))
            last = widget;
    }
    for (QWidget *const button : {d_ptr_->ptr_reset_, d_ptr_->ptr_cancel_, d_ptr_->ptr_save_}) {
        if (last && last->nextInFocusChain() != button)
            setTabOrder(last, button);
        last = button;
    }
    return CAbstractDockFrame::focusNextPrevChild(next);
}

// Enter works as in a dialog: it clicks the focused button, and the save button if a field has the
// focus.
void CBaseDockFrame::keyPressEvent(QKeyEvent *event)
{
    const bool is_enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!is_enter || event->isAutoRepeat() || d_ptr_->ptr_buttons_->isHidden()) {
        CAbstractDockFrame::keyPressEvent(event);
        return;
    }
    auto *button = qobject_cast<QPushButton *>(focusWidget());
    (button ? button : d_ptr_->ptr_save_)->click();
}

void CBaseDockFrame::Retranslate()
{
    d_ptr_->ptr_save_->setText(d_ptr_->str_save_text_.isEmpty()
                                   ? Translate(QStringLiteral("Confirm"))
                                   : d_ptr_->str_save_text_);
    d_ptr_->ptr_cancel_->setText(Translate(QStringLiteral("Cancel")));
    d_ptr_->ptr_reset_->setText(Translate(QStringLiteral("Reset")));
}

} // namespace Vantor
