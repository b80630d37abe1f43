// SPDX-License-Identifier: MIT
#pragma once

namespace Vantor {

constexpr int kSheetRows = 1048576; // the format's limits
constexpr int kSheetColumns = 16384;

// Rows and columns of a sheet, 0-based, both ends included.
struct CellRange
{
    int first_row = 0;
    int first_col = 0;
    int last_row = 0;
    int last_col = 0;

    bool operator==(const CellRange &other) const
    {
        return first_row == other.first_row && first_col == other.first_col
               && last_row == other.last_row && last_col == other.last_col;
    }
    [[nodiscard]] bool IsInsideSheet() const
    {
        return first_row >= 0 && last_row < kSheetRows && first_col >= 0
               && last_col < kSheetColumns;
    }
    [[nodiscard]] bool IsOneCell() const { return first_row == last_row && first_col == last_col; }
};

constexpr CellRange CellAt(int row, int column)
{
    return {row, column, row, column};
}

// The range with its corners in order, as libxlsxwriter takes them.
constexpr CellRange Ordered(const CellRange &range)
{
    return {range.first_row < range.last_row ? range.first_row : range.last_row,
            range.first_col < range.last_col ? range.first_col : range.last_col,
            range.first_row < range.last_row ? range.last_row : range.first_row,
            range.first_col < range.last_col ? range.last_col : range.first_col};
}

} // namespace Vantor
