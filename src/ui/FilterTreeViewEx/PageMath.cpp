// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/PageMath.h"

#include <algorithm>

namespace Vantor {

int PageOfRow(int row, int rows_per_page)
{
    return rows_per_page != 0 ? row / rows_per_page + 1 : 1;
}

int PageCount(int rows, int rows_per_page)
{
    return rows > 0 ? PageOfRow(rows - 1, rows_per_page) : 1;
}

int RowsThatFit(int view_height_px, int header_height_px, int row_height_px)
{
    constexpr double kTouching = 0.001; // of a row
    const int available_px = view_height_px - header_height_px;
    const int height_px = std::max(1, row_height_px);
    const int rows = available_px / height_px;
    const double rest = static_cast<double>(available_px) / height_px - rows;
    return std::max(1, rest < kTouching ? rows - 1 : rows);
}

} // namespace Vantor
