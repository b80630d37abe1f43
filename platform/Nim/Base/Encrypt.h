// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <string>

namespace Nim::Base::Encrypt {

/// \brief Decode Base64 text (RFC 4648, section 4) into \a bytes.
/// \return false for empty text and for anything that is not Base64; \a bytes is then empty.
[[nodiscard]] VANTOR_PLATFORM_EXPORT bool Base64Decode(const std::string &text, std::string &bytes);

/// \brief Overwrite the characters of \a secret, all that its buffer holds, and empty it.
///
/// Copies that were made before are not reached.
VANTOR_PLATFORM_EXPORT void Wipe(std::string &secret);

} // namespace Nim::Base::Encrypt
