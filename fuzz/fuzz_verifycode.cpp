// SPDX-License-Identifier: MIT
// Bytes become a reply with a verification code, and its image, which must be bounded or null.
// Bytes that are no reply go to the image reader directly, because a fuzzer hardly finds valid
// base64.
#include "Require.h"

#include <Nim/Base/Log.h>
#include <controller/SecondAuthentication/VerifyCodeReply.h>

#include <cstdint>
#include <string>

namespace {

constexpr int kMaximumSide = 256;

void Decode(const std::string &bytes)
{
    const QImage image = Vantor::DecodeVerifyCode(bytes, kMaximumSide);
    Require(image.width() <= kMaximumSide && image.height() <= kMaximumSide,
            "the image is as small as it was asked to be");
}

} // namespace

// Each refused reply is logged, which would be most of the run.
extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    Nim::Base::Log::SetSink([](int, const std::string &, const std::string &) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::string input(reinterpret_cast<const char *>(data), size);
    NimClientFrameWork::CDaxCaptchaResponse response;
    if (Vantor::ReadVerifyCodeReply(input, response))
        Decode(response.GetVal_captcha_info());
    else
        Decode(input);
    return 0;
}
