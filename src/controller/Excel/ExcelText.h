// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace Vantor::ExcelText {

// Checks and mends the texts that libxlsxwriter would write unchanged although readers refuse
// them.

constexpr std::size_t kMaxCellUnits = 32767; // UTF-16 units, the format's limit for a cell
constexpr std::size_t kMaxSheetNameBytes = 31;
constexpr std::size_t kMaxFontNameBytes = 127;
constexpr std::size_t kMaxAttributeBytes = 2079; // libxlsxwriter cuts there, inside a character too
constexpr std::size_t kMaxListUnits = 255;

// Whether `text` is well-formed UTF-8 without zero bytes and without U+FFFE and U+FFFF, which XML
// forbids.
bool IsClean(const std::string &text);

// `text` with each offending byte or character replaced by U+FFFD.
std::string Cleaned(const std::string &text);

// `text` for an attribute or a formula, where libxlsxwriter escapes no control characters: cleaned,
// and each of them but tab and the line breaks replaced by U+FFFD.
std::string CleanedAttribute(const std::string &text);

// The longest prefix of clean text of at most `bytes` bytes that ends at a character.
std::string CutToBytes(const std::string &text, std::size_t bytes);

// UTF-16 units of clean text.
std::size_t Utf16Units(const std::string &text);

// The longest prefix of clean text of at most `units` UTF-16 units that ends at a character.
std::string CutToUnits(const std::string &text, std::size_t units);

// Whether readers would take a part of `text`, such as "_x000D_", for the escape of a character.
bool HasEscape(const std::string &text);

// Clean text with "_x000D_" and its like written so that readers do not take them for escapes of
// characters (ECMA-376, ST_Xstring): "_x005F_x000D_".
std::string Escaped(const std::string &text);

// Clean text as a cell can hold it: escaped, and cut to kMaxCellUnits; `is_cut` is then set.
std::string FitCell(const std::string &text, bool &is_cut);

// The name a sheet gets in the file: cleaned, control characters replaced, at most 31 bytes. No
// apostrophe is left at the end of a name that is cut, because the format refuses it there.
std::string SheetName(const std::string &name);

// The text of a link with the words that libxlsxwriter takes for schemes anywhere in it
// ("external:", "internal:") made harmless behind the start.
std::string LinkTarget(const std::string &url);

// Bytes of `url` after the escapes that libxlsxwriter makes.
std::size_t EscapedBytes(const std::string &url);

// The items of a comma-separated list, empty ones too.
std::vector<std::string> SplitList(const std::string &list);

} // namespace Vantor::ExcelText
