// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>
#include <common/Record.h>

#include <string>

struct lxw_worksheet;

namespace Vantor {

/// Look of a cell. All texts are UTF-8.
struct lxw_format_
{
    int font_size = 10;           ///< Points; applied only when greater than 10.
    bool is_blod = false;         ///< Bold.
    int text_location = 0;        ///< 0 left, 1 centre, 2 right; others leave the alignment unset.
    std::string background_color; ///< "#RRGGBB" in hexadecimal; without "#" there is no fill.
    std::string text_color;       ///< The same for the font.
    int cell_type = 0;            ///< Kept for hosts; no write uses it.
    std::string font_faimily = "Microsoft YaHei"; ///< Font name; at most 127 bytes are used.
    bool is_need_wrap = false;                    ///< Wrap the text.
};

/// \brief Look of a cell: what CExcelControllorWithC::SetCellString() and MergeCells() are given.
///
/// One record may be used for any number of cells and workbooks; equal records share one format.
class VANTOR_EXPORT Clxw_format_ : public CRecord<lxw_format_>
{
    VANTOR_RECORD(Clxw_format_)
    VANTOR_RECORD_FIELD(font_size)
    VANTOR_RECORD_FIELD(is_blod)
    VANTOR_RECORD_FIELD(text_location)
    VANTOR_RECORD_FIELD(background_color)
    VANTOR_RECORD_FIELD(text_color)
    VANTOR_RECORD_FIELD(cell_type)
    VANTOR_RECORD_FIELD(font_faimily)
    VANTOR_RECORD_FIELD(is_need_wrap)
};

/// One sheet of an open workbook.
struct sheetFormat
{
    int has_used_row = 0;           ///< Last row index written, 0-based.
    lxw_worksheet *sheet = nullptr; ///< Owned by the workbook; null when the name was refused.
};

/// \brief One sheet of an open workbook; valid until the workbook is closed.
class VANTOR_EXPORT CsheetFormat : public CRecord<sheetFormat>
{
    VANTOR_RECORD(CsheetFormat)
    VANTOR_RECORD_FIELD(has_used_row)
    VANTOR_RECORD_FIELD(sheet)
};

/// Place of a picture in its cell. The texts belong to the caller and stay alive until the insert
/// returns.
struct lxw_image_options_
{
    int x_offset = 0;   ///< Pixels from the left edge of the cell.
    int y_offset = 0;   ///< Pixels from its top edge.
    double x_scale = 0; ///< Factor of the width; 0 and less mean 1.
    double y_scale = 0; ///< Factor of the height; 0 and less mean 1.
    unsigned char object_position =
        0;                       ///< 0 default, 1 moves and sizes with cells, 2 moves, 3 neither.
    char *description = nullptr; ///< For screen readers, UTF-8; may be null.
    char *url = nullptr;         ///< Target of a click; may be null or empty.
    char *tip = nullptr;         ///< Tool tip of the link; may be null.
};

/// \brief Place of a picture; copies copy the pointers to its texts, not the texts.
class VANTOR_EXPORT Clxw_image_options_ : public CRecord<lxw_image_options_>
{
    VANTOR_RECORD(Clxw_image_options_)
    VANTOR_RECORD_FIELD(x_offset)
    VANTOR_RECORD_FIELD(y_offset)
    VANTOR_RECORD_FIELD(x_scale)
    VANTOR_RECORD_FIELD(y_scale)
    VANTOR_RECORD_FIELD(object_position)
    VANTOR_RECORD_FIELD(description)
    VANTOR_RECORD_FIELD(url)
    VANTOR_RECORD_FIELD(tip)
};

} // namespace Vantor
