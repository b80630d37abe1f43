// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>

#include <string>

namespace Nim::Base::Encrypt {

/// \brief Decode Base64 text (RFC 4648, section 4) into \a bytes. The text may contain blanks and
/// line breaks, and the padding may be missing.
/// \return false if \a text is empty, is not Base64 or is cut short; \a bytes is then empty.
[[nodiscard]] VANTOR_BASE_EXPORT bool Base64Decode(std::string &bytes, const std::string &text);

/// \brief Overwrite the whole buffer of \a secret and empty it.
///
/// Earlier copies of the text are not overwritten.
VANTOR_BASE_EXPORT void Wipe(std::string &secret);

} // namespace Nim::Base::Encrypt
