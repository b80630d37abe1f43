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

/// \brief What one attempt to log in asks for.
struct LoginRequest
{
    std::string user_name;
    Nim::Base::SecretText password;
    std::string verify_code;
    std::string verify_mark;
    std::string plugin_name;
    std::string guid; ///< of this attempt
};

/// \brief The way of a worker's answer to the widget, which may be gone by then.
struct LoginRelay
{
    std::mutex mutex;
    CAccountPasswordWidget *widget = nullptr; ///< under the mutex; null once it is gone
};

/// \brief What a worker and the attempt that waits for it share. The worker alone writes until it
/// is done; late or never, it cannot speak for another attempt.
struct LoginAttempt
{
    std::atomic<bool> b_check_succeeded_{false};
    std::string str_error_text_; ///< of the server's answer, UTF-8
    std::promise<void> done_;
};

/// \brief The request as the document that the worker is given.
[[nodiscard]] Nim::Base::SecretText MakeLoginDocument(const LoginRequest &request);
/// \brief The other way round; empty fields for what is not there.
[[nodiscard]] LoginRequest ReadLoginDocument(const Nim::Base::SecretText &document);

/// \brief Whether the next attempt needs a verification code after the answer \a error_code.
[[nodiscard]] bool NeedsVerifyCode(int error_code);

/// \brief What the user is told of \a result: the error's text, and the tries left or the time of a
/// lock. Any thread.
[[nodiscard]] QString LoginAnswerText(const ClientFramework::CheckPwdResultParam &result);

/// \brief The document that LoginIn() hands out, which holds \a error_text at "/ErrorInfo".
[[nodiscard]] std::string MakeLoginResult(const std::string &error_text);

} // namespace Vantor
