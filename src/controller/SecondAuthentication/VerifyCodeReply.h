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

/// \brief The image of \a bytes in any format Qt knows; null if they are no image, or one of more
/// than \a maximum_side pixels in width or height, which is checked before anything is decoded.
[[nodiscard]] QImage DecodeVerifyCode(const std::string &bytes, int maximum_side);

} // namespace Vantor
