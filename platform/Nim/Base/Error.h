// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>

namespace Nim::Base::Error {

/// \brief Where a request failed and why: three numbers, all 0 if nothing failed.
struct ErrorCode
{
    int module_code = 0; ///< The part of the system that failed.
    int error_code = 0;  ///< The reason; each module has its own numbers.
    int sub_system = 0;  ///< The system of the module, where there are several.
};

/// \brief Whether all three numbers are equal.
inline bool operator==(const ErrorCode &a, const ErrorCode &b)
{
    return a.module_code == b.module_code && a.error_code == b.error_code
           && a.sub_system == b.sub_system;
}

/// \brief Whether one of the numbers differs.
inline bool operator!=(const ErrorCode &a, const ErrorCode &b)
{
    return !(a == b);
}

/// \brief Remember \a code as the last error of the calling thread.
VANTOR_BASE_EXPORT void SetLastError(const ErrorCode &code);

/// \brief The last error of the calling thread; all 0 before the first. Errors of other threads are
/// not visible here.
[[nodiscard]] VANTOR_BASE_EXPORT ErrorCode GetLastError();

} // namespace Nim::Base::Error
