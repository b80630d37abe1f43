// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/FilterProxyModelEx.h"

#include <Ravel/PageTag.h>
#include <Ravel/RowFilter.h>
#include <Ravel/TreeViewModel.h>

#include <algorithm>

namespace Vantor {
namespace {

constexpr int kListsMode = 0;
constexpr int kKeywordMode = 1;
constexpr int kAllColumns = -1; // the key column that stands for keywords

} // namespace

struct CFilterProxyModelExDataPtr
{
    int filter_mode_ = kListsMode;
    QString str_keyword_;
    QString str_page_filter_;
    std::vector<QStringList> vec_keywords_;

    int page_ = 0;             // that str_page_filter_ stands for; 0 when for none
    Ravel::CRowFilter filter_; // the keyword or the lists, prepared

    // What stands below, where it is known to be quick: the model, or a proxy of this class on it.
    Ravel::CTreeViewModel *ptr_model_ = nullptr;
    CFilterProxyModelEx *ptr_proxy_ = nullptr;
    const CFilterProxyModelExDataPtr *ptr_below_ = nullptr; // of ptr_proxy_

    // Good until rows come, go or move, here or below.
    bool b_order_read_ = false;
    std::vector<int> vec_order_; // the source's rows as shown here; empty when they are the same
    const std::vector<int> *ptr_pages_ = nullptr; // the model's
    size_t order_pages_ = 0;         // how many there were: what has others now is on the move
    std::vector<bool> vec_accepted_; // by the filter, while it is being applied
    const int *ptr_ranks_ = nullptr; // of the model's rows, while they are being sorted
    // The rows of the page, while a flip asks for a million of them: from the beginning of
    // SetPageFilter() to the first signal, so nothing can change them.
    bool b_page_found_ = false;
    int page_begin_ = 0;
    uint page_rows_ = 0;
    bool b_tags_changed_ = true; // since rows were last compared with the page
};

// Lets rows be sorted by numbers for as long as it lives.
class CFilterProxyModelEx::CRanksInUse
{
public:
    CRanksInUse(const CFilterProxyModelEx &proxy, int column) : data_(*proxy.d_ptr_)
    {
        if (data_.ptr_model_ && !data_.ptr_model_->IsTree() && proxy.SortsTexts())
            data_.ptr_ranks_ = data_.ptr_model_->Ranks(column);
    }
    ~CRanksInUse() { data_.ptr_ranks_ = nullptr; }

