// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>

#include <string>

namespace Nim::Base::Encrypt {

/// \brief Decode Base64 text (RFC 4648, section 4), which may be broken into lines, into \a bytes.
/// \return false when \a text holds nothing or is not Base64; \a bytes is then empty.
[[nodiscard]] VANTOR_BASE_EXPORT bool Base64Decode(std::string &bytes, const std::string &text);

/// \brief Overwrite the characters of \a secret, all that its buffer holds, and empty it.
///
/// Copies that were made before are not reached.
VANTOR_BASE_EXPORT void Wipe(std::string &secret);

} // namespace Nim::Base::Encrypt
