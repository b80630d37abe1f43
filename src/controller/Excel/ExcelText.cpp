// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelText.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstring>

namespace Vantor::ExcelText {
namespace {

constexpr char kReplacement[] = "\xEF\xBF\xBD";
constexpr char kEscapedUnderscore[] = "_x005F_";
constexpr std::uint64_t kHighBits = 0x8080808080808080;

unsigned char ByteAt(const std::string &text, std::size_t i)
{
    return static_cast<unsigned char>(text[i]);
}

bool IsContinuation(unsigned char byte)
{
    return (byte & 0xC0) == 0x80;
}

// U+FFFE and U+FFFF, which XML forbids.
bool IsNoCharacter(const std::string &text, std::size_t i)
{
    return text.compare(i, 3, "\xEF\xBF\xBE") == 0 || text.compare(i, 3, "\xEF\xBF\xBF") == 0;
}

// Length of the character that begins at `i`; 0 if it is malformed or not allowed in XML
// (Unicode 15, table 3-7).
std::size_t CharacterLength(const std::string &text, std::size_t i)
{
    const unsigned char lead = ByteAt(text, i);
    if (lead < 0x80)
        return lead != 0 ? 1 : 0;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || i + length > text.size())
        return 0;
    for (std::size_t k = 1; k < length; ++k) {
        if (!IsContinuation(ByteAt(text, i + k)))
            return 0;
    }
    const unsigned char second = ByteAt(text, i + 1);
    const bool is_overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool is_surrogate = lead == 0xED && second > 0x9F;
    const bool is_no_character = lead == 0xEF && IsNoCharacter(text, i);
    const bool is_beyond = lead == 0xF4 && second > 0x8F;
    return is_overlong || is_surrogate || is_beyond || is_no_character ? 0 : length;
}

// Bytes at the start of `text` that are plain ASCII without zero, eight at a time.
std::size_t AsciiPrefix(const std::string &text)
{
    std::size_t i = 0;
    for (std::uint64_t word = 0; i + sizeof word <= text.size(); i += sizeof word) {
        std::memcpy(&word, text.data() + i, sizeof word);
        const std::uint64_t zeros = (word - 0x0101010101010101) & ~word;
        if (((word | zeros) & kHighBits) != 0)
            break;
    }
    return i;
}

// Clean text with control characters replaced, but those in `allowed`.
std::string WithoutControls(const std::string &text, const std::string &allowed)
{
    std::string without;
    without.reserve(text.size());
    for (const char c : text) {
        if (static_cast<unsigned char>(c) < 0x20 && allowed.find(c) == std::string::npos)
            without += kReplacement;
        else
            without += c;
    }
    return without;
}

// Where text that readers take for the escape of a character begins: _xHHHH_.
std::size_t FindEscape(const std::string &text, std::size_t from)
{
    constexpr std::size_t kLength = 7;
    for (std::size_t at = text.find("_x", from);
         at != std::string::npos && at + kLength <= text.size(); at = text.find("_x", at + 1)) {
        const auto digits = text.begin() + static_cast<std::ptrdiff_t>(at) + 2;
        if (text[at + kLength - 1] == '_' && std::all_of(digits, digits + 4, [](unsigned char c) {
                return std::isxdigit(c) != 0;
            }))
            return at;
    }
    return std::string::npos;
}

std::size_t UnitsOf(std::size_t character_length)
{
    return character_length == 4 ? 2 : 1;
}

} // namespace

bool IsClean(const std::string &text)
{
    for (std::size_t i = AsciiPrefix(text); i < text.size();) {
        const std::size_t length = CharacterLength(text, i);
        if (length == 0)
            return false;
        i += length;
    }
    return true;
}

std::string Cleaned(const std::string &text)
{
    std::string clean;
    clean.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = CharacterLength(text, i);
        if (length > 0)
            clean.append(text, i, length);
        else
            clean.append(kReplacement);
        i += IsNoCharacter(text, i) ? 3 : std::max<std::size_t>(length, 1);
    }
    return clean;
}

