// SPDX-License-Identifier: MIT
#pragma once

#include "common/Translate.h"
#include "controller/SecondAuthentication/StruVerifyCode.h"
#include "ui/AccountPassword/LoginAttempt.h"
#include "ui/PasswordFrame/PasswordFrame.h"
#include "ui/VerifyCodeWidget/VerifyCodeWidget.h"

#include <ErrorText/ErrorCodeEvent.h>
#include <Ravel/Label.h>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLineEdit>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace Vantor {

// An error in the form.
enum class LoginFault {
    None,
    NoPassword,
    NoCode,
    NoImage, // of the verification code
};

enum class LoginEntry { Password, Code };

enum class LoginPhase {
    Ready,
    Checking, // LoginIn() waits for a worker
    Settling, // the event loop has not yet delivered the input from the time of the wait
};

constexpr int kDefaultWaitTimeMs = 10000;

/// A text of the form in the current language.
inline QString LoginText(const char *key)
{
    return Translate(QLatin1String(key), "Vantor::CAccountPasswordWidget");
}

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
    ErrorText::CErrorCodeEvent image_error_;        // of LoginFault::NoImage
    LoginEntry wrong_entry_ = LoginEntry::Password; // by the last answer

    LoginPhase phase_ = LoginPhase::Ready;
    QTimer settling_timer_;
    int settling_rounds_ = 0;
    int wait_out_time_ms_ = kDefaultWaitTimeMs;
    std::string str_request_guid_; // of the last attempt; empty if its answer no longer counts
    std::shared_ptr<LoginRelay> relay_;

    std::function<QString()> tip_text_; // of the last tip, in the current language; null: no tip
    QDeadlineTimer tip_end_;
};

} // namespace Vantor