    CRanksInUse(const CRanksInUse &) = delete;
    CRanksInUse &operator=(const CRanksInUse &) = delete;

private:
    CFilterProxyModelExDataPtr &data_;
};

CFilterProxyModelEx::CFilterProxyModelEx(QObject *parent)
    : QSortFilterProxyModel(parent), d_ptr_(std::make_unique<CFilterProxyModelExDataPtr>())
{
    setDynamicSortFilter(false);
    setSortCaseSensitivity(Qt::CaseInsensitive);
    // Before and after: somebody may ask for the order in between.
    const auto forget = &CFilterProxyModelEx::ForgetOrder;
    connect(this, &QAbstractItemModel::rowsAboutToBeInserted, this, forget);
    connect(this, &QAbstractItemModel::rowsInserted, this, forget);
    connect(this, &QAbstractItemModel::rowsAboutToBeRemoved, this, forget);
    connect(this, &QAbstractItemModel::rowsRemoved, this, forget);
    connect(this, &QAbstractItemModel::layoutAboutToBeChanged, this, forget);
    connect(this, &QAbstractItemModel::layoutChanged, this, forget);
    connect(this, &QAbstractItemModel::modelAboutToBeReset, this, forget);
    connect(this, &QAbstractItemModel::modelReset, this, forget);
}

CFilterProxyModelEx::~CFilterProxyModelEx() = default;

void CFilterProxyModelEx::setSourceModel(QAbstractItemModel *source)
{
    if (sourceModel())
        disconnect(sourceModel(), nullptr, this, nullptr);
    OnSourceRowsChange();
    d_ptr_->ptr_pages_ = nullptr;
    d_ptr_->ptr_model_ = qobject_cast<Ravel::CTreeViewModel *>(source);
    d_ptr_->ptr_proxy_ = qobject_cast<CFilterProxyModelEx *>(source);
    d_ptr_->ptr_below_ = d_ptr_->ptr_proxy_ ? d_ptr_->ptr_proxy_->d_ptr_.get() : nullptr;
    if (source) {
        // Rows that the filter rejects come and go unseen, and renumber the others.
        const auto forget = &CFilterProxyModelEx::OnSourceRowsChange;
        connect(source, &QAbstractItemModel::rowsAboutToBeInserted, this, forget);
        connect(source, &QAbstractItemModel::rowsInserted, this, forget);
        connect(source, &QAbstractItemModel::rowsAboutToBeRemoved, this, forget);
        connect(source, &QAbstractItemModel::rowsRemoved, this, forget);
    }
    QSortFilterProxyModel::setSourceModel(source);
    if (!source)
        return;
    connect(source, &QObject::destroyed, this, &CFilterProxyModelEx::OnSourceDestroyed);
    // Qt looks at every changed row by itself, which takes longer than writing a million pages.
    disconnect(source, &QAbstractItemModel::dataChanged, this, nullptr);
    connect(source, &QAbstractItemModel::dataChanged, this,
            &CFilterProxyModelEx::OnSourceDataChanged);
}

// With dynamic sorting and filtering off a change moves no row. A long range is told of as all
// rows, which costs a view nothing.
void CFilterProxyModelEx::OnSourceDataChanged(const QModelIndex &top_left,
                                              const QModelIndex &bottom_right,
                                              const QVector<int> &roles)
{
    constexpr int kFewRows = 64;
    d_ptr_->b_tags_changed_ = true;
    if (!top_left.isValid() || !bottom_right.isValid())
        return;
    if (dynamicSortFilter())
        invalidate();
    const QModelIndex parent = mapFromSource(top_left.parent());
    if (top_left.parent().isValid() && !parent.isValid())
        return;
    int first = 0;
    int last = rowCount(parent) - 1;
    if (bottom_right.row() - top_left.row() < kFewRows) {
        int lowest = last + 1;
        int highest = -1;
        for (int row = top_left.row(); row <= bottom_right.row(); ++row) {
            const QModelIndex shown = mapFromSource(top_left.sibling(row, top_left.column()));
            lowest = shown.isValid() ? std::min(lowest, shown.row()) : lowest;
            highest = std::max(highest, shown.row());
        }
        first = lowest;
        last = highest;
    }
    if (first <= last)
        Q_EMIT dataChanged(index(first, top_left.column(), parent),
                           index(last, bottom_right.column(), parent), roles);
}

// Qt lets go of a model that is deleted without telling whoever shows its rows.
void CFilterProxyModelEx::OnSourceDestroyed()
{
    d_ptr_->ptr_pages_ = nullptr;
    beginResetModel();
    d_ptr_->ptr_model_ = nullptr;
    d_ptr_->ptr_proxy_ = nullptr;
    d_ptr_->ptr_below_ = nullptr;
    endResetModel();
}

void CFilterProxyModelEx::ForgetOrder()
{
    d_ptr_->b_page_found_ = false;
    d_ptr_->b_order_read_ = false;
}

// Slots may change rows while the list is being made anew from what was prepared.
void CFilterProxyModelEx::OnSourceRowsChange()
{
    ForgetOrder();
    d_ptr_->vec_accepted_.clear();
    d_ptr_->ptr_ranks_ = nullptr;
}

// Each of the two setters filters anew by itself.
void CFilterProxyModelEx::SetKey(int column, int role)
{
    if (filterKeyColumn() != column)
        setFilterKeyColumn(column);
    if (filterRole() != role)
        setFilterRole(role);
}

void CFilterProxyModelEx::SetPageFilter(QString tag)
{
    SetKey(0, Ravel::kPageTagRole);
    // Rows that came since were compared when they came.
    if (tag == d_ptr_->str_page_filter_ && !d_ptr_->b_tags_changed_)
        return;
    d_ptr_->page_ = Ravel::PageOfTag(tag);
    d_ptr_->str_page_filter_ = std::move(tag);
    d_ptr_->b_tags_changed_ = false;
    FindPage();
    invalidateFilter(); // a page is one run of rows
    d_ptr_->b_page_found_ = false;
}

// Looks for the page's rows in one quick walk; what is not one run is left to be asked row by row.
void CFilterProxyModelEx::FindPage()
{
    constexpr int kBlock = 1024; // rows that are skipped at once
    const CFilterProxyModelExDataPtr *const below = d_ptr_->ptr_below_;
    if (!below || !below->ptr_model_ || below->ptr_model_->IsTree()
        || below->ptr_model_->IsChangingRows())
        return;
    const int *const rows = d_ptr_->ptr_proxy_->SourceRows();
    const int *const pages = below->ptr_model_->Pages().data();
    const int count = d_ptr_->ptr_proxy_->rowCount();
    const int page = d_ptr_->page_;
    const auto is_on_page = [page](int tag) { return tag == page || tag <= 0; };
    int begin = 0;
    int end = 0;
    for (int block = 0; block < count; block += kBlock) {
        const int block_end = std::min(block + kBlock, count);
        int found = rows ? 1 : 0;
        for (int row = block; !rows && row < block_end; ++row)
            found += is_on_page(pages[row]) ? 1 : 0;
        for (int row = block; found > 0 && row < block_end; ++row) {
            const int tag = pages[rows ? rows[row] : row];
            if (!is_on_page(tag))
                continue;
            if (tag < 0 || (end > 0 && end != row))
                return;
            begin = end > 0 ? begin : row;
            end = row + 1;
        }
    }
    d_ptr_->page_begin_ = begin;
    d_ptr_->page_rows_ = static_cast<uint>(end - begin);
    d_ptr_->b_page_found_ = true;
}

void CFilterProxyModelEx::SetKeyWordFilter(QString keyword)
{
    SetKey(kAllColumns, Qt::DisplayRole);
    d_ptr_->filter_mode_ = kKeywordMode;
    d_ptr_->filter_ = Ravel::CRowFilter::WithText(keyword);
    d_ptr_->str_keyword_ = std::move(keyword);
    Refilter();
}

void CFilterProxyModelEx::SetKeyWordsFilter(const std::vector<QStringList> &lists)
{
    SetKey(kAllColumns, Qt::DisplayRole);
    d_ptr_->filter_mode_ = kListsMode;
    d_ptr_->filter_ = Ravel::CRowFilter::WithLists(lists);
    d_ptr_->vec_keywords_ = lists;
    Refilter();
}

void CFilterProxyModelEx::DoFilter()
{
    SetKey(kAllColumns, Qt::DisplayRole);
    d_ptr_->filter_ = d_ptr_->filter_mode_ == kKeywordMode
                          ? Ravel::CRowFilter::WithText(d_ptr_->str_keyword_)
                          : Ravel::CRowFilter::WithLists(d_ptr_->vec_keywords_);
    Refilter();
}

// invalidateFilter() takes time by the square of the runs of rows that come and go; invalidate()
// makes the list anew instead, which is worth it only when the rows are others.
void CFilterProxyModelEx::Refilter()
{
    const Ravel::CTreeViewModel *const model = d_ptr_->ptr_model_;
    const bool is_all = d_ptr_->filter_.AcceptsAll();
    if (model && model->IsChangingRows()) {
        QMetaObject::invokeMethod(this, &CFilterProxyModelEx::DoFilter, Qt::QueuedConnection);
        return;
    }
    std::vector<bool> accepted;
    if (model && !model->IsTree() && is_all && rowCount() == model->rowCount())
        return;
    if (model && !is_all) {
        accepted = model->AcceptedRows(d_ptr_->filter_);
        if (!model->IsTree() && IsShown(accepted))
            return;
    }
    const CRanksInUse ranks(*this, sortColumn());
    if (model && !model->IsTree())
        d_ptr_->vec_accepted_ = std::move(accepted);
    invalidate();
    (void)rowCount(); // the list is made here, while what makes it quick is at hand
    d_ptr_->vec_accepted_.clear();
}

bool CFilterProxyModelEx::IsShown(const std::vector<bool> &accepted) const
{
    const auto count = std::count(accepted.cbegin(), accepted.cend(), true);
    if (count != rowCount())
        return false;
    const int *const rows = SourceRows();
    return !rows || std::all_of(rows, rows + count, [&accepted](int row) {
        return accepted[static_cast<size_t>(row)];
    });
}

void CFilterProxyModelEx::sort(int column, Qt::SortOrder order)
{
    const CRanksInUse ranks(*this, column);
    QSortFilterProxyModel::sort(column, order);
}

bool CFilterProxyModelEx::SortsTexts() const
{
    return sortRole() == Qt::DisplayRole && sortCaseSensitivity() == Qt::CaseInsensitive
           && !isSortLocaleAware();
}

bool CFilterProxyModelEx::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    if (const int *const ranks = d_ptr_->ptr_ranks_)
        return ranks[left.row()] < ranks[right.row()];
    return d_ptr_->ptr_model_ && !left.parent().isValid() && SortsTexts()
               ? d_ptr_->ptr_model_->IsLess(left.row(), right.row(), left.column())
               : QSortFilterProxyModel::lessThan(left, right);
}

