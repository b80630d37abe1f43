// SPDX-License-Identifier: MIT
#include "ui/AccountPassword/AccountPasswordWidget.h"

#include "common/DisconnectChildren.h"
#include "common/Guard.h"
#include "common/Repolish.h"
#include "common/Translate.h"
#include "controller/SecondAuthentication/VerifyCodeRequestObj.h"
#include "ui/AccountPassword/LoginAttempt.h"
#include "ui/PasswordFrame/PasswordFrame.h"
#include "ui/VerifyCodeWidget/VerifyCodeWidget.h"

#include <ErrorText/ErrorText.h>
#include <Faceplate/GUIMessageTipManager.h>
#include <Nim/Base/Guid.h>
#include <Ravel/Frame.h>
#include <Ravel/Label.h>
#include <Ravel/LineEdit.h>
#include <Ravel/PasswordLineEdit.h>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QVBoxLayout>

#include <chrono>
#include <optional>
#include <thread>
#include <utility>

namespace Vantor {

// An error in the form.
enum class LoginFault {
    None,
    NoPassword,
    NoCode,
    NoImage, // of the verification code
};

enum class LoginEntry { Password, Code };

namespace {

constexpr char kContext[] = "Vantor::CAccountPasswordWidget";
constexpr char kLoginFunction[] = "Vantor::CAccountPasswordWidget::LoginIn";
constexpr Nim::Base::Error::ErrorCode kTimeoutError{2, 20, 2000};
constexpr int kDefaultWaitTime_ms = 10000;
constexpr int kSpacingPx = 8;
// Arguments of the message tip: an error, at the upper edge, with its duration.
constexpr int kTipKind = 1;
constexpr int kTipPlace = 1;
constexpr int kTipTime_s = 15;
// A timer without delay may fire before the event loop takes what the window system has queued. When
// it fires again, the loop has done that.
constexpr int kSettlingRounds = 2;

enum class Phase {
    Ready,
    Checking, // LoginIn() waits for a worker
    Settling, // the event loop has not yet delivered the input from the time of the wait
};

QString Text(const char *key)
{
    return Translate(QLatin1String(key), kContext);
}

void LogInputError()
{
    VANTOR_LOG(kLoginFunction, 3, VANTOR_LOG_CLIENT_USER_OPERATE, "Input Params Error !!!");
}

} // namespace

struct CAccountPasswordWidgetDataPtr
{
    // Children, which the host may delete.
    QPointer<QLineEdit> ptr_user_name_edit_;
    QPointer<CPasswordFrame> ptr_password_frame_;
    QPointer<CVerifyCodeWidget> ptr_verify_widget_;
    QPointer<QLineEdit> ptr_verify_edit_;
    QPointer<Ravel::CLabel> ptr_user_label_;
    QPointer<Ravel::CLabel> ptr_password_label_;
    QPointer<Ravel::CLabel> ptr_verify_error_;
    // The host's.
    QPointer<QAbstractButton> ptr_login_button_;
    QPointer<QWidget> ptr_main_widget_;

    CStruVerifyCode verify_code_;
    std::optional<QString> code_user_; // the user that verify_code_ was requested for
    LoginFault fault_ = LoginFault::None;
    ErrorText::CErrorCodeEvent image_error_; // of LoginFault::NoImage
    LoginEntry wrong_entry_ = LoginEntry::Password; // by the last answer

    Phase phase_ = Phase::Ready;
    QTimer settling_timer_;
    int settling_rounds_ = 0;
    int wait_out_time_ms_ = kDefaultWaitTime_ms;
    std::string str_request_guid_; // of the last attempt; empty if its answer no longer counts
    std::shared_ptr<LoginRelay> relay_;

