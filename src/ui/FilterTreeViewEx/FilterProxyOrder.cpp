// SPDX-License-Identifier: MIT
// The order of all rows, shown or not, and how it is sorted.
#include "ui/FilterTreeViewEx/FilterProxyModelEx_p.h"

#include <Ravel/TextRanks.h>
#include <Ravel/TreeViewModel.h>

#include <algorithm>
#include <numeric>

namespace Vantor {

void CFilterProxyModelEx::OnSourceReset()
{
    const int rows = sourceModel() ? sourceModel()->rowCount() : 0;
    d_ptr_->cut_ = {};
    d_ptr_->sorted_.reset();
    d_ptr_->words_.Forget();
    d_ptr_->all_ = Ravel::CRowOrder::Range(0, rows);
    if (IsFlat() && Model() && sortColumn() >= 0 && SortsByRanks())
        SortAll(sortColumn(), sortOrder());
}

void CFilterProxyModelEx::OnSourceRows(int first, int count)
{
    Ravel::CRowOrder &all = d_ptr_->all_;
    const Ravel::CTreeViewModel *const model = Model();
    const bool is_sorted = sortColumn() >= 0 && model && SortsByRanks();
    const bool is_append = count > 0 && !is_sorted && first == all.Count();
    // The rows before have kept their pages.
    if (is_append && model && d_ptr_->cut_.version + 1 == model->PagesVersion())
        d_ptr_->cut_.version = model->PagesVersion();
    else
        d_ptr_->cut_ = {};
    d_ptr_->sorted_.reset();
    if (count < 0) {
        all = all.Without(all.PlacesOf(first, first - count - 1));
        all.Renumber(first - count, count);
        return;
    }
    std::vector<int> rows(static_cast<size_t>(count));
    std::iota(rows.begin(), rows.end(), first);
    all.Renumber(first, count);
    if (is_sorted)
        all.Insert(all.Count(), Sorted(std::move(rows)));
    else
        all.Insert(first, rows);
}

bool CFilterProxyModelEx::SortsByRanks() const
{
    return sortRole() == Qt::DisplayRole && sortCaseSensitivity() == Qt::CaseInsensitive
           && !isSortLocaleAware();
}

void CFilterProxyModelEx::SortAll(int column, Qt::SortOrder order)
{
    const Ravel::CTreeViewModel *const model = Model();
    const auto ranks = model && SortsByRanks() ? model->Ranks(column) : nullptr;
    if (ranks) {
        d_ptr_->all_ = ranks->Sorted(d_ptr_->all_, order == Qt::DescendingOrder);
        return;
    }
    d_ptr_->all_ = Ravel::CRowOrder::Range(0, d_ptr_->all_.Count());
    if (column >= 0)
        d_ptr_->sorted_ = Sorted(SourceRows()); // equal rows keep the order that is shown
}

// Equal rows stay in the order they have.
std::vector<int> CFilterProxyModelEx::Sorted(std::vector<int> rows) const
{
    const CFilterProxyModelEx *const below = SortsByRanks() ? Below() : nullptr;
    const auto ranks = below ? below->Model()->Ranks(sortColumn()) : nullptr;
    const auto is_less = [this, &below, &ranks](int left, int right) {
        return ranks ? ranks->Rank(below->Order().RowAt(left))
                           < ranks->Rank(below->Order().RowAt(right))
                     : lessThan(sourceModel()->index(left, sortColumn()),
                                sourceModel()->index(right, sortColumn()));
    };
    if (sortOrder() == Qt::AscendingOrder)
        std::stable_sort(rows.begin(), rows.end(), is_less);
    else
        std::stable_sort(rows.begin(), rows.end(),
                         [&is_less](int left, int right) { return is_less(right, left); });
    return rows;
}

} // namespace Vantor
