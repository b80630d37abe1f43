// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/FilterProxyModelEx.h"

#include "ui/FilterTreeViewEx/FilterProxyModelEx_p.h"
#include "ui/FilterTreeViewEx/PageMath.h"
#include "ui/FilterTreeViewEx/PageRun.h"

#include <Ravel/PageTag.h>
#include <Ravel/TreeViewModel.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace Vantor {
namespace {

constexpr int kAllColumns = -1; // the key column that means keywords

} // namespace

CFilterProxyModelEx::CFilterProxyModelEx(QObject *parent)
    : CFlatProxy(parent), d_ptr_(std::make_unique<CFilterProxyModelExDataPtr>())
{
    setDynamicSortFilter(false);
    setSortCaseSensitivity(Qt::CaseInsensitive);
}

CFilterProxyModelEx::~CFilterProxyModelEx() = default;

bool CFilterProxyModelEx::IsByWords() const
{
    return filterKeyColumn() == kAllColumns;
}

// The model whose rows can be filtered and sorted in bulk; null for any other source.
Ravel::CTreeViewModel *CFilterProxyModelEx::Model() const
{
    return qobject_cast<Ravel::CTreeViewModel *>(sourceModel());
}

// The proxy whose rows this one shows page by page; null for any other source.
const CFilterProxyModelEx *CFilterProxyModelEx::Below() const
{
    const auto *const below = qobject_cast<const CFilterProxyModelEx *>(sourceModel());
    return below && below->IsFlat() && below->Model() ? below : nullptr;
}

// Each of Qt's two setters filters by itself.
void CFilterProxyModelEx::SetKey(int column, int role)
{
    if (filterKeyColumn() != column)
        QSortFilterProxyModel::setFilterKeyColumn(column);
    if (filterRole() != role)
        setFilterRole(role);
}

void CFilterProxyModelEx::setFilterKeyColumn(int column)
{
    SetKey(column, filterRole());
    invalidate();
}

void CFilterProxyModelEx::invalidate()
{
    Rebuild();
}

void CFilterProxyModelEx::SetPageFilter(QString tag)
{
    SetKey(0, Ravel::kPageTagRole);
    d_ptr_->str_page_filter_ = std::move(tag);
    Rebuild();
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): by value is fixed
void CFilterProxyModelEx::SetKeyWordFilter(QString keyword)
{
    d_ptr_->words_.SetKeyWord(keyword);
    DoFilter();
}

void CFilterProxyModelEx::SetKeyWordsFilter(const std::vector<QStringList> &lists)
{
    d_ptr_->words_.SetLists(lists);
    DoFilter();
}

void CFilterProxyModelEx::DoFilter()
{
    const bool was_by_words = IsByWords();
    SetKey(kAllColumns, Qt::DisplayRole);
    const Ravel::CTreeViewModel *const model = Model();
    const bool is_shown = was_by_words && IsFlat() && model
                          && (d_ptr_->words_.AcceptsAll() ? rowCount() == model->rowCount()
                                                          : d_ptr_->words_.IsApplied(*model));
    if (!is_shown)
        Rebuild();
}

Ravel::CRowOrder CFilterProxyModelEx::MakeOrder()
{
    d_ptr_->cut_ = {};
    if (d_ptr_->all_.Count() != sourceModel()->rowCount())
        OnSourceReset();
    if (const auto sorted = std::exchange(d_ptr_->sorted_, std::nullopt))
        return Ravel::CRowOrder(*sorted);
    Ravel::CRowOrder order = FilteredOrder();
    if (sortColumn() < 0 || (Model() && SortsByRanks()))
        return order;
    std::vector<int> rows(static_cast<size_t>(order.Count()));
    for (size_t place = 0; place < rows.size(); ++place)
        rows[place] = order.RowAt(static_cast<int>(place));
    return Ravel::CRowOrder(Sorted(std::move(rows)));
}

