// SPDX-License-Identifier: MIT
#include "controller/Excel/MergedCells.h"

#include <algorithm>
#include <iterator>

namespace Vantor {

bool CMergedCells::Overlaps(const Lines &lines, int first_line, int last_line, int first, int last)
{
    const auto overlaps = [first, last](const Lines::value_type &line) {
        const Intervals &intervals = line.second;
        const auto next = intervals.upper_bound(last);
        return next != intervals.begin() && std::prev(next)->second >= first;
    };
    return std::any_of(lines.lower_bound(first_line), lines.upper_bound(last_line), overlaps);
}

bool CMergedCells::Overlaps(const CellRange &range) const
{
    return Overlaps(by_column_, range.first_col, range.last_col, range.first_row, range.last_row)
           || Overlaps(by_row_, range.first_row, range.last_row, range.first_col, range.last_col);
}

void CMergedCells::Add(const CellRange &range)
{
    ++count_;
    if (range.last_row - range.first_row > range.last_col - range.first_col) {
        for (int column = range.first_col; column <= range.last_col; ++column)
            by_column_[column].emplace(range.first_row, range.last_row);
    } else {
        for (int row = range.first_row; row <= range.last_row; ++row)
            by_row_[row].emplace(range.first_col, range.last_col);
    }
}

} // namespace Vantor
