// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelFormats.h"

#include "controller/Excel/ExcelText.h"

#include <xlsxwriter.h>

#include <cstdlib>

namespace Vantor {
namespace {

constexpr unsigned kColorBits = 0xFFFFFF;
constexpr int kDefaultSize = 10; // and all below: the workbook's own size
constexpr int kNoAlignment = -1;
constexpr std::size_t kSeen = 16;

bool LooksLike(const lxw_format_ &a, const lxw_format_ &b)
{
    return a.is_blod == b.is_blod && a.font_size == b.font_size
           && a.text_location == b.text_location && a.is_need_wrap == b.is_need_wrap
           && a.background_color == b.background_color && a.text_color == b.text_color
           && a.font_faimily == b.font_faimily;
}

} // namespace

unsigned ColorOf(const std::string &text)
{
    const std::size_t mark = text.find('#');
    if (mark == std::string::npos)
        return LXW_COLOR_UNSET;
    const std::string number = "0x" + text.substr(mark + 1);
    char *end = nullptr;
    const auto color = static_cast<unsigned>(std::strtoull(number.c_str(), &end, 16) & kColorBits);
    const bool is_number = number.size() > 2 && *end == '\0';
    return color == 0 && is_number ? static_cast<unsigned>(LXW_COLOR_BLACK) : color;
}

CExcelFormats::Key CExcelFormats::KeyOf(const lxw_format_ &look, bool can_wrap)
{
    const bool is_aligned = look.text_location >= 0 && look.text_location <= 2;
    return Key(look.is_blod,
               ExcelText::CutToBytes(ExcelText::CleanedAttribute(look.font_faimily),
                                     ExcelText::kMaxFontNameBytes),
               ColorOf(look.background_color), ColorOf(look.text_color),
               look.font_size > kDefaultSize ? look.font_size : 0,
               is_aligned ? look.text_location : kNoAlignment, can_wrap && look.is_need_wrap);
}

lxw_format *CExcelFormats::FormatFor(lxw_workbook *workbook, const lxw_format_ &look, bool can_wrap)
{
    for (std::size_t i = 0; i < seen_.size(); ++i) {
        const std::size_t at = last_ + i < seen_.size() ? last_ + i : last_ + i - seen_.size();
        if (can_wrap == seen_[at].can_wrap && LooksLike(look, seen_[at].look)) {
            last_ = at;
            return seen_[at].format;
        }
    }
    const auto [entry, is_new] = formats_.try_emplace(KeyOf(look, can_wrap), nullptr);
    if (is_new)
        entry->second = workbook_add_format(workbook);
    lxw_format *const format = entry->second;
    if (is_new && format) {
        const auto &[is_bold, font, fill, color, size, alignment, is_wrapped] = entry->first;
        if (is_bold)
            format_set_bold(format);
        format_set_font_name(format, font.c_str());
        format_set_bg_color(format, fill);
        format_set_font_color(format, color);
        if (size > 0)
            format_set_font_size(format, size);
        if (alignment != kNoAlignment)
            format_set_align(format, static_cast<uint8_t>(LXW_ALIGN_LEFT + alignment));
        if (is_wrapped)
            format_set_text_wrap(format);
    }
    Remember({look, can_wrap, format});
    return format;
}

void CExcelFormats::Remember(const Seen &seen)
{
    if (seen_.size() < kSeen) {
        last_ = seen_.size();
        seen_.push_back(seen);
        return;
    }
    last_ = (last_ + 1) % kSeen;
    seen_[last_] = seen;
}

void CExcelFormats::Clear()
{
    formats_.clear();
    seen_.clear();
    last_ = 0;
}

} // namespace Vantor
