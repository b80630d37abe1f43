// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

namespace Vantor {

/// \brief The 1-based page that the 0-based \a row falls on; 1 when \a rows_per_page is 0.
[[nodiscard]] VANTOR_EXPORT int PageOfRow(int row, int rows_per_page);

/// \brief The page of the last of \a rows rows; 1 without rows.
[[nodiscard]] VANTOR_EXPORT int PageCount(int rows, int rows_per_page);

/// \brief How many whole rows fit into \a view_height_px under a header of \a header_height_px,
/// such that the last one never touches the bottom edge.
///
/// \param row_height_px a height below 1 counts as 1.
/// \return at least 1.
[[nodiscard]] VANTOR_EXPORT int RowsThatFit(int view_height_px, int header_height_px,
                                            int row_height_px);

} // namespace Vantor