bool CFilterProxyModelEx::filterAcceptsRow(int source_row, const QModelIndex &source_parent) const
{
    const CFilterProxyModelExDataPtr &data = *d_ptr_;
    if (data.b_page_found_)
        return static_cast<uint>(source_row - data.page_begin_) < data.page_rows_;
    if (!data.vec_accepted_.empty())
        return data.vec_accepted_[static_cast<size_t>(source_row)];
    return Accepts(source_row, source_parent);
}

bool CFilterProxyModelEx::Accepts(int row, const QModelIndex &parent) const
{
    return filterKeyColumn() == kAllColumns && sourceModel() ? AcceptsWords(row, parent)
                                                             : AcceptsPage(row, parent);
}

bool CFilterProxyModelEx::AcceptsPage(int row, const QModelIndex &parent) const
{
    const CFilterProxyModelExDataPtr *const below = d_ptr_->ptr_below_;
    if (below && below->ptr_model_ && !parent.isValid()) {
        (void)d_ptr_->ptr_proxy_->SourceRows();
        const auto shown = static_cast<size_t>(row);
        const size_t at = shown < below->vec_order_.size()
                              ? static_cast<size_t>(below->vec_order_[shown])
                              : shown;
        // Rows on the move: the proxy below may still know one that is gone.
        const int page = at < below->ptr_pages_->size() ? (*below->ptr_pages_)[at] : 0;
        if (page >= 0)
            return page == 0 || page == d_ptr_->page_;
    }
    return AcceptsTag(row, parent);
}

