// SPDX-License-Identifier: MIT
#include "letter/ExcelLetter.h"

#include <xlsxwriter.h>

#include <cstdlib>
#include <sstream>
#include <vector>

namespace Letter {
namespace {

lxw_row_t Row(int row)
{
    return static_cast<lxw_row_t>(row);
}

lxw_col_t Column(int column)
{
    return static_cast<lxw_col_t>(column);
}

} // namespace

unsigned ColorOf(const std::string &text)
{
    const std::string number = "0x" + text.substr(text.find('#') + 1);
    const auto color = std::strtoull(number.c_str(), nullptr, 16) & 0xFFFFFF;
    const bool is_black =
        color == 0 && number.find_first_not_of('0', 2) == std::string::npos && number.size() > 2;
    return is_black ? 0x1000000 : static_cast<unsigned>(color);
}

lxw_format *NewFormat(lxw_workbook *workbook, const Vantor::lxw_format_ &look, bool can_wrap)
{
    lxw_format *const format = workbook_add_format(workbook);
    if (look.is_blod)
        format_set_bold(format);
    format_set_font_name(format, look.font_faimily.c_str());
    if (look.background_color.find('#') != std::string::npos)
        format_set_bg_color(format, ColorOf(look.background_color));
    if (look.text_color.find('#') != std::string::npos)
        format_set_font_color(format, ColorOf(look.text_color));
    if (look.font_size > 10)
        format_set_font_size(format, look.font_size);
    if (look.text_location == 0)
        format_set_align(format, LXW_ALIGN_LEFT);
    if (look.text_location == 1)
        format_set_align(format, LXW_ALIGN_CENTER);
    if (look.text_location == 2)
        format_set_align(format, LXW_ALIGN_RIGHT);
    if (can_wrap && look.is_need_wrap)
        format_set_text_wrap(format);
    return format;
}

void WriteText(lxw_workbook *workbook, lxw_worksheet *sheet, int row, int col,
               const std::string &text, const Vantor::lxw_format_ &look)
{
    worksheet_write_string(sheet, Row(row), Column(col), text.c_str(),
                           NewFormat(workbook, look, true));
}

void WriteNumber(lxw_workbook *workbook, lxw_worksheet *sheet, int row, int col, double value,
                 const Vantor::lxw_format_ &look)
{
    worksheet_write_number(sheet, Row(row), Column(col), value, NewFormat(workbook, look, true));
}

void MergeCells(lxw_workbook *workbook, lxw_worksheet *sheet, int first_row, int first_col,
                int last_row, int last_col, const std::string &text,
                const Vantor::lxw_format_ &look)
{
    worksheet_merge_range(sheet, Row(first_row), Column(first_col), Row(last_row), Column(last_col),
                          text.c_str(), NewFormat(workbook, look, false));
}

void ValidateRange(lxw_worksheet *sheet, int first_row, int first_col, int last_row, int last_col,
                   const std::string &list)
{
    std::vector<std::string> items;
    std::istringstream stream(list);
    for (std::string item; std::getline(stream, item, ',');)
        items.push_back(item);
    std::vector<char *> pointers;
    pointers.reserve(items.size() + 1);
    for (std::string &item : items)
        pointers.push_back(item.data());
    pointers.push_back(nullptr);
    lxw_data_validation validation{};
    validation.validate = LXW_VALIDATION_TYPE_LIST;
    validation.value_list = pointers.data();
    worksheet_data_validation_range(sheet, Row(first_row), Column(first_col), Row(last_row),
                                    Column(last_col), &validation);
}

void InsertPicture(lxw_worksheet *sheet, int row, int col, const std::string &bytes,
                   const Vantor::lxw_image_options_ &options)
{
    lxw_image_options placed{};
    placed.x_offset = options.x_offset;
    placed.y_offset = options.y_offset;
    placed.x_scale = options.x_scale;
    placed.y_scale = options.y_scale;
    placed.object_position = options.object_position;
    placed.description = options.description;
    placed.url = options.url;
    placed.tip = options.tip;
    worksheet_insert_image_buffer_opt(sheet, Row(row), Column(col),
                                      reinterpret_cast<const unsigned char *>(bytes.data()),
                                      bytes.size(), &placed);
}

} // namespace Letter
