// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelFormats.h"

#include "controller/Excel/ExcelText.h"

#include <xlsxwriter.h>

#include <cstdlib>
#include <iterator>
#include <tuple>

namespace Vantor {
namespace {

constexpr unsigned kColorBits = 0xFFFFFF;
constexpr int kDefaultSize = 10; // and all below: the workbook's own size
constexpr int kNoAlignment = -1;
constexpr std::size_t kSeen = 16;

// The fields that a cell shows; the first ones weigh most when the nearest look is wanted.
auto Fields(const lxw_format_ &look)
{
    return std::tie(look.is_blod, look.font_size, look.text_location, look.is_need_wrap,
                    look.background_color, look.text_color, look.font_faimily);
}

std::string ShownColor(const std::string &text)
{
    return text.empty() ? text : std::to_string(ColorOf(text));
}

unsigned ColorOfShown(const std::string &shown)
{
    return static_cast<unsigned>(std::strtoul(shown.c_str(), nullptr, 10));
}

// `look` with one value for all that look alike; colours are numbers as libxlsxwriter takes them.
lxw_format_ Shown(const lxw_format_ &look, bool can_wrap)
{
    lxw_format_ shown;
    shown.is_blod = look.is_blod;
    shown.font_size = look.font_size > kDefaultSize ? look.font_size : 0;
    shown.text_location =
        look.text_location >= 0 && look.text_location <= 2 ? look.text_location : kNoAlignment;
    shown.is_need_wrap = can_wrap && look.is_need_wrap;
    shown.background_color = ShownColor(look.background_color);
    shown.text_color = ShownColor(look.text_color);
    shown.font_faimily = ExcelText::CutToBytes(ExcelText::CleanedAttribute(look.font_faimily),
                                               ExcelText::kMaxFontNameBytes);
    return shown;
}

void Apply(const lxw_format_ &shown, lxw_format *format)
{
    if (shown.is_blod)
        format_set_bold(format);
    format_set_font_name(format, shown.font_faimily.c_str());
    format_set_bg_color(format, ColorOfShown(shown.background_color));
    format_set_font_color(format, ColorOfShown(shown.text_color));
    if (shown.font_size > 0)
        format_set_font_size(format, shown.font_size);
    if (shown.text_location != kNoAlignment)
        format_set_align(format, static_cast<uint8_t>(LXW_ALIGN_LEFT + shown.text_location));
    if (shown.is_need_wrap)
        format_set_text_wrap(format);
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

bool CExcelFormats::LooksBefore::operator()(const lxw_format_ &a, const lxw_format_ &b) const
{
    return Fields(a) < Fields(b);
}

void CExcelFormats::SetWorkbook(lxw_workbook *workbook)
{
    workbook_ = workbook;
    formats_.clear();
    seen_.clear();
    last_ = 0;
}

lxw_format *CExcelFormats::LinkFormat() const
{
    return workbook_get_default_url_format(workbook_);
}

CExcelFormats::Found CExcelFormats::FormatFor(const lxw_format_ &look, bool can_wrap)
{
    for (std::size_t i = 0; i < seen_.size(); ++i) {
        const std::size_t at = last_ + i < seen_.size() ? last_ + i : last_ + i - seen_.size();
        if (can_wrap == seen_[at].can_wrap && Fields(look) == Fields(seen_[at].look)) {
            last_ = at;
            return seen_[at].found;
        }
    }
    const Found found = FindOrMake(Shown(look, can_wrap));
    Remember({look, can_wrap, found});
    return found;
}

CExcelFormats::Found CExcelFormats::FindOrMake(const lxw_format_ &shown)
{
    const auto next = formats_.lower_bound(shown);
    const bool is_known = next != formats_.end() && Fields(next->first) == Fields(shown);
    if (is_known)
        return {next->second, true};
    if (formats_.size() >= kMost)
        return {(next != formats_.end() ? next : std::prev(next))->second, false};
    lxw_format *const format = workbook_add_format(workbook_);
    if (format) {
        Apply(shown, format);
        formats_.emplace_hint(next, shown, format);
    }
    return {format, true};
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

} // namespace Vantor
