// SPDX-License-Identifier: MIT
#include "Ravel/TreeViewModel.h"

#include "Ravel/PageTag.h"
#include "Ravel/RankKeeper.h"
#include "Ravel/RowFilter.h"
#include "Ravel/RowOrder.h"
#include "Ravel/RowSet.h"
#include "Ravel/TextRanks.h"
#include "Ravel/TreeViewItem.h"
#include "Ravel/TreeViewModel_p.h"

#include <algorithm>
#include <mutex>

namespace Ravel {

CTreeViewModel::CTreeViewModel(QObject *parent)
    : QAbstractItemModel(parent), d_ptr_(std::make_unique<CTreeViewModelPtr>())
{
    d_ptr_->ptr_ranks_ = new CRankKeeper(
        [this] {
            return CRankKeeper::Source{TextReader(), columnCount()};
        },
        this);
}

CTreeViewModel::~CTreeViewModel() = default;

void CTreeViewModel::SetHorizontalHeaderLabels(const QStringList &labels)
{
    beginResetModel();
    {
        const auto lock = d_ptr_->ForChange();
        d_ptr_->list_labels_ = labels;
    }
    d_ptr_->ForgetLetters(0);
    d_ptr_->ptr_ranks_->Forget();
    endResetModel();
}

bool CTreeViewModel::InsertTopLevelItems(int row, const QList<CTreeViewItem *> &items)
{
    bool has_extras = false;
    if (d_ptr_->b_changing_rows_ || row < 0 || row > rowCount()
        || !d_ptr_->TakePlaces(items, row, has_extras))
        return false;
    if (items.isEmpty())
        return true;

    d_ptr_->b_changing_rows_ = true;
    beginInsertRows({}, row, row + items.size() - 1);
    {
        const auto lock = d_ptr_->ForChange();
        auto &rows = d_ptr_->Rows();
        const auto place = rows.size();
        if (rows.empty())
            rows.reserve(static_cast<size_t>(items.size()));
        for (CTreeViewItem *item : items)
            rows.emplace_back(item);
        std::rotate(rows.begin() + row, rows.begin() + static_cast<std::ptrdiff_t>(place),
                    rows.end());
    }
    d_ptr_->pages_.Insert(row, items.size());
    d_ptr_->ForgetLetters(row);
    d_ptr_->Renumber(d_ptr_->root_, row + items.size());
    if (has_extras)
        d_ptr_->AdoptPages(row, items.size());
    ++d_ptr_->pages_version_;
    d_ptr_->ptr_ranks_->Forget();
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

CRowSet CTreeViewModel::AcceptedRows(const CRowFilter &filter, const CRowSet *within) const
{
    return d_ptr_->Accepted(filter, within);
}

std::shared_ptr<const CTextRanks> CTreeViewModel::Ranks(int column) const
{
    if (column < 0 || column >= d_ptr_->list_labels_.size())
        return nullptr;
    auto ranks = d_ptr_->ptr_ranks_->Known(column);
    if (!ranks) {
        CRankBuilder builder(column);
        for (const auto &row : d_ptr_->Rows())
            builder.Add(row->texts_);
        ranks = builder.Take();
        d_ptr_->ptr_ranks_->Keep(column, ranks);
    }
    return ranks;
}

bool CTreeViewModel::HasRanks(int column) const
{
    return d_ptr_->ptr_ranks_->Known(column) != nullptr;
}

void CTreeViewModel::PrepareRanks()
{
    d_ptr_->ptr_ranks_->Prepare();
}

CTextReader CTreeViewModel::TextReader() const
{
    return CTextReader(d_ptr_->ptr_access_);
}

quint64 CTreeViewModel::TextsVersion() const
{
    return d_ptr_->ptr_access_->version;
}

bool CTreeViewModel::SetPages(const CRowOrder &order, int first_place, int rows_per_page)
{
    const bool is_changed = d_ptr_->pages_.Cut(order, first_place, std::max(1, rows_per_page),
                                               [this](int row) { d_ptr_->DropForeign(row); });
    d_ptr_->pages_version_ += is_changed ? 1 : 0;
    return is_changed;
}

void CTreeViewModel::NotifyPages()
{
    if (rowCount() > 0 && columnCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0), {kPageTagRole});
}

quint64 CTreeViewModel::PagesVersion() const
{
    return d_ptr_->pages_version_;
}

const std::vector<int> &CTreeViewModel::Pages() const
{
    return d_ptr_->pages_.List();
}

// An index carries the item above: top-level ones, asked for by the million, touch no item.
QModelIndex CTreeViewModel::index(int row, int column, const QModelIndex &parent) const
{
    if (row < 0 || column < 0 || column >= d_ptr_->list_labels_.size())
        return {};
    if (!parent.isValid())
        return row < d_ptr_->pages_.Count() ? createIndex(row, column, &d_ptr_->root_)
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
    const bool is_text = role == Qt::DisplayRole || role == Qt::EditRole;
    {
        const auto lock = is_text ? d_ptr_->ForChange() : std::unique_lock<std::mutex>();
        ItemFromIndex(index)->SetData(index.column(), role, value);
    }
    if (is_text) {
        d_ptr_->UpdateLetters(*ItemFromIndex(index));
        d_ptr_->ptr_ranks_->Forget();
    }
    d_ptr_->pages_version_ += role == kPageTagRole ? 1 : 0;
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
    {
        const auto lock = d_ptr_->ForChange();
        rows.erase(rows.begin() + row, rows.begin() + row + count);
    }
    if (!parent.isValid()) {
        d_ptr_->pages_.Remove(row, count);
        d_ptr_->ForgetLetters(row);
        d_ptr_->b_tree_ = d_ptr_->b_tree_ && !rows.empty();
    }
    d_ptr_->Renumber(above, row);
    ++d_ptr_->pages_version_;
    d_ptr_->ptr_ranks_->Forget();
    endRemoveRows();
    d_ptr_->b_changing_rows_ = false;
    return true;
}

} // namespace Ravel
