// SPDX-License-Identifier: MIT
#include "ui/AccountPassword/AccountPasswordWidget.h"

#include "common/Guard.h"
#include "common/Translate.h"
#include "controller/SecondAuthentication/VerifyCodeRequestObj.h"
#include "ui/AccountPassword/LoginAttempt.h"
#include "ui/PasswordFrame/PasswordFrame.h"
#include "ui/VerifyCodeWidget/VerifyCodeWidget.h"

#include <ErrorText/ErrorText.h>
#include <Faceplate/GUIMessageTipManager.h>
#include <Nim/Base/Guid.h>
#include <Ravel/Label.h>
#include <Ravel/LineEdit.h>
#include <Ravel/PasswordLineEdit.h>

#include <QtCore/QEvent>
#include <QtWidgets/QStyle>
#include <QtWidgets/QVBoxLayout>

#include <chrono>
#include <thread>

namespace Vantor {

struct CAccountPasswordWidgetDataPtr
{
    QLineEdit *ptr_user_name_edit_ = nullptr;
    QPointer<CPasswordFrame> ptr_password_frame_;
    CVerifyCodeWidget *ptr_verify_widget_ = nullptr;
    QLineEdit *ptr_verify_edit_ = nullptr;
    CStruVerifyCode verify_code_;
    std::string str_request_guid_; // of the attempt in flight; empty: none
    std::future<void> pending_check_;
    int wait_out_time_ms_ = 10000;
    std::atomic<bool> b_check_succeeded_{false}; // of the attempt that LoginIn() waited for
    std::string str_error_text_;                 // the same
    QPointer<QWidget> ptr_main_widget_;

    Ravel::CLabel *ptr_user_label_ = nullptr;
    Ravel::CLabel *ptr_password_label_ = nullptr;
    Ravel::CLabel *ptr_verify_error_ = nullptr;
    std::shared_ptr<LoginRelay> relay_;
    bool b_logging_in_ = false;
};

namespace {

constexpr char kContext[] = "Vantor::CAccountPasswordWidget";
constexpr char kLoginFunction[] = "Vantor::CAccountPasswordWidget::LoginIn";
constexpr int kCheckPassed = 9;
constexpr Nim::Base::Error::ErrorCode kTimeoutError{2, 20, 2000};
constexpr int kSpacingPx = 8;
// Of a message tip, as the client's library counts: an error, at the upper edge, for so many
// seconds.
constexpr int kTipKind = 1;
constexpr int kTipPlace = 1;
constexpr int kTipTime_s = 15;

// Overwrites what is ours of the way from the entry to the request.
Nim::Base::SecretText TakeSecret(const QString &text)
{
    QByteArray utf8 = text.toUtf8();
    Nim::Base::SecretText secret(utf8.toStdString());
    utf8.fill('\0');
    return secret;
}

void LogInputError()
{
    VANTOR_LOG(kLoginFunction, 3, VANTOR_LOG_CLIENT_USER_OPERATE, "Input Params Error !!!");
}

} // namespace

CAccountPasswordWidget::CAccountPasswordWidget(QWidget *parent)
    : QWidget(parent), d_ptr_(std::make_shared<CAccountPasswordWidgetDataPtr>())
{
    d_ptr_->relay_ = std::make_shared<LoginRelay>();
    d_ptr_->relay_->widget = this;
    // Made here and not by a worker, which may still be at it when the process ends.
    Nim::Base::CSingleton<ClientFramework::CFrameworkManagerInterface>::Instance();
    InitUi();
}

CAccountPasswordWidget::~CAccountPasswordWidget()
{
    // A worker that is about to post waits here, and then finds nobody.
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
    d_ptr_->ptr_verify_error_->setWordWrap(true);

    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSpacingPx);
    for (QWidget *const widget : std::initializer_list<QWidget *>{
             d_ptr_->ptr_user_label_, user_edit, d_ptr_->ptr_password_label_, password, verify,
             d_ptr_->ptr_verify_error_})
        layout->addWidget(widget);
    setFocusProxy(user_edit);

    QLineEdit *const password_edit = password->GetPasswordLineEdit();
    for (QLineEdit *const edit :
         {static_cast<QLineEdit *>(user_edit), password_edit, d_ptr_->ptr_verify_edit_})
        connect(edit, &QLineEdit::returnPressed, this,
                &CAccountPasswordWidget::SignalReturnPressed);
    connect(password, &CPasswordFrame::SignalLienEditTextChanged, this,
            [this] { MarkPassword(false); });
    connect(d_ptr_->ptr_verify_edit_, &QLineEdit::textChanged, d_ptr_->ptr_verify_error_,
            &QWidget::hide);
    connect(verify, &CVerifyCodeWidget::SignalRefreshVerifyCode, this,
            &CAccountPasswordWidget::OnRefreshVerifyCode);
    SetVerifyWidgetVisiable(false);
    RetranslateUi();
}

