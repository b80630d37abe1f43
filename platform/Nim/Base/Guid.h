// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>

#include <string>

namespace Nim::Base::GuidUtil {

/// \brief A new random GUID (RFC 4122, version 4): 36 lower-case characters without braces. Any
/// thread.
[[nodiscard]] VANTOR_BASE_EXPORT std::string CreateGuid();

} // namespace Nim::Base::GuidUtil
