// SPDX-License-Identifier: MIT
#include "common/Guard.h"
#include "ui/AccountPassword/AccountPasswordWidget.h"
#include "ui/AccountPassword/AccountPasswordWidget_p.h"

#include <ErrorText/ErrorText.h>
#include <Faceplate/GUIMessageTipManager.h>
#include <Nim/Base/Guid.h>

#include <chrono>
#include <thread>
#include <utility>

// One attempt to log in, from LoginIn() to the tip.
namespace Vantor {
namespace {

constexpr char kLoginFunction[] = "Vantor::CAccountPasswordWidget::LoginIn";
constexpr Nim::Base::Error::ErrorCode kTimeoutError{2, 20, 2000};
// Arguments of the message tip: an error, at the upper edge, with its duration.
constexpr int kTipKind = 1;
constexpr int kTipPlace = 1;
constexpr int kTipTimeS = 15;
// A timer without delay may fire before the event loop takes what the window system has queued.
// When it fires again, the loop has done that.
constexpr int kSettlingRounds = 2;

void LogInputError()
{
    VANTOR_LOG(kLoginFunction, 3, VANTOR_LOG_CLIENT_USER_OPERATE, "Input Params Error !!!");
}

} // namespace

CAccountPasswordWidget::LoginState CAccountPasswordWidget::LoginIn(std::string &result,
                                                                   std::string pluginName)
{
    if (d_ptr_->phase_ == LoginPhase::Checking) {
        result = MakeLoginResult(LoginText("ACheckIsRunning").toStdString());
        return kInputError;
    }
    const QPointer<CAccountPasswordWidget> alive(this); // the presenter of a tip may delete it
    LoginState state = kLoginFailed;
    if (!RunGuarded(kLoginFunction, [&] { state = Attempt(result, pluginName); }))
        result = MakeLoginResult(LoginText("TheCheckFailed").toStdString());
    if (alive && d_ptr_->phase_ == LoginPhase::Checking)
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
    d_ptr_->phase_ = LoginPhase::Checking;
    d_ptr_->wrong_entry_ = LoginEntry::Password;
    const std::shared_ptr<LoginAttempt> attempt = Prepare(pluginName);
    if (Start(attempt))
        return Await(*attempt, result);
    d_ptr_->str_request_guid_.clear();
    return Fail(kLoginFailed, result, [] { return LoginText("TheCheckFailed"); });
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
            return LoginText("RequestTimeOut") + ErrorText::GetErrorInfoByErrorCode(kTimeoutError);
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
    d_ptr_->tip_end_ = QDeadlineTimer(std::chrono::seconds(kTipTimeS));
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

void CAccountPasswordWidget::ShowTip(const QString &text)
{
    const QPointer<QWidget> main_widget = d_ptr_->ptr_main_widget_; // a presenter may delete us
    // The empty text removes an earlier tip at once.
    for (const QString &shown : {QString(), text}) {
        if (main_widget)
            Faceplate::CGUIMessageTipManager::ShowMessage(main_widget, shown, kTipKind, kTipPlace,
                                                          kTipTimeS);
    }
}

void CAccountPasswordWidget::TakeTipAway()
{
    if (!std::exchange(d_ptr_->tip_text_, nullptr) || !d_ptr_->ptr_main_widget_)
        return;
    Faceplate::CGUIMessageTipManager::ShowMessage(d_ptr_->ptr_main_widget_, QString(), kTipKind,
                                                  kTipPlace, kTipTimeS);
}

void CAccountPasswordWidget::ShowTipAgain()
{
    if (!d_ptr_->tip_text_ || !d_ptr_->ptr_main_widget_ || d_ptr_->tip_end_.hasExpired())
        return;
    const int left_s = 1 + int(d_ptr_->tip_end_.remainingTime() / 1000);
    Faceplate::CGUIMessageTipManager::ShowMessage(d_ptr_->ptr_main_widget_, d_ptr_->tip_text_(),
                                                  kTipKind, kTipPlace, left_s);
}

void CAccountPasswordWidget::Settle()
{
    d_ptr_->phase_ = LoginPhase::Settling;
    d_ptr_->settling_rounds_ = kSettlingRounds;
    d_ptr_->settling_timer_.start(0);
}

void CAccountPasswordWidget::OnSettling()
{
    if (--d_ptr_->settling_rounds_ > 0)
        return;
    d_ptr_->settling_timer_.stop();
    if (d_ptr_->phase_ == LoginPhase::Settling)
        d_ptr_->phase_ = LoginPhase::Ready;
}

} // namespace Vantor
