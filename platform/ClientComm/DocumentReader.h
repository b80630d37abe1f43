// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace ClientComm {

class CDocumentTree;

// Both fill an empty tree within the limits of DocumentLimits.h, in time linear in the text, and
// leave no copy of the text behind. They return false, with anything in the tree, for a text that
// is not well-formed or beyond a limit.

/// \brief Read \a text as JSON (RFC 8259), an object or an array, in UTF-8. Two members of one name
/// are refused, because readers disagree about which one counts.
[[nodiscard]] bool ReadJson(std::string_view text, CDocumentTree &tree);

/// \brief Read \a text as XML 1.0 in the encoding that it declares. A document type is refused, and
/// with it every entity but the five of XML. Attributes are dropped, and so is text beside
/// elements.
[[nodiscard]] bool ReadXml(std::string_view text, CDocumentTree &tree);

} // namespace ClientComm
