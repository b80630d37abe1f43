// SPDX-License-Identifier: MIT
#include "Ravel/RowPages.h"

#include "Ravel/RowOrder.h"

#include <QtCore/QtGlobal>

#include <algorithm>
#include <utility>

namespace Ravel {
namespace {

// Calls `visit` with each page and the half-open range of places that are on it.
template <class Visit> void ForEachPage(int first, int end, int rows_per_page, Visit &&visit)
{
    while (first < end) {
        const int page = first / rows_per_page + 1;
        const auto next =
            static_cast<int>(std::min(qint64{page} * rows_per_page, static_cast<qint64>(end)));
        visit(page, first, next);
        first = next;
    }
}

} // namespace

// From `first_row` on, all rows have their pages in memory.
void CRowPages::MakeList(int first_row)
{
    if (first_row >= in_order_)
        return;
    others_.insert(others_.begin(), static_cast<size_t>(in_order_ - first_row), kNoPage);
    ForEachPage(first_row, in_order_, rows_per_page_, [&](int page, int begin, int end) {
        std::fill_n(others_.begin() + begin - first_row, end - begin, page);
    });
    in_order_ = first_row;
}

const std::vector<int> &CRowPages::List()
{
    MakeList();
    return others_;
}

void CRowPages::Set(int row, int page)
{
    if (At(row) == page)
        return;
    MakeList();
    others_[static_cast<size_t>(row)] = page;
}

void CRowPages::Insert(int row, int count)
{
    MakeList(row);
    others_.insert(others_.begin() + row - in_order_, static_cast<size_t>(count), kNoPage);
}

void CRowPages::Remove(int row, int count)
{
    if (row + count == Count()) {
        others_.resize(static_cast<size_t>(std::max(0, row - in_order_)));
        in_order_ = std::min(in_order_, row);
        return;
    }
    MakeList(row);
    const auto begin = others_.begin() + row - in_order_;
    others_.erase(begin, begin + count);
}

bool CRowPages::Cut(const CRowOrder &order, int first_place, int rows_per_page,
                    const std::function<void(int)> &drop_foreign)
{
    const int count = std::min(order.Count(), Count());
    const bool is_covered =
        first_place == 0 || (first_place <= in_order_ && rows_per_page == rows_per_page_);
    if (count > 0 && order.IsRange() && order.RowAt(0) == 0 && is_covered)
        return CutInOrder(count, rows_per_page, drop_foreign);
    if (first_place >= count)
        return false;
    MakeList();
    const int *const rows = order.Rows();
    int *const pages = others_.data();
    bool is_changed = false;
    ForEachPage(first_place, count, rows_per_page, [&](int page, int begin, int end) {
        for (int place = begin; place < end; ++place) {
            const int row = rows ? rows[place] : order.RowAt(place);
            const int before = std::exchange(pages[row], page);
            is_changed = is_changed || before != page;
            if (before == kForeignPage)
                drop_foreign(row);
        }
    });
    return is_changed;
}

bool CRowPages::CutInOrder(int count, int rows_per_page,
                           const std::function<void(int)> &drop_foreign)
{
    MakeList(count); // the rows behind keep what they have
    // The first row that two page sizes put on different pages is the first of the second page.
    bool is_changed =
        rows_per_page != rows_per_page_ && in_order_ > std::min(rows_per_page, rows_per_page_);
    ForEachPage(in_order_, count, rows_per_page, [&](int page, int begin, int end) {
        for (int row = begin; row < end; ++row) {
            const int before = others_[static_cast<size_t>(row - in_order_)];
            is_changed = is_changed || before != page;
            if (before == kForeignPage)
                drop_foreign(row);
        }
    });
    others_.erase(others_.begin(), others_.begin() + count - in_order_);
    if (others_.empty())
        others_.shrink_to_fit();
    in_order_ = count;
    rows_per_page_ = rows_per_page;
    return is_changed;
}

} // namespace Ravel
