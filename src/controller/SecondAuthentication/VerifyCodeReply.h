// SPDX-License-Identifier: MIT
#pragma once

#include "common/LoginData.h"

#include <QtGui/QImage>

#include <string>

namespace Vantor {

/// \brief The body of a request for the verification code of \a user_name: an element
/// "VerificationCodeImageRequest" without declaration and final line feed.
[[nodiscard]] std::string MakeVerifyCodeRequest(const std::string &user_name);

/// \brief Read \a reply, JSON or XML: the error words, the mark, and the bytes of the image.
/// \return false when there is no image; it is logged.
[[nodiscard]] bool ReadVerifyCodeReply(const std::string &reply,
                                       NimClientFrameWork::CDaxCaptchaResponse &response);

/// \brief The image of \a bytes in whatever format Qt knows; null when they are none, or when it is
/// more than \a maximum_side pixels wide or high: that is asked before anything is decoded.
[[nodiscard]] QImage DecodeVerifyCode(const std::string &bytes, int maximum_side);

} // namespace Vantor
