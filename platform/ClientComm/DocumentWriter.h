// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace ClientComm {

class CDocumentTree;

// Neither leaves a copy of the document behind.

/// \brief \a tree as compact JSON (RFC 8259), members in the order of their names. Members of one
/// name become an array.
[[nodiscard]] std::string WriteJson(const CDocumentTree &tree);

/// \brief \a tree as XML 1.0 with its declaration and a line feed at the end. Characters that XML
/// cannot hold become U+FFFD.
/// \return an empty text unless there is one outermost member and every name is one for an element.
[[nodiscard]] std::string WriteXml(const CDocumentTree &tree);

/// \brief \a text, or U+FFFD in place of each byte that is no UTF-8.
[[nodiscard]] std::string ToUtf8(std::string_view text);

} // namespace ClientComm