CAccountPasswordWidget::LoginState CAccountPasswordWidget::LoginIn(std::string &result,
                                                                   std::string pluginName)
{
    LoginState state = kInputError;
    if (d_ptr_->b_logging_in_) // from a tip's presenter, say
        return state;
    d_ptr_->b_logging_in_ = true;
    const QPointer<QWidget> alive(this);
    RunGuarded(kLoginFunction, [&] {
        if (CheckInput(result))
            state = RunAttempt(result, pluginName);
    });
    if (alive)
        d_ptr_->b_logging_in_ = false;
    return state;
}

bool CAccountPasswordWidget::CheckInput(std::string &result)
{
    MarkPassword(false);
    d_ptr_->ptr_verify_error_->hide();
    if (d_ptr_->ptr_password_frame_->IsPasswordEmpty()) {
        const QString text = Translate(QStringLiteral("ThePasswordIsEmptydADZgBNplv"), kContext);
        MarkPassword(true);
        d_ptr_->ptr_password_frame_->SetErrorTip(text);
        LogInputError();
        result = MakeLoginResult(text.toStdString());
        return false;
    }
    // Whether it is asked for, not whether it is seen: the window may be minimised.
    if (!d_ptr_->ptr_verify_widget_->isHidden() && d_ptr_->ptr_verify_widget_->IsCodeTextEmpty()) {
        const QString text =
            Translate(QStringLiteral("TheVerificationCodeCannotBeEmpty"), kContext);
        d_ptr_->ptr_verify_error_->setText(text);
        d_ptr_->ptr_verify_error_->show();
        LogInputError();
        result = MakeLoginResult(text.toStdString());
        return false;
    }
    return true;
}

CAccountPasswordWidget::LoginState CAccountPasswordWidget::RunAttempt(std::string &result,
                                                                      const std::string &pluginName)
{
    LoginRequest request;
    request.user_name = d_ptr_->ptr_user_name_edit_->text().toStdString();
    request.password = TakeSecret(d_ptr_->ptr_password_frame_->GetPasswordLineEditText());
    if (!d_ptr_->ptr_verify_widget_->isHidden()) {
        request.verify_code = d_ptr_->ptr_verify_edit_->text().toStdString();
        request.verify_mark = d_ptr_->verify_code_.GetVal_verify_code_mark_().toStdString();
    }
    request.plugin_name = pluginName;
    request.guid = Nim::Base::GuidUtil::CreateGuid();
    d_ptr_->str_request_guid_ = request.guid;

    // The thread shares the attempt and the relay, and nothing else: it may outlive this widget.
    const auto attempt = std::make_shared<LoginAttempt>();
    d_ptr_->pending_check_ = attempt->done_.get_future();
    std::thread([attempt, relay = d_ptr_->relay_,
                 document = std::make_shared<Nim::Base::SecretText>(MakeLoginDocument(request))] {
        RunGuarded("Vantor::CAccountPasswordWidget::AsyncCheckPassword", [&] {
            attempt->b_check_succeeded_ =
                AsyncCheckPassword(attempt->str_error_text_, *document, *relay);
        });
        attempt->done_.set_value();
    }).detach();

    const auto wait_time = std::chrono::milliseconds(d_ptr_->wait_out_time_ms_);
    if (d_ptr_->pending_check_.wait_for(wait_time) != std::future_status::ready) {
        const QString text = Translate(QStringLiteral("RequestTimeOut"), kContext)
                             + ErrorText::GetErrorInfoByErrorCode(kTimeoutError);
        result = MakeLoginResult(text.toStdString());
        d_ptr_->str_request_guid_.clear(); // nobody waits for that answer any more
        ShowTip(text);
        VANTOR_LOG(kLoginFunction, 3, VANTOR_LOG_CLIENT_USER_OPERATE, "LoginIn TimeOut !!!");
        return kLoginTimeout;
    }
    const bool is_right = attempt->b_check_succeeded_;
    d_ptr_->b_check_succeeded_ = is_right;
    d_ptr_->str_error_text_ = attempt->str_error_text_;
    result = MakeLoginResult(attempt->str_error_text_);
    if (!is_right)
        ShowTip(QString::fromStdString(attempt->str_error_text_));
    return is_right ? kLoginSucceeded : kLoginFailed;
}

