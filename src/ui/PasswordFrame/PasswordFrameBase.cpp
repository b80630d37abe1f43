// SPDX-License-Identifier: MIT
#include "ui/PasswordFrame/PasswordFrameBase.h"

#include "common/DisconnectChildren.h"
#include "common/ForwardEvents.h"
#include "common/Repolish.h"
#include "common/Translate.h"
#include "ui/PasswordFrame/PlaceWatch.h"

#include <Nim/Base/OS.h>
#include <Ravel/Frame.h>
#include <Ravel/Label.h>
#include <Ravel/PasswordLineEdit.h>
#include <Ravel/ToolTip.h>

#include <QtCore/QPointer>
#include <QtGui/QIcon>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpacerItem>

namespace Vantor {

struct CPasswordFrameBaseDataPtr
{
    QPointer<Ravel::CLineEdit> ptr_tip_frame_; // may belong to a window that is deleted first
    CPlaceWatch place_watch_;                  // of the frame, for the tip
    bool b_password_visible_ = false;
    Ravel::CFrame *ptr_base_frame_ = nullptr;
    Ravel::CLabel *ptr_label_ = nullptr;
    Ravel::CPasswordLineEdit *ptr_edit_ = nullptr;
    QPushButton *ptr_switch_button_ = nullptr;
    Ravel::CLabel *ptr_error_label_ = nullptr;
    QSpacerItem *ptr_left_spacer_ = nullptr; // the layout owns it
};

namespace {

constexpr char kContext[] = "Vantor::CPasswordFrame";
constexpr char kFocusProperty[] = "hasFocus"; // of the base frame, for style sheets
constexpr int kMaximumLength = 32;
constexpr int kSpacerWidthPx = 8;
constexpr int kIconSidePx = 20;
constexpr int kTipHeightPx = 37;
// 10 wider than the entry at creation, 25 when shown, because the style sheets of hosts rely on
// both.
constexpr int kTipFirstExtraPx = 10;
constexpr int kTipShownExtraPx = 25;
constexpr int kTipInsetPx = 15;
constexpr int kTipGapPx = 3;

// The last brace is missing, so Qt warns and ignores the sheet. It must stay so, because a valid
// sheet would override the rules that hosts have for the tip.
constexpr char kTipStyle[] =
    "Ravel--CLineEdit, Ravel--CLineEdit *{color:#9d3d01;border-width: 2px 12px 2px 2px;"
    "background:rgb(250,250,250);";

} // namespace

CPasswordFrameBase::CPasswordFrameBase(Ravel::CPasswordLineEdit *edit, QWidget *parent)
    : QWidget(parent), d_ptr_(std::make_unique<CPasswordFrameBaseDataPtr>())
{
    d_ptr_->ptr_edit_ = edit;
    setObjectName(QStringLiteral("PasswordFrameClass"));
    BuildForm();
    BuildTip();
    RetranslateUI();
    OnTextEdit();
    connect(edit, &QLineEdit::textChanged, this, &CPasswordFrameBase::SignalLienEditTextChanged);
    connect(edit, &QLineEdit::textChanged, this, &CPasswordFrameBase::OnTextEdit);
    connect(edit, &Ravel::CLineEdit::SignalFocusIn, this, &CPasswordFrameBase::OnLineEditFocusIn);
    connect(edit, &Ravel::CLineEdit::SignalFousOut, this, &CPasswordFrameBase::OnLineEditFousOut);
    connect(d_ptr_->ptr_switch_button_, &QPushButton::clicked, this,
            &CPasswordFrameBase::OnSwitchPassWordShow);
    edit->installEventFilter(this);
}

CPasswordFrameBase::~CPasswordFrameBase()
{
    DisconnectChildren(this);
    delete d_ptr_->ptr_tip_frame_.data();
}

void CPasswordFrameBase::BuildForm()
{
    d_ptr_->ptr_base_frame_ = new Ravel::CFrame(this);
    d_ptr_->ptr_base_frame_->setObjectName(QStringLiteral("ptr_base_frame"));
    d_ptr_->ptr_label_ = new Ravel::CLabel(d_ptr_->ptr_base_frame_);
    d_ptr_->ptr_label_->setObjectName(QStringLiteral("ptr_base_frame_label"));
    d_ptr_->ptr_label_->setPixmap(
        QIcon(QStringLiteral(":/Ovrin/Menu/Images/System/Menu/UserManagement.png"))
            .pixmap(kIconSidePx));
    d_ptr_->ptr_edit_->setParent(d_ptr_->ptr_base_frame_);
    d_ptr_->ptr_edit_->setObjectName(QStringLiteral("ptr_base_frame_lineedit"));
    d_ptr_->ptr_edit_->setMaxLength(kMaximumLength);
    d_ptr_->ptr_switch_button_ = new QPushButton(d_ptr_->ptr_base_frame_);
    d_ptr_->ptr_switch_button_->setObjectName(QStringLiteral("ptr_show_passWord"));
    d_ptr_->ptr_switch_button_->setAutoDefault(false);
    d_ptr_->ptr_error_label_ = new Ravel::CLabel(this);
    d_ptr_->ptr_error_label_->setObjectName(QStringLiteral("ptr_error_tip"));
    d_ptr_->ptr_error_label_->setTextFormat(Qt::PlainText);
    d_ptr_->ptr_error_label_->setWordWrap(true);
    d_ptr_->ptr_error_label_->hide();

    d_ptr_->ptr_left_spacer_ =
        new QSpacerItem(kSpacerWidthPx, 0, QSizePolicy::Fixed, QSizePolicy::Minimum);
    auto *const inner = new QGridLayout(d_ptr_->ptr_base_frame_);
    inner->setObjectName(QStringLiteral("gridLayout_3"));
    inner->setContentsMargins(0, 0, 0, 0);
    inner->addItem(d_ptr_->ptr_left_spacer_, 0, 0);
    inner->addWidget(d_ptr_->ptr_label_, 0, 1);
    inner->addWidget(d_ptr_->ptr_edit_, 0, 2);
    inner->addWidget(d_ptr_->ptr_switch_button_, 0, 3);
    inner->setColumnStretch(2, 1);
    auto *const outer = new QGridLayout(this);
    outer->setObjectName(QStringLiteral("gridLayout"));
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(d_ptr_->ptr_base_frame_, 0, 0);
    outer->addWidget(d_ptr_->ptr_error_label_, 1, 0);
}

void CPasswordFrameBase::BuildTip()
{
    auto *const tip = new Ravel::CLineEdit(this);
    tip->setWindowFlags(Qt::ToolTip);
    tip->setReadOnly(true);
    tip->setFocusPolicy(Qt::NoFocus);
    tip->setAlignment(Qt::AlignVertical_Mask);
    tip->setStyleSheet(QLatin1String(kTipStyle));
    tip->setFixedSize(d_ptr_->ptr_edit_->width() + kTipFirstExtraPx, kTipHeightPx);
    tip->hide();
    d_ptr_->ptr_tip_frame_ = tip;
}

QString CPasswordFrameBase::GetPasswordLineEditText() const
{
    return d_ptr_->ptr_edit_->text();
}

Nim::Base::SecretText CPasswordFrameBase::GetSecretText() const
{
    QByteArray utf8 = d_ptr_->ptr_edit_->text().toUtf8();
    Nim::Base::SecretText secret(utf8.toStdString());
    utf8.fill('\0');
    return secret;
}

bool CPasswordFrameBase::IsPasswordEmpty() const
{
    return d_ptr_->ptr_edit_->text().isEmpty();
}

Ravel::CPasswordLineEdit *CPasswordFrameBase::GetPasswordLineEdit() const
{
    return d_ptr_->ptr_edit_;
}

Ravel::CFrame *CPasswordFrameBase::GetBaseFrame() const
{
    return d_ptr_->ptr_base_frame_;
}

Ravel::CLabel *CPasswordFrameBase::GetLabel() const
{
    return d_ptr_->ptr_label_;
}

QPushButton *CPasswordFrameBase::GetSwitchPassBtn() const
{
    return d_ptr_->ptr_switch_button_;
}

void CPasswordFrameBase::ClearLineEdit()
{
    // The copy shares the characters of the entry. The entry drops them, so unless a host has a
    // copy too, this one overwrites them.
    QString dropped = d_ptr_->ptr_edit_->text();
    d_ptr_->ptr_edit_->setText(QString()); // cannot be undone, unlike clear()
    if (dropped.isDetached())
        dropped.fill(QChar());
}

void CPasswordFrameBase::HideLabel()
{
    d_ptr_->ptr_label_->hide();
}

void CPasswordFrameBase::HideSpacer()
{
    d_ptr_->ptr_left_spacer_->changeSize(0, 0);
    d_ptr_->ptr_base_frame_->layout()->invalidate();
}

void CPasswordFrameBase::HideTipFrame()
{
    if (d_ptr_->ptr_tip_frame_)
        d_ptr_->ptr_tip_frame_->hide();
}

QPoint CPasswordFrameBase::TipPlace() const
{
    return mapToGlobal({width() - d_ptr_->ptr_edit_->width() - kTipInsetPx, height() + kTipGapPx});
}

void CPasswordFrameBase::MoveTipFrame()
{
    if (d_ptr_->ptr_tip_frame_ && d_ptr_->ptr_tip_frame_->isVisible())
        d_ptr_->ptr_tip_frame_->move(TipPlace());
}

// The tip is a window of its own and does not move with this one.
void CPasswordFrameBase::WatchPlace()
{
    d_ptr_->place_watch_.Watch(this, this);
    MoveTipFrame();
}

void CPasswordFrameBase::SetFocusLook(bool has_focus)
{
    d_ptr_->ptr_base_frame_->setProperty(kFocusProperty, has_focus);
    Repolish(d_ptr_->ptr_base_frame_);
}

void CPasswordFrameBase::CheckCapsLock()
{
    Ravel::CLineEdit *const tip = d_ptr_->ptr_tip_frame_;
    if (!tip)
        return;
    if (!Nim::Base::OS::IsCapsLockOn()) {
        tip->hide();
        return;
    }
    WatchPlace();
    tip->move(TipPlace());
    tip->raise();
    tip->setFixedSize(d_ptr_->ptr_edit_->width() + kTipShownExtraPx, kTipHeightPx);
    tip->show();
}

void CPasswordFrameBase::CheckCapsLockKey(const QKeyEvent &event)
{
    if (d_ptr_->ptr_edit_->hasFocus() && event.key() == Qt::Key_CapsLock)
        CheckCapsLock();
}

void CPasswordFrameBase::OnSwitchPassWordShow()
{
    SetPassWordState(!d_ptr_->b_password_visible_);
}

void CPasswordFrameBase::SetPassWordState(bool is_visible)
{
    QPushButton *const button = d_ptr_->ptr_switch_button_;
    d_ptr_->b_password_visible_ = is_visible;
    d_ptr_->ptr_edit_->SetPasswordVisible(is_visible);
    button->setObjectName(is_visible ? QStringLiteral("password_visible")
                                     : QStringLiteral("password_unvisible"));
    Repolish(button);
    RetranslateUI();
}

void CPasswordFrameBase::RetranslateUI()
{
    const QString prompt = Translate(QStringLiteral("Password"), kContext);
    d_ptr_->ptr_edit_->setPlaceholderText(prompt);
    d_ptr_->ptr_edit_->setAccessibleName(prompt);
    if (d_ptr_->ptr_tip_frame_)
        d_ptr_->ptr_tip_frame_->setText(
            Translate(QStringLiteral("TheCapsLockKeyOpensPtQBnbXZa"), kContext));
    const QString hint = Translate(d_ptr_->b_password_visible_ ? QStringLiteral("HidePassword")
                                                               : QStringLiteral("ShowPassword"),
                                   kContext);
    d_ptr_->ptr_switch_button_->setToolTip(hint);
    d_ptr_->ptr_switch_button_->setAccessibleName(hint);
}

void CPasswordFrameBase::SetEnabled(bool enable)
{
    d_ptr_->ptr_edit_->setEnabled(enable);
    d_ptr_->ptr_label_->setEnabled(enable);
    if (!enable && d_ptr_->b_password_visible_)
        OnSwitchPassWordShow();
}

void CPasswordFrameBase::SetErrorTip(const QString &text)
{
    d_ptr_->ptr_error_label_->setText(text);
    d_ptr_->ptr_error_label_->setVisible(!text.isEmpty());
    d_ptr_->ptr_edit_->setAccessibleDescription(text);
}

void CPasswordFrameBase::SetFocus()
{
    d_ptr_->ptr_edit_->setFocus();
}

void CPasswordFrameBase::SetMaxHeight(int height)
{
    setMaximumHeight(height);
}

void CPasswordFrameBase::SetParentWindow(QWidget *window)
{
    if (!d_ptr_->ptr_tip_frame_)
        BuildTip(); // the window that owned it has been deleted
    d_ptr_->ptr_tip_frame_->setParent(window ? window : this, Qt::ToolTip);
    RetranslateUI();
    if (d_ptr_->ptr_edit_->hasFocus())
        CheckCapsLock(); // the new parent has hidden the tip
}

void CPasswordFrameBase::SetPasswordText(const QString &text)
{
    d_ptr_->ptr_edit_->setText(text);
}

void CPasswordFrameBase::SetPixmap(QPixmap &pixmap)
{
    d_ptr_->ptr_label_->setPixmap(pixmap);
}

bool CPasswordFrameBase::PasswordValidCheck(QString &tip)
{
    if (!IsPasswordEmpty())
        return true;
    d_ptr_->ptr_edit_->setFocus();
    Ravel::CToolTip::showText(d_ptr_->ptr_edit_->mapToGlobal({0, 0}), tip, d_ptr_->ptr_edit_);
    return false;
}

VANTOR_FORWARD_EVENT(CPasswordFrameBase, QWidget)

bool CPasswordFrameBase::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
        MoveTipFrame();
    else if (event->type() == QEvent::ParentChange)
        WatchPlace();
    return QWidget::eventFilter(watched, event);
}

