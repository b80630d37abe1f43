// SPDX-License-Identifier: MIT
#include "Ravel/TreeViewModel.h"

#include "Ravel/TreeViewItem.h"
#include "Ravel/TreeViewItem_p.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace Ravel {

struct CTreeViewModelPtr
{
    CTreeViewModelPtr() { root_.d_ptr_->b_root_ = true; }

    CTreeViewItem root_; // above the top-level items; never shown
    QStringList list_labels_;
};

CTreeViewModel::CTreeViewModel(QObject *parent)
    : QAbstractItemModel(parent), d_ptr_(std::make_unique<CTreeViewModelPtr>())
{}

CTreeViewModel::~CTreeViewModel() = default;

bool CTreeViewModel::AreFreeAndDistinct(const QList<CTreeViewItem *> &items)
{
    std::vector<const CTreeViewItem *> sorted(items.cbegin(), items.cend());
    std::sort(sorted.begin(), sorted.end(), std::less<>());
    return std::adjacent_find(sorted.cbegin(), sorted.cend()) == sorted.cend()
           && std::all_of(sorted.cbegin(), sorted.cend(), [](const CTreeViewItem *item) {
                  return item && !item->d_ptr_->ptr_parent_;
              });
}

void CTreeViewModel::SetHorizontalHeaderLabels(const QStringList &labels)
{
    beginResetModel();
    d_ptr_->list_labels_ = labels;
    endResetModel();
}

bool CTreeViewModel::InsertTopLevelItems(int row, const QList<CTreeViewItem *> &items)
{
    if (row < 0 || row > rowCount() || !AreFreeAndDistinct(items))
        return false;
    if (items.isEmpty())
        return true;

    beginInsertRows({}, row, row + items.size() - 1);
    std::vector<std::unique_ptr<CTreeViewItem>> owned(items.cbegin(), items.cend());
    auto &rows = d_ptr_->root_.d_ptr_->vec_children_;
    rows.insert(rows.begin() + row, std::make_move_iterator(owned.begin()),
                std::make_move_iterator(owned.end()));
    for (size_t i = static_cast<size_t>(row); i < rows.size(); ++i) {
        rows[i]->d_ptr_->ptr_parent_ = &d_ptr_->root_;
        rows[i]->d_ptr_->row_ = static_cast<int>(i);
    }
    endInsertRows();
    return true;
}

CTreeViewItem *CTreeViewModel::ItemFromIndex(const QModelIndex &index) const
{
    return index.isValid() ? static_cast<CTreeViewItem *>(index.internalPointer()) : nullptr;
}

QModelIndex CTreeViewModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const CTreeViewItem *const above = parent.isValid() ? ItemFromIndex(parent) : &d_ptr_->root_;
    return createIndex(row, column, above->Child(row));
}

QModelIndex CTreeViewModel::parent(const QModelIndex &child) const
{
    if (!child.isValid())
        return {};
    CTreeViewItem *const above = ItemFromIndex(child)->Parent();
    return above ? createIndex(above->Row(), 0, above) : QModelIndex();
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

bool CTreeViewModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (row < 0 || count <= 0 || row > rowCount(parent) - count)
        return false;
    CTreeViewItem &above = parent.isValid() ? *ItemFromIndex(parent) : d_ptr_->root_;
    beginRemoveRows(parent, row, row + count - 1);
    auto &rows = above.d_ptr_->vec_children_;
    rows.erase(rows.begin() + row, rows.begin() + row + count);
    for (size_t i = static_cast<size_t>(row); i < rows.size(); ++i)
        rows[i]->d_ptr_->row_ = static_cast<int>(i);
    endRemoveRows();
    return true;
}

} // namespace Ravel
