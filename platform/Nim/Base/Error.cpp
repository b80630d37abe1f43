// SPDX-License-Identifier: MIT
#include "Nim/Base/Error.h"

namespace Nim::Base::Error {
namespace {

ErrorCode &ThreadError()
{
    thread_local ErrorCode last;
    return last;
}

} // namespace

void SetLastError(const ErrorCode &code)
{
    ThreadError() = code;
}

ErrorCode GetLastError()
{
    return ThreadError();
}

} // namespace Nim::Base::Error