void CPasswordFrameBase::keyPressEvent(QKeyEvent *event)
{
    CheckCapsLockKey(*event);
    QWidget::keyPressEvent(event);
}

void CPasswordFrameBase::keyReleaseEvent(QKeyEvent *event)
{
    CheckCapsLockKey(*event); // an X server switches the lock between press and release
    QWidget::keyReleaseEvent(event);
}

void CPasswordFrameBase::focusInEvent(QFocusEvent *event)
{
    CheckCapsLock();
    QWidget::focusInEvent(event);
}

void CPasswordFrameBase::focusOutEvent(QFocusEvent *event)
{
    if (Nim::Base::OS::IsCapsLockOn())
        HideTipFrame();
    QWidget::focusOutEvent(event);
}

void CPasswordFrameBase::hideEvent(QHideEvent *event)
{
    HideTipFrame(); // it is a window of its own, which would stay
    QWidget::hideEvent(event);
}

void CPasswordFrameBase::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        RetranslateUI();
}

void CPasswordFrameBase::OnLineEditFocusIn()
{
    SetFocusLook(true);
    CheckCapsLock();
}

void CPasswordFrameBase::OnLineEditFousOut(const QString &text)
{
    SetFocusLook(false);
    if (Nim::Base::OS::IsCapsLockOn())
        HideTipFrame();
    Q_EMIT SignalFousOut(text);
}

void CPasswordFrameBase::OnTextEdit()
{
    d_ptr_->ptr_switch_button_->setVisible(!IsPasswordEmpty());
}

} // namespace Vantor
