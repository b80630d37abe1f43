// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <string>

namespace Nim::Base::Guid {

/// \brief A new random GUID (RFC 4122, version 4): 36 lower-case characters without braces. Any
/// thread.
[[nodiscard]] VANTOR_PLATFORM_EXPORT std::string Create();

} // namespace Nim::Base::Guid
