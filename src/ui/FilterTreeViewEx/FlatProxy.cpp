// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/FlatProxy.h"

#include "ui/FilterTreeViewEx/FlatProxy_p.h"

#include <QtCore/QSignalBlocker>

#include <algorithm>
#include <utility>

namespace Vantor {
CFlatProxy::CFlatProxy(QObject *parent)
    : QSortFilterProxyModel(parent), d_ptr_(std::make_unique<CFlatProxyPtr>())
{
    // Qt's engine would forget its rows at each of our resets, read all rows of the source later
    // and emit signals for them. Over a source without child rows it has to keep the empty list
    // that the next line makes, and there is no other way to stop it (Qt 5.15).
    disconnect(this, &QAbstractItemModel::modelReset, this, nullptr);
    (void)QSortFilterProxyModel::rowCount();
    connect(this, &QAbstractItemModel::layoutChanged, this, &CFlatProxy::OnOwnLayoutChanged);
}

CFlatProxy::~CFlatProxy() = default;

bool CFlatProxy::IsFlat() const
{
    return d_ptr_->b_flat_;
}

const Ravel::CRowOrder &CFlatProxy::Order() const
{
    return d_ptr_->order_;
}

void CFlatProxy::BeginHold()
{
    if (d_ptr_->holds_++ > 0 || !IsFlat())
        return;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    CFlatProxyPtr::Held held;
    held.indexes = persistentIndexList();
    for (const QModelIndex &index : qAsConst(held.indexes))
        held.rows.append(mapToSource(index));
    d_ptr_->held_ = std::move(held);
}

void CFlatProxy::EndHold()
{
    if (--d_ptr_->holds_ == 0 && d_ptr_->held_)
        ShowOrder(IsFlat() && sourceModel() ? MakeOrder() : Ravel::CRowOrder());
}

void CFlatProxy::ShowOrder(Ravel::CRowOrder order)
{
    const CFlatProxyPtr::Held held = *std::exchange(d_ptr_->held_, std::nullopt);
    if (IsFlat()) {
        d_ptr_->order_ = std::move(order);
        d_ptr_->source_rows_ = sourceModel() ? sourceModel()->rowCount() : 0;
        QModelIndexList indexes;
        for (const QPersistentModelIndex &row : held.rows)
            indexes.append(mapFromSource(row));
        changePersistentIndexList(held.indexes, indexes);
    }
    d_ptr_->b_announced_ = IsFlat();
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

// Qt's own setters and invalidate() say that the layout has changed when the filter or the sort
// role has.
void CFlatProxy::OnOwnLayoutChanged()
{
    if (!std::exchange(d_ptr_->b_announced_, false) && IsFlat())
        Rebuild();
}

void CFlatProxy::Rebuild()
{
    if (!IsFlat()) {
        QSortFilterProxyModel::invalidate();
        (void)rowCount();
        return;
    }
    if (!sourceModel())
        return;
    if (d_ptr_->source_rows_ != sourceModel()->rowCount())
        OnSourceReset(); // asked for by a slot that hears of new rows before us
    BeginHold();
    EndHold();
}

void CFlatProxy::sort(int column, Qt::SortOrder order)
{
    if (!IsFlat()) {
        QSortFilterProxyModel::sort(column, order);
        return;
    }
    const CProxyHold hold(this);
    {
        // It has nothing to sort but keeps what sortColumn() and sortOrder() return.
        const QSignalBlocker silence(this);
        QSortFilterProxyModel::sort(column, order);
    }
    SortAll(column, order);
}

QModelIndex CFlatProxy::index(int row, int column, const QModelIndex &parent) const
{
    if (!IsFlat())
        return QSortFilterProxyModel::index(row, column, parent);
    const bool is_here =
        row >= 0 && row < rowCount(parent) && column >= 0 && column < columnCount(parent);
    return is_here ? createIndex(row, column) : QModelIndex();
}

QModelIndex CFlatProxy::parent(const QModelIndex &child) const
{
    return IsFlat() ? QModelIndex() : QSortFilterProxyModel::parent(child);
}

QModelIndex CFlatProxy::sibling(int row, int column, const QModelIndex &index) const
{
    if (!IsFlat())
        return QSortFilterProxyModel::sibling(row, column, index);
    return index.isValid() ? this->index(row, column) : QModelIndex();
}

int CFlatProxy::rowCount(const QModelIndex &parent) const
{
    if (!IsFlat())
        return QSortFilterProxyModel::rowCount(parent);
    return parent.isValid() ? 0 : d_ptr_->order_.Count();
}

int CFlatProxy::columnCount(const QModelIndex &parent) const
{
    if (!IsFlat())
        return QSortFilterProxyModel::columnCount(parent);
    return parent.isValid() || !sourceModel() ? 0 : sourceModel()->columnCount();
}

bool CFlatProxy::hasChildren(const QModelIndex &parent) const
{
    return IsFlat() ? rowCount(parent) > 0 && columnCount(parent) > 0
                    : QSortFilterProxyModel::hasChildren(parent);
}

QModelIndex CFlatProxy::mapToSource(const QModelIndex &index) const
{
    if (!IsFlat())
        return QSortFilterProxyModel::mapToSource(index);
    return index.isValid() && index.model() == this && index.row() < rowCount() && sourceModel()
               ? sourceModel()->index(d_ptr_->order_.RowAt(index.row()), index.column())
               : QModelIndex();
}

QModelIndex CFlatProxy::mapFromSource(const QModelIndex &index) const
{
    if (!IsFlat())
        return QSortFilterProxyModel::mapFromSource(index);
    const bool is_known =
        index.isValid() && index.model() == sourceModel() && !index.parent().isValid();
    return is_known ? this->index(d_ptr_->order_.PlaceOf(index.row()), index.column())
                    : QModelIndex();
}

QVariant CFlatProxy::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (!IsFlat())
        return QSortFilterProxyModel::headerData(section, orientation, role);
    const bool is_column = orientation == Qt::Horizontal;
    if (!sourceModel() || section < 0 || section >= (is_column ? columnCount() : rowCount()))
        return {};
    return sourceModel()->headerData(is_column ? section : d_ptr_->order_.RowAt(section),
                                     orientation, role);
}

bool CFlatProxy::setHeaderData(int section, Qt::Orientation orientation, const QVariant &value,
                               int role)
{
    if (!IsFlat())
        return QSortFilterProxyModel::setHeaderData(section, orientation, value, role);
    const bool is_column = orientation == Qt::Horizontal;
    if (!sourceModel() || section < 0 || section >= (is_column ? columnCount() : rowCount()))
        return false;
    return sourceModel()->setHeaderData(is_column ? section : d_ptr_->order_.RowAt(section),
                                        orientation, value, role);
}

bool CFlatProxy::insertRows(int row, int count, const QModelIndex &parent)
{
    if (!IsFlat())
        return QSortFilterProxyModel::insertRows(row, count, parent);
    if (!sourceModel() || parent.isValid() || row < 0 || row > rowCount())
        return false;
    return sourceModel()->insertRows(
        row < rowCount() ? d_ptr_->order_.RowAt(row) : sourceModel()->rowCount(), count);
}

bool CFlatProxy::removeRows(int row, int count, const QModelIndex &parent)
{
    if (!IsFlat())
        return QSortFilterProxyModel::removeRows(row, count, parent);
    if (parent.isValid() || row < 0 || count <= 0 || row > rowCount() - count)
        return false;
    std::vector<int> rows;
    for (int place = row; place < row + count; ++place)
        rows.push_back(d_ptr_->order_.RowAt(place));
    std::sort(rows.begin(), rows.end());
    bool is_removed = true;
    while (is_removed && !rows.empty()) { // from the end, a run of neighbours at a time
        const int last = rows.back();
        int first = last + 1;
        for (; !rows.empty() && rows.back() == first - 1; rows.pop_back())
            --first;
        is_removed = sourceModel()->removeRows(first, last - first + 1);
    }
    return is_removed;
}

bool CFlatProxy::insertColumns(int column, int count, const QModelIndex &parent)
{
    if (!IsFlat())
        return QSortFilterProxyModel::insertColumns(column, count, parent);
    return sourceModel() && !parent.isValid() && sourceModel()->insertColumns(column, count);
}

bool CFlatProxy::removeColumns(int column, int count, const QModelIndex &parent)
{
    if (!IsFlat())
        return QSortFilterProxyModel::removeColumns(column, count, parent);
    return sourceModel() && !parent.isValid() && sourceModel()->removeColumns(column, count);
}

CProxyHold::CProxyHold(CFlatProxy *proxy) : proxy_(proxy)
{
    proxy_->BeginHold();
}

CProxyHold::~CProxyHold()
{
    if (proxy_)
        proxy_->EndHold();
}

} // namespace Vantor
