// SPDX-License-Identifier: MIT
#pragma once

#include "controller/Excel/CellRange.h"

#include <map>

namespace Vantor {

// The merged ranges of a sheet. No two of them share a cell, so the ranges that cross one column
// (or one row) are disjoint intervals, and the neighbours of a new one decide whether it overlaps.
class CMergedCells
{
public:
    [[nodiscard]] bool Overlaps(const CellRange &range) const;
    // `range` is in order and does not overlap an earlier one.
    void Add(const CellRange &range);
    [[nodiscard]] int Count() const { return count_; }

private:
    using Intervals = std::map<int, int>; // the last by the first
    using Lines = std::map<int, Intervals>;

    static bool Overlaps(const Lines &lines, int first_line, int last_line, int first, int last);

    // A range is entered once: under each of its columns when it is taller than wide, else under
    // each of its rows.
    Lines by_column_;
    Lines by_row_;
    int count_ = 0;
};

} // namespace Vantor