// In the order of all rows, or of the source.
Ravel::CRowOrder CFilterProxyModelEx::FilteredOrder()
{
    if (IsByWords() && d_ptr_->words_.AcceptsAll())
        return d_ptr_->all_;
    if (IsByWords() && Model())
        return d_ptr_->all_.Picked(d_ptr_->words_.Rows(*Model()));
    if (auto page = PageOrder())
        return *page;
    std::vector<int> rows;
    for (int row = 0, count = sourceModel()->rowCount(); row < count; ++row) {
        if (filterAcceptsRow(row, {}))
            rows.push_back(row);
    }
    return Ravel::CRowOrder(std::move(rows), true);
}

// Nothing when the rows have to be asked one by one.
std::optional<Ravel::CRowOrder> CFilterProxyModelEx::PageOrder() const
{
    const CFilterProxyModelEx *const below = Below();
    if (!below || IsByWords())
        return std::nullopt;
    const int page = Ravel::PageOfTag(d_ptr_->str_page_filter_);
    if (below->RowsPerPage() == 0)
        return FindPage(below->Order(), below->Model()->Pages(), page);
    const CPageRun run = CPageRun::At(page, below->RowsPerPage(), below->rowCount());
    return Ravel::CRowOrder::Range(run.begin, run.rows);
}

int CFilterProxyModelEx::CutPages(int rows_per_page)
{
    constexpr int kOnePage = std::numeric_limits<int>::max();
    const int pages = PageCount(rowCount(), rows_per_page);
    const int step = rows_per_page > 0 ? rows_per_page : kOnePage;
    Ravel::CTreeViewModel *const model = Model();
    if (!model) {
        for (int row = 0; row < rowCount(); ++row)
            setData(index(row, 0), Ravel::PageTag(PageOfRow(row, step)), Ravel::kPageTagRole);
        return pages;
    }
    CFilterProxyModelExDataPtr::Cut &cut = d_ptr_->cut_;
    const bool goes_on =
        IsFlat() && cut.rows_per_page == step && cut.version == model->PagesVersion();
    const bool is_changed = model->SetPages(IsFlat() ? Order() : Ravel::CRowOrder(SourceRows()),
                                            goes_on ? std::min(cut.rows, rowCount()) : 0, step);
    cut = {step, rowCount(), model->PagesVersion()};
    if (is_changed)
        model->NotifyPages(); // last: a slot may delete this
    return pages;
}

int CFilterProxyModelEx::RowsPerPage() const
{
    const CFilterProxyModelExDataPtr::Cut &cut = d_ptr_->cut_;
    const bool is_good =
        IsFlat() && Model() && cut.version == Model()->PagesVersion() && cut.rows == rowCount();
    return is_good ? cut.rows_per_page : 0;
}

std::vector<int> CFilterProxyModelEx::SourceRows() const
{
    std::vector<int> rows(static_cast<size_t>(rowCount()));
    for (int row = 0; row < rowCount(); ++row)
        rows[static_cast<size_t>(row)] =
            IsFlat() ? Order().RowAt(row) : mapToSource(index(row, 0)).row();
    return rows;
}

std::vector<int> CFilterProxyModelEx::ShownOf(int first, int last)
{
    std::vector<int> rows;
    for (int row = first; row <= last; ++row) {
        if (filterAcceptsRow(row, {}))
            rows.push_back(row);
    }
    return sortColumn() >= 0 ? Sorted(std::move(rows)) : rows;
}

bool CFilterProxyModelEx::filterAcceptsRow(int source_row, const QModelIndex &source_parent) const
{
    if (!sourceModel())
        return false;
    if (IsByWords() && Model() && !source_parent.isValid())
        return d_ptr_->words_.AcceptsRow(*Model(), source_row);
    const QModelIndex first = sourceModel()->index(source_row, 0, source_parent);
    if (IsByWords())
        return d_ptr_->words_.AcceptsCells(first);
    const QVariant tag = first.data(Ravel::kPageTagRole);
    return !tag.isValid() || tag.toString() == d_ptr_->str_page_filter_;
}

} // namespace Vantor
