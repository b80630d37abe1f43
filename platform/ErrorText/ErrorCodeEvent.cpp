// SPDX-License-Identifier: MIT
#include "ErrorText/ErrorCodeEvent.h"

#include "ErrorText/ErrorText.h"

namespace ErrorText {

QString CErrorCodeEvent::GetErrorText() const
{
    return code_ == Nim::Base::Error::ErrorCode() ? QString() : GetErrorInfoByErrorCode(code_);
}

} // namespace ErrorText
