// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>

#include <string>

namespace Nim::Base::Encrypt {

/// \brief Decode Base64 text (RFC 4648, section 4), which may be broken into lines, into \a bytes.
/// \return false if \a text is empty or not Base64; \a bytes is then empty.
[[nodiscard]] VANTOR_BASE_EXPORT bool Base64Decode(std::string &bytes, const std::string &text);

/// \brief Overwrite the whole buffer of \a secret and empty it.
///
/// Earlier copies of the text are not overwritten.
VANTOR_BASE_EXPORT void Wipe(std::string &secret);

} // namespace Nim::Base::Encrypt
