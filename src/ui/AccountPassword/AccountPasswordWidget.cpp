// SPDX-License-Identifier: MIT
#include "ui/AccountPassword/AccountPasswordWidget.h"

#include "common/DisconnectChildren.h"
#include "common/LogMacro.h"
#include "common/Repolish.h"
#include "controller/SecondAuthentication/VerifyCodeRequestObj.h"
#include "ui/AccountPassword/AccountPasswordWidget_p.h"

#include <Ravel/Frame.h>
#include <Ravel/LineEdit.h>
#include <Ravel/PasswordLineEdit.h>

#include <QtGui/QKeyEvent>
#include <QtWidgets/QVBoxLayout>

namespace Vantor {

namespace {

constexpr int kSpacingPx = 8;

} // namespace

CAccountPasswordWidget::CAccountPasswordWidget(QWidget *parent)
    : QWidget(parent), d_ptr_(std::make_shared<CAccountPasswordWidgetDataPtr>())
{
    d_ptr_->relay_ = std::make_shared<LoginRelay>();
    d_ptr_->relay_->widget = this;
    // Created here and not by a worker, which may still run when the process ends.
    Nim::Base::CSingleton<ClientFramework::CFrameworkManagerInterface>::Instance();
    InitUi();
    Connect();
    SetVerifyWidgetVisiable(false);
    RetranslateUi();
}

CAccountPasswordWidget::~CAccountPasswordWidget()
{
    DisconnectChildren(this);
    // A worker that is about to post waits for the mutex, and then finds no widget.
    const std::lock_guard<std::mutex> lock(d_ptr_->relay_->mutex);
    d_ptr_->relay_->widget = nullptr;
}

void CAccountPasswordWidget::InitUi()
{
    setObjectName(QStringLiteral("AccountPasswordWidget"));
    auto *const user_edit = new Ravel::CLineEdit(this);
    user_edit->setObjectName(QStringLiteral("ptr_user_name_edit"));
    auto *const password = new CPasswordFrame(this);
    password->HideLabel();
    auto *const verify = new CVerifyCodeWidget(this);
    d_ptr_->ptr_user_name_edit_ = user_edit;
    d_ptr_->ptr_password_frame_ = password;
    d_ptr_->ptr_verify_widget_ = verify;
    d_ptr_->ptr_verify_edit_ = verify->findChild<QLineEdit *>(QStringLiteral("ptr_verify_edit"));
    d_ptr_->ptr_user_label_ = new Ravel::CLabel(this);
    d_ptr_->ptr_user_label_->setBuddy(user_edit);
    d_ptr_->ptr_password_label_ = new Ravel::CLabel(this);
    d_ptr_->ptr_password_label_->setBuddy(password->GetPasswordLineEdit());
    d_ptr_->ptr_verify_error_ = new Ravel::CLabel(this);
    d_ptr_->ptr_verify_error_->setObjectName(QStringLiteral("ptr_error_tip"));
    d_ptr_->ptr_verify_error_->setTextFormat(Qt::PlainText);
    d_ptr_->ptr_verify_error_->setWordWrap(true);

    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSpacingPx);
    for (QWidget *const widget : std::initializer_list<QWidget *>{
             d_ptr_->ptr_user_label_, user_edit, d_ptr_->ptr_password_label_, password, verify,
             d_ptr_->ptr_verify_error_})
        layout->addWidget(widget);
    setFocusProxy(user_edit);
}

void CAccountPasswordWidget::Connect()
{
    QLineEdit *const user_edit = d_ptr_->ptr_user_name_edit_;
    for (QLineEdit *const edit :
         {user_edit, static_cast<QLineEdit *>(d_ptr_->ptr_password_frame_->GetPasswordLineEdit()),
          d_ptr_->ptr_verify_edit_.data()}) {
        edit->installEventFilter(this);
    }
    connect(user_edit, &QLineEdit::textChanged, this, &CAccountPasswordWidget::OnUserNameChanged);
    connect(user_edit, &QLineEdit::editingFinished, this,
            &CAccountPasswordWidget::OnUserNameFinished);
    connect(d_ptr_->ptr_password_frame_.data(), &CPasswordFrame::SignalLienEditTextChanged, this,
            [this] {
                if (d_ptr_->fault_ == LoginFault::NoPassword)
                    ShowFault(LoginFault::None);
            });
    connect(d_ptr_->ptr_verify_edit_.data(), &QLineEdit::textChanged, this, [this] {
        if (d_ptr_->fault_ != LoginFault::NoPassword)
            ShowFault(LoginFault::None);
    });
    connect(d_ptr_->ptr_verify_widget_.data(), &CVerifyCodeWidget::SignalRefreshVerifyCode, this,
            &CAccountPasswordWidget::OnRefreshVerifyCode);
    connect(&d_ptr_->settling_timer_, &QTimer::timeout, this, &CAccountPasswordWidget::OnSettling);
}

