// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <string>

namespace Nim::Base::Encrypt {

/// \brief Decode Base64 text (RFC 4648, section 4) into \a bytes.
/// \return false for empty text and for anything that is not Base64; \a bytes is then empty.
[[nodiscard]] VANTOR_PLATFORM_EXPORT bool Base64Decode(const std::string &text, std::string &bytes);

} // namespace Nim::Base::Encrypt