std::string CleanedAttribute(const std::string &text)
{
    return WithoutControls(Cleaned(text), "\t\n\r");
}

std::string CutToBytes(const std::string &text, std::size_t bytes)
{
    if (text.size() <= bytes)
        return text;
    while (bytes > 0 && IsContinuation(ByteAt(text, bytes)))
        --bytes;
    return text.substr(0, bytes);
}

std::size_t Utf16Units(const std::string &text)
{
    std::size_t units = 0;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = std::max<std::size_t>(CharacterLength(text, i), 1);
        units += UnitsOf(length);
        i += length;
    }
    return units;
}

std::string CutToUnits(const std::string &text, std::size_t units)
{
    std::size_t used = 0;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = std::max<std::size_t>(CharacterLength(text, i), 1);
        used += UnitsOf(length);
        if (used > units)
            return text.substr(0, i);
        i += length;
    }
    return text;
}

bool HasEscape(const std::string &text)
{
    return FindEscape(text, 0) != std::string::npos;
}

std::string Escaped(const std::string &text)
{
    std::string escaped;
    std::size_t from = 0;
    for (std::size_t at = FindEscape(text, 0); at != std::string::npos;
         at = FindEscape(text, at + 1)) {
        escaped.append(text, from, at - from).append(kEscapedUnderscore);
        from = at + 1;
    }
    return from == 0 ? text : escaped.append(text, from);
}

std::string FitCell(const std::string &text, bool &is_cut)
{
    std::string fitting = CutToUnits(text, kMaxCellUnits);
    is_cut = fitting.size() < text.size();
    fitting = Escaped(fitting);
    if (Utf16Units(fitting) <= kMaxCellUnits)
        return fitting;
    is_cut = true;
    fitting = CutToUnits(fitting, kMaxCellUnits);
    // An escape that is cut itself goes whole.
    const std::string escape = kEscapedUnderscore;
    for (std::size_t kept = escape.size(); kept > 0; --kept) {
        const std::size_t at = fitting.size() - kept;
        if (fitting.compare(at, kept, escape, 0, kept) == 0)
            return kept == escape.size() ? fitting : fitting.substr(0, at);
    }
    return fitting;
}

std::string SheetName(const std::string &name)
{
    const std::string whole = WithoutControls(Cleaned(name), "");
    std::string cut = CutToBytes(whole, kMaxSheetNameBytes);
    while (cut.size() < whole.size() && !cut.empty() && cut.back() == '\'')
        cut.pop_back();
    return cut;
}

std::string LinkTarget(const std::string &url)
{
    std::string target = url;
    for (const std::string &word : {std::string("external:"), std::string("internal:")}) {
        for (std::size_t at = target.find(word, 1); at != std::string::npos;
             at = target.find(word, at + 1))
            target.replace(at + word.size() - 1, 1, "%3A");
    }
    return target;
}

std::size_t EscapedBytes(const std::string &url)
{
    std::size_t bytes = 0;
    for (std::size_t i = 0; i < url.size(); ++i) {
        const bool is_escape = url[i] == '%' && i + 2 < url.size()
                               && std::isxdigit(ByteAt(url, i + 1)) != 0
                               && std::isxdigit(ByteAt(url, i + 2)) != 0;
        const bool needs_escape =
            std::strchr(" \"<>[]`^{}%", url[i]) != nullptr && url[i] != '\0' && !is_escape;
        bytes += needs_escape ? 3 : 1;
    }
    return bytes;
}

std::vector<std::string> SplitList(const std::string &list)
{
    std::vector<std::string> items;
    std::size_t begin = 0;
    for (std::size_t comma = list.find(','); comma != std::string::npos;
         comma = list.find(',', begin)) {
        items.push_back(list.substr(begin, comma - begin));
        begin = comma + 1;
    }
    items.push_back(list.substr(begin));
    return items;
}

} // namespace Vantor::ExcelText