bool CFilterProxyModelEx::AcceptsWords(int row, const QModelIndex &parent) const
{
    if (d_ptr_->ptr_model_ && !parent.isValid())
        return d_ptr_->filter_.AcceptsAll() || d_ptr_->ptr_model_->Accepts(row, d_ptr_->filter_);
    return AcceptsText(sourceModel()->index(row, 0, parent));
}

// A row of any other model, cell by cell.
bool CFilterProxyModelEx::AcceptsText(const QModelIndex &first) const
{
    const auto text_of = [&first](int column) {
        return first.sibling(first.row(), column).data().toString();
    };
    if (d_ptr_->filter_mode_ == kKeywordMode) {
        const QString &keyword = d_ptr_->str_keyword_;
        bool is_accepted = keyword.isEmpty();
        const int columns = sourceModel()->columnCount(first.parent());
        for (int column = 0; column < columns && !is_accepted; ++column)
            is_accepted = text_of(column).contains(keyword);
        return is_accepted;
    }
    int column = 0;
    return std::all_of(
        d_ptr_->vec_keywords_.cbegin(), d_ptr_->vec_keywords_.cend(), [&](const QStringList &list) {
            const QString text = text_of(column);
            if (column++ > 0)
                return list.contains(text);
            return list.isEmpty() || (text >= list.constFirst() && text <= list.constLast());
        });
}

bool CFilterProxyModelEx::AcceptsTag(int row, const QModelIndex &parent) const
{
    if (!sourceModel())
        return false;
    const QVariant tag = sourceModel()->index(row, 0, parent).data(Ravel::kPageTagRole);
    return !tag.isValid() || tag.toString() == d_ptr_->str_page_filter_;
}

const int *CFilterProxyModelEx::SourceRows() const
{
    const bool is_good =
        d_ptr_->b_order_read_
        && (!d_ptr_->ptr_pages_ || d_ptr_->ptr_pages_->size() == d_ptr_->order_pages_);
    if (!is_good)
        ReadOrder();
    return d_ptr_->vec_order_.empty() ? nullptr : d_ptr_->vec_order_.data();
}

// Qt keeps the order to itself, so it is asked row by row, once.
void CFilterProxyModelEx::ReadOrder() const
{
    const int rows = rowCount();
    d_ptr_->vec_order_.clear();
    if (sourceModel() && (sortColumn() >= 0 || rows != sourceModel()->rowCount())) {
        d_ptr_->vec_order_.resize(static_cast<size_t>(rows));
        for (int row = 0; row < rows; ++row)
            d_ptr_->vec_order_[static_cast<size_t>(row)] = mapToSource(index(row, 0)).row();
    }
    d_ptr_->ptr_pages_ = d_ptr_->ptr_model_ ? &d_ptr_->ptr_model_->Pages() : nullptr;
    d_ptr_->order_pages_ = d_ptr_->ptr_pages_ ? d_ptr_->ptr_pages_->size() : 0;
    d_ptr_->b_order_read_ = true;
}

} // namespace Vantor
