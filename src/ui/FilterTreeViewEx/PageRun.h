// SPDX-License-Identifier: MIT
#pragma once

#include <Ravel/RowOrder.h>

#include <optional>
#include <vector>

namespace Vantor {

/// \brief Neighbouring rows of a list that make up one page.
struct CPageRun
{
    int begin = 0;
    int rows = 0;

    /// \brief The rows of the 1-based \a page of a list of \a count rows that is cut without a gap;
    /// empty for a page that it does not have.
    [[nodiscard]] static CPageRun At(int page, int rows_per_page, int count);
};

/// \brief The places of \a list whose row has the page \a page, or no page, in \a pages.
/// \return nothing when a row has something else for a page (below 0): ask row by row then.
[[nodiscard]] std::optional<Ravel::CRowOrder> FindPage(const Ravel::CRowOrder &list,
                                                       const std::vector<int> &pages, int page);

} // namespace Vantor
