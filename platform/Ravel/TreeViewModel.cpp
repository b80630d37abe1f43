// SPDX-License-Identifier: MIT
#include "Ravel/TreeViewModel.h"

#include "Ravel/PageTag.h"
#include "Ravel/RowFilter.h"
#include "Ravel/TextRanks.h"
#include "Ravel/TreeViewItem.h"
#include "Ravel/TreeViewItem_p.h"

#include <algorithm>

namespace Ravel {
namespace {

constexpr size_t kRowsAhead = 8;

} // namespace

struct CTreeViewModelPtr
{
    CTreeViewModelPtr() { root_.Extras().ptr_pages_ = &vec_pages_; }

    std::vector<std::unique_ptr<CTreeViewItem>> &Rows() { return root_.Extras().vec_children_; }
    const CTextBlock &Texts(int row) const { return root_.Child(row)->texts_; }
    bool TakePlaces(const QList<CTreeViewItem *> &items, int first, bool &has_extras);
    void Renumber(CTreeViewItem &above, int first);
    void AdoptPages(int first, int count);
    void DropForeign(int row);
    bool WritePage(int begin, int end, int page);
    bool WritePage(const int *rows, int count, int page);
    void ForgetRanks() { rank_column_ = -1; }

    CTreeViewItem root_; // above the top-level items; never shown
    QStringList list_labels_;
    std::vector<int> vec_pages_; // of the top-level rows
    bool b_tree_ = false;
    bool b_changing_rows_ = false;
    std::vector<int> vec_ranks_;
    int rank_column_ = -1; // the column that vec_ranks_ holds; -1 when none
};

// One walk that gives each item its place finds null, placed and doubled ones; where it meets one
// it takes the places back.
bool CTreeViewModelPtr::TakePlaces(const QList<CTreeViewItem *> &items, int first, bool &has_extras)
{
    int row = first;
    for (auto item = items.cbegin(); item != items.cend(); ++item) {
        if (*item && !(*item)->ptr_parent_) {
            (*item)->ptr_parent_ = &root_;
            (*item)->row_ = row++;
            has_extras = has_extras || (*item)->ptr_extras_;
            continue;
        }
        std::for_each(items.cbegin(), item, [](CTreeViewItem *taken) {
            taken->ptr_parent_ = nullptr;
            taken->row_ = 0;
        });
        return false;
    }
    return true;
}

void CTreeViewModelPtr::Renumber(CTreeViewItem &above, int first)
{
    auto &rows = above.ptr_extras_->vec_children_;
    for (size_t i = static_cast<size_t>(first); i < rows.size(); ++i)
        rows[i]->row_ = static_cast<int>(i);
}

// What came under the page's role with an item moves to where the model keeps pages.
void CTreeViewModelPtr::AdoptPages(int first, int count)
{
    for (int row = first; row < first + count; ++row) {
        CTreeViewItem &item = *root_.Child(row);
        if (!item.ptr_extras_)
            continue;
        b_tree_ = b_tree_ || item.ChildCount() > 0;
        const QVariant page = item.ptr_extras_->map_others_.take(qMakePair(0, kPageTagRole));
        if (page.isValid())
            item.SetPage(vec_pages_[static_cast<size_t>(row)], page);
    }
}

// Rows that stand side by side, in a loop without a branch: a pass writes a million.
bool CTreeViewModelPtr::WritePage(int begin, int end, int page)
{
    int *const pages = vec_pages_.data();
    int difference = 0;
    int signs = 0;
    for (int row = begin; row < end; ++row) {
        difference |= pages[row] ^ page;
        signs |= pages[row];
    }
    if (difference == 0)
        return false;
    for (int row = begin; signs < 0 && row < end; ++row)
        DropForeign(row);
    std::fill(pages + begin, pages + end, page);
    return true;
}

bool CTreeViewModelPtr::WritePage(const int *rows, int count, int page)
{
    bool is_changed = false;
    for (int i = 0; i < count; ++i) {
        int &slot = vec_pages_[static_cast<size_t>(rows[i])];
        is_changed = is_changed || slot != page;
        DropForeign(rows[i]);
        slot = page;
    }
    return is_changed;
}

void CTreeViewModelPtr::DropForeign(int row)
{
    int &slot = vec_pages_[static_cast<size_t>(row)];
    if (slot == kForeignPage)
        root_.Child(row)->SetPage(slot, {});
}

CTreeViewModel::CTreeViewModel(QObject *parent)
    : QAbstractItemModel(parent), d_ptr_(std::make_unique<CTreeViewModelPtr>())
{}

CTreeViewModel::~CTreeViewModel() = default;

void CTreeViewModel::SetHorizontalHeaderLabels(const QStringList &labels)
{
    beginResetModel();
    d_ptr_->list_labels_ = labels;
    endResetModel();
}

bool CTreeViewModel::InsertTopLevelItems(int row, const QList<CTreeViewItem *> &items,
                                         int rows_per_page)
{
    bool has_extras = false;
    if (d_ptr_->b_changing_rows_ || row < 0 || row > rowCount()
        || !d_ptr_->TakePlaces(items, row, has_extras))
        return false;
    if (items.isEmpty())
        return true;

    d_ptr_->b_changing_rows_ = true;
    beginInsertRows({}, row, row + items.size() - 1);
    auto &rows = d_ptr_->Rows();
    const auto place = rows.size();
    if (rows.empty())
        rows.reserve(static_cast<size_t>(items.size()));
    for (CTreeViewItem *item : items)
        rows.emplace_back(item);
    std::rotate(rows.begin() + row, rows.begin() + static_cast<std::ptrdiff_t>(place), rows.end());
    auto &pages = d_ptr_->vec_pages_;
    pages.insert(pages.begin() + row, static_cast<size_t>(items.size()), kNoPage);
    for (int i = row; rows_per_page > 0 && i < row + items.size(); ++i)
        pages[static_cast<size_t>(i)] = i / rows_per_page + 1;
    d_ptr_->Renumber(d_ptr_->root_, row + items.size());
    if (has_extras)
        d_ptr_->AdoptPages(row, items.size());
    d_ptr_->ForgetRanks();
    endInsertRows();
    d_ptr_->b_changing_rows_ = false;
    return true;
}

CTreeViewItem *CTreeViewModel::ItemFromIndex(const QModelIndex &index) const
{
    return index.isValid()
               ? static_cast<CTreeViewItem *>(index.internalPointer())->Child(index.row())
               : nullptr;
}

bool CTreeViewModel::IsChangingRows() const
{
    return d_ptr_->b_changing_rows_;
}

bool CTreeViewModel::IsTree() const
{
    return d_ptr_->b_tree_;
}

bool CTreeViewModel::Accepts(int row, const CRowFilter &filter) const
{
    const int rows = static_cast<int>(d_ptr_->Rows().size());
    return row >= 0 && row < rows
           && filter.Accepts(d_ptr_->Texts(row), d_ptr_->list_labels_.size());
}

std::vector<bool> CTreeViewModel::AcceptedRows(const CRowFilter &filter) const
{
    const auto &rows = d_ptr_->Rows();
    std::vector<bool> accepted(rows.size());
    const int columns = d_ptr_->list_labels_.size();
    for (size_t row = 0; row < rows.size(); ++row) {
        // Rows lie anywhere in memory: ask for a row's item and then its texts some rows ahead.
        if (row + 2 * kRowsAhead < rows.size()) {
            Prefetch(rows[row + 2 * kRowsAhead].get());
            rows[row + kRowsAhead]->texts_.Prefetch();
        }
        accepted[row] = filter.Accepts(rows[row]->texts_, columns);
    }
    return accepted;
}

const int *CTreeViewModel::Ranks(int column) const
{
    if (column < 0 || column >= d_ptr_->list_labels_.size())
        return nullptr;
    if (column != d_ptr_->rank_column_) {
        const auto &rows = d_ptr_->Rows();
        std::vector<const CTextBlock *> texts(rows.size());
        std::transform(rows.cbegin(), rows.cend(), texts.begin(),
                       [](const auto &item) { return &item->texts_; });
        d_ptr_->vec_ranks_ = TextRanks(texts, column);
        d_ptr_->rank_column_ = column;
    }
    return d_ptr_->vec_ranks_.data();
}

bool CTreeViewModel::IsLess(int left, int right, int column) const
{
    return IsTextLess(d_ptr_->Texts(left), d_ptr_->Texts(right), column);
}

void CTreeViewModel::SetPages(const int *rows, int count, int rows_per_page)
{
    count = std::min(count, rowCount());
    const int step = std::max(1, rows_per_page);
    int first_changed = rowCount();
    int last_changed = -1;
    for (int begin = 0, page = 1; begin < count; begin += step, ++page) {
        const int end = count - begin > step ? begin + step : count;
        if (!(rows ? d_ptr_->WritePage(rows + begin, end - begin, page)
                   : d_ptr_->WritePage(begin, end, page)))
            continue;
        if (rows) {
            const auto range = std::minmax_element(rows + begin, rows + end);
            first_changed = std::min(first_changed, *range.first);
            last_changed = std::max(last_changed, *range.second);
        } else {
            first_changed = std::min(first_changed, begin);
            last_changed = end - 1;
        }
        if (begin > count - step)
            break;
    }
    if (last_changed >= 0)
        Q_EMIT dataChanged(index(first_changed, 0), index(last_changed, 0), {kPageTagRole});
}

const std::vector<int> &CTreeViewModel::Pages() const
{
    return d_ptr_->vec_pages_;
}

// An index carries the item above: top-level ones, asked for by the million, touch no item.
QModelIndex CTreeViewModel::index(int row, int column, const QModelIndex &parent) const
{
    if (row < 0 || column < 0 || column >= d_ptr_->list_labels_.size())
        return {};
    if (!parent.isValid())
        return static_cast<size_t>(row) < d_ptr_->vec_pages_.size()
                   ? createIndex(row, column, &d_ptr_->root_)
                   : QModelIndex();
    if (parent.column() != 0)
        return {};
    CTreeViewItem *const above = ItemFromIndex(parent);
    return row < above->ChildCount() ? createIndex(row, column, above) : QModelIndex();
}

QModelIndex CTreeViewModel::parent(const QModelIndex &child) const
{
    if (!child.isValid())
        return {};
    auto *const above = static_cast<CTreeViewItem *>(child.internalPointer());
    return above->ptr_parent_ ? createIndex(above->row_, 0, above->ptr_parent_) : QModelIndex();
}

int CTreeViewModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return d_ptr_->root_.ChildCount();
    return parent.column() == 0 ? ItemFromIndex(parent)->ChildCount() : 0;
}

