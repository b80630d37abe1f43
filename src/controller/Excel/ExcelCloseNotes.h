// SPDX-License-Identifier: MIT
#pragma once

namespace Vantor {

/// \brief How often something that was written to a workbook is not in the file as it was given:
/// what CExcelControllorWithC::LastCloseNotes() counts.
struct ExcelCloseNotes
{
    int cells_left_out = 0;    ///< Outside the sheet, above the current row, or not finite.
    int texts_cut = 0;         ///< Longer than 32,767 UTF-16 units.
    int texts_replaced = 0;    ///< Held characters that XML cannot hold; these became U+FFFD.
    int links_as_text = 0;     ///< Addresses that are in the file as plain text.
    int links_left_out = 0;    ///< Links of pictures; the pictures are in the file.
    int lists_left_out = 0;    ///< Ranges that offer no list.
    int merges_left_out = 0;   ///< Ranges whose text is in their first cell only.
    int pictures_left_out = 0; ///< Files that cannot be read or are no picture.
    int pictures_shrunk = 0;   ///< Pictures that would have reached beyond the sheet.
    int looks_replaced = 0;    ///< Cells with another look than theirs.
    int sheets_left_out = 0;   ///< Sheets that were refused, with all that was written to them.

    /// \return whether everything is in the file as it was given.
    [[nodiscard]] bool IsEmpty() const
    {
        return cells_left_out == 0 && texts_cut == 0 && texts_replaced == 0 && links_as_text == 0
               && links_left_out == 0 && lists_left_out == 0 && merges_left_out == 0
               && pictures_left_out == 0 && pictures_shrunk == 0 && looks_replaced == 0
               && sheets_left_out == 0;
    }
};

} // namespace Vantor
