// SPDX-License-Identifier: MIT
#pragma once

#include <ClientFramework/FrameworkManagerInterface.h>
#include <Nim/Base/SecretText.h>

#include <QtCore/QString>

#include <atomic>
#include <future>
#include <memory>
#include <mutex>
#include <string>

namespace Vantor {

class CAccountPasswordWidget;

/// \brief The input of one attempt to log in.
struct LoginRequest
{
    std::string user_name;
    Nim::Base::SecretText password;
    std::string verify_code;
    std::string verify_mark;
    std::string plugin_name;
    std::string guid; ///< of this attempt
};

/// \brief Through this, a worker reaches the widget, which may be deleted before the worker ends.
struct LoginRelay
{
    std::mutex mutex;
    CAccountPasswordWidget *widget = nullptr; ///< under the mutex; null after the deletion
};

/// \brief The data that a worker shares with the call of LoginIn() that waits for it.
///
/// Only the worker touches the fields until done_ is set. Each attempt has its own, so a late
/// answer is never taken for another one.
struct LoginAttempt
{
    Nim::Base::SecretText document_; ///< the request, see MakeLoginDocument()
    std::atomic<bool> b_check_succeeded_{false};
    std::string str_error_text_; ///< of the server's answer, UTF-8
    ClientFramework::CheckPwdResultParam answer_;
    std::promise<void> done_;
};

constexpr int kCheckPassed = 9; ///< the check_result of a right password

/// \brief The request as the document that the worker reads.
[[nodiscard]] Nim::Base::SecretText MakeLoginDocument(const LoginRequest &request);
/// \brief Read the request back; missing fields are empty.
[[nodiscard]] LoginRequest ReadLoginDocument(const std::string &document);

/// \brief Whether the next attempt needs a verification code after the answer \a error_code.
[[nodiscard]] bool NeedsVerifyCode(int error_code);
/// \brief Whether \a error_code means that the verification code is wrong or missing.
[[nodiscard]] bool IsVerifyCodeWrong(int error_code);

/// \brief The text of \a result for the user: the text of the error, and the attempts that are left
/// or the time of a lock. Any thread.
[[nodiscard]] QString LoginAnswerText(const ClientFramework::CheckPwdResultParam &result);

/// \brief The result document of LoginIn(), with \a error_text at "/ErrorInfo".
[[nodiscard]] std::string MakeLoginResult(const std::string &error_text);

} // namespace Vantor
