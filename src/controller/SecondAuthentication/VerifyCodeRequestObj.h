// SPDX-License-Identifier: MIT
#pragma once

#include "common/LoginData.h"
#include "controller/SecondAuthentication/StruVerifyCode.h"

#include <ErrorText/ErrorCodeEvent.h>
#include <VantorExport.h>

namespace Vantor {

/// \brief Requests verification codes from the server, see BusinessCommon::CNetCommManager.
class VANTOR_EXPORT CVerifycodeRequestObj
{
public:
    /// \brief Request an image for \a user_name and wait for it. GUI thread: the image becomes a
    /// pixmap.
    ///
    /// \param code  gets the image and its mark; what the user typed before stays.
    /// \param error filled when the request fails; left as it is when only the image cannot be
    ///              read, or is larger than kMaximumSide.
    /// \return whether there is an image.
    bool RequestVerifyCode(const QString &user_name, CStruVerifyCode &code,
                           ErrorText::CErrorCodeEvent &error);

    /// \brief The request and the reading of its reply alone. Any thread.
    ///
    /// \param response its error holds the codes of the reply, -1 for a missing one. They are
    ///                 filled in on success too and can then be ignored.
    bool GetCaptchaImgData(const NimClientFrameWork::CDaxCaptchaInfo &info,
                           NimClientFrameWork::CDaxCaptchaResponse &response);

    /// The widest and highest image that is decoded, in pixels.
    static constexpr int kMaximumSide = 4096;
};

} // namespace Vantor