int CTreeViewModel::columnCount(const QModelIndex &) const
{
    return d_ptr_->list_labels_.size();
}

QVariant CTreeViewModel::data(const QModelIndex &index, int role) const
{
    return index.isValid() ? ItemFromIndex(index)->Data(index.column(), role) : QVariant();
}

bool CTreeViewModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid())
        return false;
    ItemFromIndex(index)->SetData(index.column(), role, value);
    const bool is_text = role == Qt::DisplayRole || role == Qt::EditRole;
    if (is_text && index.column() == d_ptr_->rank_column_)
        d_ptr_->ForgetRanks();
    Q_EMIT dataChanged(index, index,
                       is_text ? QVector<int>{Qt::DisplayRole, Qt::EditRole} : QVector<int>{role});
    return true;
}

QVariant CTreeViewModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0
        && section < d_ptr_->list_labels_.size())
        return d_ptr_->list_labels_.at(section);
    return QAbstractItemModel::headerData(section, orientation, role);
}

Qt::ItemFlags CTreeViewModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    return data(index, Qt::CheckStateRole).isValid() ? flags | Qt::ItemIsUserCheckable : flags;
}

bool CTreeViewModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (d_ptr_->b_changing_rows_ || row < 0 || count <= 0 || row > rowCount(parent) - count)
        return false;
    CTreeViewItem &above = parent.isValid() ? *ItemFromIndex(parent) : d_ptr_->root_;
    d_ptr_->b_changing_rows_ = true;
    beginRemoveRows(parent, row, row + count - 1);
    auto &rows = above.ptr_extras_->vec_children_;
    rows.erase(rows.begin() + row, rows.begin() + row + count);
    if (!parent.isValid()) {
        auto &pages = d_ptr_->vec_pages_;
        pages.erase(pages.begin() + row, pages.begin() + row + count);
        d_ptr_->ForgetRanks();
        d_ptr_->b_tree_ = d_ptr_->b_tree_ && !rows.empty();
    }
    d_ptr_->Renumber(above, row);
    endRemoveRows();
    d_ptr_->b_changing_rows_ = false;
    return true;
}

} // namespace Ravel