// On the worker's thread.
bool CAccountPasswordWidget::AsyncCheckPassword(std::string &errorText, const std::string &request,
                                                LoginRelay &relay)
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
    const QString text = LoginAnswerText(result.Read());
    errorText = text.toStdString();
    const std::lock_guard<std::mutex> lock(relay.mutex);
    if (relay.widget)
        QMetaObject::invokeMethod(relay.widget, "OnUpdataLoginResult", Qt::QueuedConnection,
                                  Q_ARG(int, result.Read().check_result), Q_ARG(QString, text),
                                  Q_ARG(bool, NeedsVerifyCode(result.Read().error_code.error_code)),
                                  Q_ARG(QString, QString::fromStdString(asked.guid)));
    return result.Read().check_result == kCheckPassed;
}

// NOLINTBEGIN(performance-unnecessary-value-param): a slot whose signature hosts know
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
}

void CAccountPasswordWidget::OnRefreshVerifyCode()
{
    CStruVerifyCode code;
    ErrorText::CErrorCodeEvent error;
    const bool has_image =
        CVerifycodeRequestObj().RequestVerifyCode(d_ptr_->ptr_user_name_edit_->text(), code, error);
    d_ptr_->verify_code_ = code;
    d_ptr_->ptr_verify_widget_->SetVerifyCode(code);
    d_ptr_->ptr_verify_widget_->ClearEdit();
    if (!has_image) {
        d_ptr_->ptr_verify_error_->setText(error.GetErrorText());
        d_ptr_->ptr_verify_error_->setVisible(!error.GetErrorText().isEmpty());
    }
}

void CAccountPasswordWidget::SetVerifyWidgetVisiable(bool is_visible)
{
    d_ptr_->ptr_verify_widget_->setVisible(is_visible);
    if (!is_visible)
        d_ptr_->ptr_verify_error_->hide();
}

void CAccountPasswordWidget::MarkPassword(bool is_empty)
{
    CPasswordFrame *const frame = d_ptr_->ptr_password_frame_;
    if (!frame)
        return;
    frame->SetErrorTip({});
    const QString name = is_empty ? QStringLiteral("ptr_empty_password_widget_frame")
                                  : QStringLiteral("PasswordFrameClass");
    if (frame->objectName() == name)
        return;
    frame->setObjectName(name);
    for (QWidget *const widget : {static_cast<QWidget *>(frame),
                                  frame->findChild<QWidget *>(QStringLiteral("ptr_base_frame"))}) {
        widget->style()->unpolish(widget);
        widget->style()->polish(widget);
    }
}

void CAccountPasswordWidget::ShowTip(const QString &text)
{
    const QPointer<QWidget> main_widget = d_ptr_->ptr_main_widget_; // a presenter may delete us
    // The empty one takes an earlier tip away at once.
    for (const QString &shown : {QString(), text}) {
        if (main_widget)
            Faceplate::CGUIMessageTipManager::ShowMessage(main_widget, shown, kTipKind, kTipPlace,
                                                          kTipTime_s);
    }
}

void CAccountPasswordWidget::Clear()
{
    d_ptr_->ptr_user_name_edit_->clear();
    RestoreUI();
}

void CAccountPasswordWidget::RestoreUI()
{
    d_ptr_->ptr_password_frame_->ClearLineEdit();
    d_ptr_->ptr_password_frame_->SetPassWordState(false);
    MarkPassword(false);
    d_ptr_->verify_code_ = CStruVerifyCode();
    d_ptr_->ptr_verify_widget_->ClearEdit();
    d_ptr_->ptr_verify_widget_->SetVerifyCode(d_ptr_->verify_code_);
    SetVerifyWidgetVisiable(false);
    d_ptr_->str_request_guid_.clear(); // an answer still on its way belongs to the form before
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

void CAccountPasswordWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        RetranslateUi();
}

void CAccountPasswordWidget::RetranslateUi()
{
    d_ptr_->ptr_user_label_->setText(Translate(QStringLiteral("UserName"), kContext));
    d_ptr_->ptr_password_label_->setText(Translate(QStringLiteral("Password"), kContext));
    d_ptr_->ptr_user_name_edit_->setAccessibleName(d_ptr_->ptr_user_label_->text());
}

} // namespace Vantor
