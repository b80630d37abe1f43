// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/PageRun.h"

#include <algorithm>

namespace Vantor {

CPageRun CPageRun::At(int page, int rows_per_page, int count)
{
    const qint64 begin = (qint64{page} - 1) * rows_per_page;
    if (page < 1 || begin >= count)
        return {};
    return {static_cast<int>(begin), std::min(rows_per_page, count - static_cast<int>(begin))};
}

std::optional<Ravel::CRowOrder> FindPage(const Ravel::CRowOrder &list,
                                         const std::vector<int> &pages, int page)
{
    std::vector<int> places;
    for (int place = 0, count = list.Count(); place < count; ++place) {
        const auto row = static_cast<size_t>(list.RowAt(place));
        const int tag = row < pages.size() ? pages[row] : 0; // the row is being removed
        if (tag < 0)
            return std::nullopt;
        if (tag == 0 || tag == page)
            places.push_back(place);
    }
    return Ravel::CRowOrder(std::move(places), true);
}

} // namespace Vantor