bool CAccountPasswordWidget::AsksForCode() const
{
    // Not isVisible(): the window may be minimised.
    return d_ptr_->ptr_verify_widget_ && !d_ptr_->ptr_verify_widget_->isHidden();
}

LoginFault CAccountPasswordWidget::FindInputFault()
{
    if (!d_ptr_->ptr_password_frame_ || d_ptr_->ptr_password_frame_->IsPasswordEmpty())
        return LoginFault::NoPassword;
    if (!AsksForCode())
        return LoginFault::None;
    OnUserNameFinished(); // the user name may have been set without editing
    return d_ptr_->ptr_verify_widget_->IsCodeTextEmpty() ? LoginFault::NoCode : LoginFault::None;
}

// NOLINTBEGIN(performance-unnecessary-value-param): hosts know the signature of this slot
void CAccountPasswordWidget::OnUpdataLoginResult(int result, QString info, bool needVerifyCode,
                                                 QString guid)
// NOLINTEND(performance-unnecessary-value-param)
{
    VANTOR_LOG("Vantor::CAccountPasswordWidget::OnUpdataLoginResult", 3,
               VANTOR_LOG_CLIENT_USER_OPERATE, "OnUpdataLoginResult = [%d] ReturnInfo = [%s]",
               result, qUtf8Printable(info));
    if (result == kCheckPassed || guid != QString::fromStdString(d_ptr_->str_request_guid_)
        || !needVerifyCode)
        return;
    OnRefreshVerifyCode();
    SetVerifyWidgetVisiable(true);
    if (d_ptr_->wrong_entry_ == LoginEntry::Code)
        FocusEntry(LoginEntry::Code);
}

void CAccountPasswordWidget::OnRefreshVerifyCode()
{
    if (!d_ptr_->ptr_verify_widget_)
        return;
    const QString user =
        d_ptr_->ptr_user_name_edit_ ? d_ptr_->ptr_user_name_edit_->text() : QString();
    CStruVerifyCode code;
    ErrorText::CErrorCodeEvent error;
    d_ptr_->code_user_ = user;
    const bool has_image = CVerifycodeRequestObj().RequestVerifyCode(user, code, error);
    d_ptr_->verify_code_ = code;
    d_ptr_->ptr_verify_widget_->SetVerifyCode(code);
    d_ptr_->ptr_verify_widget_->ClearEdit();
    d_ptr_->image_error_ = error;
    ShowFault(has_image ? LoginFault::None : LoginFault::NoImage);
    if (d_ptr_->phase_ != LoginPhase::Checking) // the presenter of a tip may run an event loop
        Settle();                               // the request has blocked the GUI thread
}

void CAccountPasswordWidget::OnUserNameChanged()
{
    if (!AsksForCode())
        return;
    d_ptr_->code_user_.reset();
    d_ptr_->verify_code_ = CStruVerifyCode();
    d_ptr_->ptr_verify_widget_->SetVerifyCode(d_ptr_->verify_code_);
    d_ptr_->ptr_verify_widget_->ClearEdit();
}

// Requests a code for the new user, but not for each letter of the name, because the request
// blocks.
void CAccountPasswordWidget::OnUserNameFinished()
{
    if (AsksForCode() && !d_ptr_->code_user_)
        OnRefreshVerifyCode();
}

void CAccountPasswordWidget::SetVerifyWidgetVisiable(bool is_visible)
{
    if (d_ptr_->ptr_verify_widget_)
        d_ptr_->ptr_verify_widget_->setVisible(is_visible);
    if (!is_visible && d_ptr_->fault_ != LoginFault::NoPassword)
        ShowFault(LoginFault::None);
}

QString CAccountPasswordWidget::FaultText() const
{
    switch (d_ptr_->fault_) {
    case LoginFault::None:
        break;
    case LoginFault::NoPassword:
        return LoginText("ThePasswordIsEmptydADZgBNplv");
    case LoginFault::NoCode:
        return LoginText("TheVerificationCodeCannotBeEmpty");
    case LoginFault::NoImage: {
        const QString text = d_ptr_->image_error_.GetErrorText();
        return text.isEmpty() ? LoginText("TheImageCannotBeShown") : text;
    }
    }
    return {};
}

