// SPDX-License-Identifier: MIT
#pragma once

#include <controller/Excel/ExcelRecords.h>

#include <string>

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

/// The workbook export in its plainest form, one step after the other as it is documented, with a
/// new format for each cell: what the tests compare parts with.
namespace Letter {

/// The colour of a text such as "#FA3239"; 0, which means no colour, without "#" or number.
unsigned ColorOf(const std::string &text);

/// A new format in \a workbook for one cell.
lxw_format *NewFormat(lxw_workbook *workbook, const Vantor::lxw_format_ &look, bool can_wrap);

void WriteText(lxw_workbook *workbook, lxw_worksheet *sheet, int row, int col,
               const std::string &text, const Vantor::lxw_format_ &look);
void WriteNumber(lxw_workbook *workbook, lxw_worksheet *sheet, int row, int col, double value,
                 const Vantor::lxw_format_ &look);
void MergeCells(lxw_workbook *workbook, lxw_worksheet *sheet, int first_row, int first_col,
                int last_row, int last_col, const std::string &text,
                const Vantor::lxw_format_ &look);
void ValidateRange(lxw_worksheet *sheet, int first_row, int first_col, int last_row, int last_col,
                   const std::string &list);
void InsertPicture(lxw_worksheet *sheet, int row, int col, const std::string &bytes,
                   const Vantor::lxw_image_options_ &options);

} // namespace Letter