    std::function<QString()> tip_text_; // of the last tip, in the current language; null: no tip
    QDeadlineTimer tip_end_;
};

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
         {user_edit,
          static_cast<QLineEdit *>(d_ptr_->ptr_password_frame_->GetPasswordLineEdit()),
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

CAccountPasswordWidget::LoginState CAccountPasswordWidget::LoginIn(std::string &result,
                                                                   std::string pluginName)
{
    if (d_ptr_->phase_ == Phase::Checking) {
        result = MakeLoginResult(Text("ACheckIsRunning").toStdString());
        return kInputError;
    }
    const QPointer<CAccountPasswordWidget> alive(this); // the presenter of a tip may delete it
    LoginState state = kLoginFailed;
    if (!RunGuarded(kLoginFunction, [&] { state = Attempt(result, pluginName); }))
        result = MakeLoginResult(Text("TheCheckFailed").toStdString());
    if (alive && d_ptr_->phase_ == Phase::Checking)
        Settle();
    return state;
}

CAccountPasswordWidget::LoginState CAccountPasswordWidget::Attempt(std::string &result,
                                                                   const std::string &pluginName)
{
    const LoginFault fault = FindInputFault();
    ShowFault(fault);
    if (fault != LoginFault::None) {
        LogInputError();
        result = MakeLoginResult(FaultText().toStdString());
        FocusEntry(fault == LoginFault::NoPassword ? LoginEntry::Password : LoginEntry::Code);
        TakeTipAway();
        return kInputError;
    }
    d_ptr_->phase_ = Phase::Checking;
    d_ptr_->wrong_entry_ = LoginEntry::Password;
    const std::shared_ptr<LoginAttempt> attempt = Prepare(pluginName);
    if (Start(attempt))
        return Await(*attempt, result);
    d_ptr_->str_request_guid_.clear();
    return Fail(kLoginFailed, result, [] { return Text("TheCheckFailed"); });
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

std::shared_ptr<LoginAttempt> CAccountPasswordWidget::Prepare(const std::string &pluginName)
{
    LoginRequest request;
    if (d_ptr_->ptr_user_name_edit_)
        request.user_name = d_ptr_->ptr_user_name_edit_->text().toStdString();
    request.password = d_ptr_->ptr_password_frame_->GetSecretText();
    if (AsksForCode()) {
        request.verify_code =
            d_ptr_->ptr_verify_widget_->GetVerifyCode().GetVal_code_text_().toStdString();
        request.verify_mark = d_ptr_->verify_code_.GetVal_verify_code_mark_().toStdString();
    }
    request.plugin_name = pluginName;
    request.guid = Nim::Base::GuidUtil::CreateGuid();
    d_ptr_->str_request_guid_ = request.guid;
    auto attempt = std::make_shared<LoginAttempt>();
    attempt->document_ = MakeLoginDocument(request);
    return attempt;
}

bool CAccountPasswordWidget::Start(const std::shared_ptr<LoginAttempt> &attempt)
{
    // The thread shares only the attempt and the relay, because it may outlive this widget.
    return RunGuarded(kLoginFunction, [&] {
        std::thread([attempt, relay = d_ptr_->relay_] {
            RunGuarded("Vantor::CAccountPasswordWidget::AsyncCheckPassword", [&] {
                const Nim::Base::SecretText document =
                    std::exchange(attempt->document_, Nim::Base::SecretText());
                attempt->b_check_succeeded_ =
                    AsyncCheckPassword(attempt->str_error_text_, document, *attempt, *relay);
            });
            attempt->done_.set_value();
        }).detach();
    });
}

CAccountPasswordWidget::LoginState CAccountPasswordWidget::Await(LoginAttempt &attempt,
                                                                 std::string &result)
{
    const auto wait_time = std::chrono::milliseconds(d_ptr_->wait_out_time_ms_);
    if (attempt.done_.get_future().wait_for(wait_time) != std::future_status::ready) {
        d_ptr_->str_request_guid_.clear(); // its late answer is ignored
        const LoginState state = Fail(kLoginTimeout, result, [] {
            return Text("RequestTimeOut") + ErrorText::GetErrorInfoByErrorCode(kTimeoutError);
        });
        VANTOR_LOG(kLoginFunction, 3, VANTOR_LOG_CLIENT_USER_OPERATE, "LoginIn TimeOut !!!");
        return state;
    }
    if (attempt.b_check_succeeded_) {
        result = MakeLoginResult(attempt.str_error_text_);
        TakeTipAway();
        return kLoginSucceeded;
    }
    if (IsVerifyCodeWrong(attempt.answer_.error_code.error_code))
        d_ptr_->wrong_entry_ = LoginEntry::Code;
    return Fail(kLoginFailed, result,
                [answer = attempt.answer_] { return LoginAnswerText(answer); });
}

// Returns \a state, which the caller returns too, because the tip may delete this widget.
CAccountPasswordWidget::LoginState
CAccountPasswordWidget::Fail(LoginState state, std::string &result, std::function<QString()> text)
{
    const QString shown = text();
    result = MakeLoginResult(shown.toStdString());
    d_ptr_->tip_text_ = std::move(text);
    d_ptr_->tip_end_ = QDeadlineTimer(std::chrono::seconds(kTipTime_s));
    FocusEntry(d_ptr_->wrong_entry_);
    ShowTip(shown);
    return state;
}

// On the worker's thread.
bool CAccountPasswordWidget::AsyncCheckPassword(std::string &errorText, const std::string &request,
                                                LoginAttempt &attempt, LoginRelay &relay)
{
    using namespace ClientFramework;
    const LoginRequest asked = ReadLoginDocument(request);
    CCheckPwdRequestParam param;
    param.SetVal_str_name(asked.user_name);
    param.SetVal_str_password(asked.password);
    param.SetVal_str_verify_code(asked.verify_code);
    param.SetVal_str_verify_mark(asked.verify_mark);
    CCheckPwdResultParam result;
    Nim::Base::CSingleton<CFrameworkManagerInterface>::Instance().CheckPassword(asked.plugin_name,
                                                                                param, result);
    const CheckPwdResultParam answer = result.Read();
    attempt.answer_ = answer;
    const QString text = LoginAnswerText(answer);
    errorText = text.toStdString();
    const std::lock_guard<std::mutex> lock(relay.mutex);
    if (CAccountPasswordWidget *const widget = relay.widget) {
        const auto report = [widget, answer, text, guid = QString::fromStdString(asked.guid)] {
            widget->OnUpdataLoginResult(answer.check_result, text,
                                        NeedsVerifyCode(answer.error_code.error_code), guid);
        };
        QMetaObject::invokeMethod(widget, report, Qt::QueuedConnection);
    }
    return answer.check_result == kCheckPassed;
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
    Settle(); // the request has blocked the GUI thread
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

// Requests a code for the new user, but not for each letter of the name, because the request blocks.
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
        return Text("ThePasswordIsEmptydADZgBNplv");
    case LoginFault::NoCode:
        return Text("TheVerificationCodeCannotBeEmpty");
    case LoginFault::NoImage: {
        const QString text = d_ptr_->image_error_.GetErrorText();
        return text.isEmpty() ? Text("TheImageCannotBeShown") : text;
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

void CAccountPasswordWidget::ShowTip(const QString &text)
{
    const QPointer<QWidget> main_widget = d_ptr_->ptr_main_widget_; // a presenter may delete us
    // The empty text removes an earlier tip at once.
    for (const QString &shown : {QString(), text}) {
        if (main_widget)
            Faceplate::CGUIMessageTipManager::ShowMessage(main_widget, shown, kTipKind, kTipPlace,
                                                          kTipTime_s);
    }
}

void CAccountPasswordWidget::TakeTipAway()
{
    if (!std::exchange(d_ptr_->tip_text_, nullptr) || !d_ptr_->ptr_main_widget_)
        return;
    Faceplate::CGUIMessageTipManager::ShowMessage(d_ptr_->ptr_main_widget_, QString(), kTipKind,
                                                  kTipPlace, kTipTime_s);
}

void CAccountPasswordWidget::Settle()
{
    d_ptr_->phase_ = Phase::Settling;
    d_ptr_->settling_rounds_ = kSettlingRounds;
    d_ptr_->settling_timer_.start(0);
}

void CAccountPasswordWidget::OnSettling()
{
    if (--d_ptr_->settling_rounds_ > 0)
        return;
    d_ptr_->settling_timer_.stop();
    if (d_ptr_->phase_ == Phase::Settling)
        d_ptr_->phase_ = Phase::Ready;
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
    if (d_ptr_->phase_ == Phase::Ready)
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
    if (key->isAutoRepeat() || d_ptr_->phase_ != Phase::Ready)
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
    // The entry ignores the key, so a dialog would click its default button and log in again.
    if (alive && d_ptr_->phase_ != Phase::Ready)
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
    const QString user = Text("UserName");
    if (d_ptr_->ptr_user_label_)
        d_ptr_->ptr_user_label_->setText(user);
    if (d_ptr_->ptr_user_name_edit_)
        d_ptr_->ptr_user_name_edit_->setAccessibleName(user);
    if (d_ptr_->ptr_password_label_)
        d_ptr_->ptr_password_label_->setText(Text("Password"));
    ShowFault(d_ptr_->fault_);
    if (d_ptr_->tip_text_ && d_ptr_->ptr_main_widget_ && !d_ptr_->tip_end_.hasExpired()) {
        const int left_s = 1 + int(d_ptr_->tip_end_.remainingTime() / 1000);
        Faceplate::CGUIMessageTipManager::ShowMessage(
            d_ptr_->ptr_main_widget_, d_ptr_->tip_text_(), kTipKind, kTipPlace, left_s);
    }
}

} // namespace Vantor