// At the password, which is marked for style sheets too, or below the verification code.
void CAccountPasswordWidget::ShowFault(LoginFault fault)
{
    d_ptr_->fault_ = fault;
    const QString text = FaultText();
    const bool is_password = fault == LoginFault::NoPassword;
    if (Ravel::CLabel *const label = d_ptr_->ptr_verify_error_) {
        label->setText(is_password ? QString() : text);
        label->setVisible(!label->text().isEmpty());
    }
    CPasswordFrame *const frame = d_ptr_->ptr_password_frame_;
    if (!frame)
        return;
    frame->SetErrorTip(is_password ? text : QString());
    const QString name = is_password ? QStringLiteral("ptr_empty_password_widget_frame")
                                     : QStringLiteral("PasswordFrameClass");
    if (frame->objectName() == name)
        return;
    frame->setObjectName(name);
    Repolish(frame);
    Repolish(frame->GetBaseFrame());
}

// A wrong password is selected, so that typing replaces it.
void CAccountPasswordWidget::FocusEntry(LoginEntry entry)
{
    if (entry == LoginEntry::Code && AsksForCode()) {
        d_ptr_->ptr_verify_widget_->SetEditFocus();
    } else if (CPasswordFrame *const frame = d_ptr_->ptr_password_frame_) {
        frame->SetFocus();
        frame->GetPasswordLineEdit()->selectAll();
    }
}

void CAccountPasswordWidget::Clear()
{
    if (d_ptr_->ptr_user_name_edit_)
        d_ptr_->ptr_user_name_edit_->clear();
    RestoreUI();
    d_ptr_->str_request_guid_.clear();
}

void CAccountPasswordWidget::RestoreUI()
{
    if (CPasswordFrame *const frame = d_ptr_->ptr_password_frame_) {
        frame->ClearLineEdit();
        frame->SetPassWordState(false);
    }
    d_ptr_->verify_code_ = CStruVerifyCode();
    d_ptr_->code_user_.reset();
    if (CVerifyCodeWidget *const verify = d_ptr_->ptr_verify_widget_) {
        verify->ClearEdit();
        verify->SetVerifyCode(d_ptr_->verify_code_);
    }
    SetVerifyWidgetVisiable(false);
    ShowFault(LoginFault::None);
}

QPointer<CPasswordFrame> CAccountPasswordWidget::GetPasswordEditWidget()
{
    return d_ptr_->ptr_password_frame_;
}

void CAccountPasswordWidget::SetWaitOutTime(int milliseconds)
{
    d_ptr_->wait_out_time_ms_ = qMax(milliseconds, 0);
}

int CAccountPasswordWidget::GetWaitOutTime() const
{
    return d_ptr_->wait_out_time_ms_;
}

void CAccountPasswordWidget::SetMainWidget(QPointer<QWidget> widget)
{
    d_ptr_->ptr_main_widget_ = std::move(widget);
}

void CAccountPasswordWidget::SetLoginButton(QAbstractButton *button)
{
    if (QAbstractButton *const before = d_ptr_->ptr_login_button_)
        disconnect(before, nullptr, this, nullptr);
    d_ptr_->ptr_login_button_ = button;
    if (button)
        connect(button, &QAbstractButton::clicked, this, &CAccountPasswordWidget::OnLoginButton);
}

void CAccountPasswordWidget::OnLoginButton()
{
    if (d_ptr_->phase_ == LoginPhase::Ready)
        Q_EMIT SignalReturnPressed();
}

bool CAccountPasswordWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto *const key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        return QWidget::eventFilter(watched, event);
    // A Return key that is held down would use up all attempts, too.
    if (key->isAutoRepeat() || d_ptr_->phase_ != LoginPhase::Ready)
        event->accept();
    else
        Submit(watched, event);
    return true;
}

// The entry handles the key first: it would touch itself after a slot of its signal returnPressed()
// has deleted the form.
void CAccountPasswordWidget::Submit(QObject *edit, QEvent *key)
{
    const QPointer<CAccountPasswordWidget> alive(this);
    edit->event(key);
    if (!alive)
        return;
    Q_EMIT SignalReturnPressed();
    // The entry ignores the key, so a dialog would click its default button and log in again, even
    // if the host's slot is queued.
    if (alive && (d_ptr_->ptr_login_button_ || d_ptr_->phase_ != LoginPhase::Ready))
        key->accept();
}

void CAccountPasswordWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        RetranslateUi();
}

void CAccountPasswordWidget::RetranslateUi()
{
    const QString user = LoginText("UserName");
    if (d_ptr_->ptr_user_label_)
        d_ptr_->ptr_user_label_->setText(user);
    if (d_ptr_->ptr_user_name_edit_)
        d_ptr_->ptr_user_name_edit_->setAccessibleName(user);
    if (d_ptr_->ptr_password_label_)
        d_ptr_->ptr_password_label_->setText(LoginText("Password"));
    ShowFault(d_ptr_->fault_);
    ShowTipAgain(); // last: a presenter may delete the form
}

} // namespace Vantor
