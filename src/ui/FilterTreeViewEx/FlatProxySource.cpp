// SPDX-License-Identifier: MIT
// How a flat proxy follows its source.
#include "ui/FilterTreeViewEx/FlatProxy_p.h"

#include <Ravel/TreeViewModel.h>

#include <QtCore/QAbstractListModel>
#include <QtCore/QAbstractTableModel>
#include <QtCore/QSignalBlocker>

#include <algorithm>

namespace Vantor {
namespace {

bool HasChildRows(const QAbstractItemModel &model, int first, int last)
{
    if (const auto *const tree = qobject_cast<const Ravel::CTreeViewModel *>(&model))
        return tree->IsTree();
    if (const auto *const proxy = qobject_cast<const CFlatProxy *>(&model))
        return !proxy->IsFlat();
    if (qobject_cast<const QAbstractTableModel *>(&model)
        || qobject_cast<const QAbstractListModel *>(&model))
        return false;
    for (int row = first; row <= last; ++row) {
        if (model.hasChildren(model.index(row, 0)))
            return true;
    }
    return false;
}

bool HasChildRows(const QAbstractItemModel *model)
{
    return model && HasChildRows(*model, 0, model->rowCount() - 1);
}

} // namespace

void CFlatProxy::setSourceModel(QAbstractItemModel *source)
{
    if (source != sourceModel())
        Attach(source);
}

void CFlatProxy::Attach(QAbstractItemModel *source)
{
    if (!HasChildRows(source)) {
        SetEngine(true, source);
        return;
    }
    SetEngine(true, nullptr); // Qt's engine cannot read the indexes that views have of ours
    SetEngine(false, source);
}

void CFlatProxy::SetEngine(bool is_flat, QAbstractItemModel *source)
{
    for (const QMetaObject::Connection &connection : d_ptr_->vec_connections_)
        disconnect(connection);
    d_ptr_->vec_connections_.clear();
    if (d_ptr_->held_)
        d_ptr_->held_ = CFlatProxyPtr::Held(); // a reset lets go of all indexes
    if (is_flat) {
        beginResetModel();
        {
            const QSignalBlocker silence(this);
            QSortFilterProxyModel::setSourceModel(nullptr);
            (void)QSortFilterProxyModel::rowCount(); // its empty list
        }
        d_ptr_->b_flat_ = true;
        // Past Qt's engine, which has no rows to map here.
        // NOLINTNEXTLINE(bugprone-parent-virtual-call)
        QAbstractProxyModel::setSourceModel(source); // clazy:exclude=skipped-base-method
        ForgetSource();
        endResetModel();
    } else {
        d_ptr_->b_flat_ = false;
        QSortFilterProxyModel::setSourceModel(source);
    }
    if (source) {
        ConnectRows(source);
        ConnectLayout(source);
        ConnectColumns(source);
    }
}

void CFlatProxy::ForgetSource()
{
    OnSourceReset();
    d_ptr_->source_rows_ = sourceModel() ? sourceModel()->rowCount() : 0;
    d_ptr_->order_ = sourceModel() ? MakeOrder() : Ravel::CRowOrder();
}

void CFlatProxy::ConnectRows(QAbstractItemModel *source)
{
    using Model = QAbstractItemModel;
    auto &connections = d_ptr_->vec_connections_;
    connections.push_back(connect(source, &QObject::destroyed, this, [this] { Attach(nullptr); }));
    connections.push_back(connect(source, &Model::rowsInserted, this, &CFlatProxy::OnRowsInserted));
    connections.push_back(
        connect(source, &Model::rowsAboutToBeRemoved, this, &CFlatProxy::OnRowsAboutToBeRemoved));
    connections.push_back(connect(source, &Model::rowsRemoved, this, &CFlatProxy::OnRowsRemoved));
    connections.push_back(
        connect(source, &Model::dataChanged, this, &CFlatProxy::OnSourceDataChanged));
}

void CFlatProxy::ConnectLayout(QAbstractItemModel *source)
{
    using Model = QAbstractItemModel;
    auto &connections = d_ptr_->vec_connections_;
    const auto hold = [this] {
        if (IsFlat())
            BeginHold();
    };
    const auto release = [this] {
        if (!IsFlat())
            return;
        OnSourceReset();
        if (d_ptr_->holds_ == 0)
            BeginHold(); // the source did not say that it would
        EndHold();
    };
    connections.push_back(connect(source, &Model::rowsAboutToBeMoved, this, hold));
    connections.push_back(connect(source, &Model::rowsMoved, this, release));
    connections.push_back(connect(source, &Model::layoutAboutToBeChanged, this, hold));
    connections.push_back(connect(source, &Model::layoutChanged, this, release));
    connections.push_back(connect(source, &Model::modelAboutToBeReset, this, [this] {
        if (IsFlat())
            beginResetModel();
    }));
    connections.push_back(connect(source, &Model::modelReset, this, [this] {
        const bool is_flat = !HasChildRows(sourceModel());
        if (IsFlat()) {
            ForgetSource();
            endResetModel();
        }
        if (is_flat != IsFlat())
            Attach(sourceModel());
    }));
}

// Qt's engine does all of this by itself.
void CFlatProxy::ConnectColumns(QAbstractItemModel *source)
{
    using Model = QAbstractItemModel;
    auto &connections = d_ptr_->vec_connections_;
    const auto is_ours = [this](const QModelIndex &parent) {
        return IsFlat() && !parent.isValid();
    };
    const auto forward = [&](auto signal, auto &&step) {
        connections.push_back(connect(
            source, signal, this, [is_ours, step](const QModelIndex &parent, int first, int last) {
                if (is_ours(parent))
                    step(first, last);
            }));
    };
    forward(&Model::columnsAboutToBeInserted,
            [this](int first, int last) { beginInsertColumns({}, first, last); });
    forward(&Model::columnsInserted, [this](int, int) { endInsertColumns(); });
    forward(&Model::columnsAboutToBeRemoved,
            [this](int first, int last) { beginRemoveColumns({}, first, last); });
    forward(&Model::columnsRemoved, [this](int, int) { endRemoveColumns(); });
    connections.push_back(connect(source, &Model::columnsAboutToBeMoved, this,
                                  [this, is_ours](const QModelIndex &parent, int first, int last,
                                                  const QModelIndex &, int to) {
                                      if (is_ours(parent))
                                          beginMoveColumns({}, first, last, {}, to);
                                  }));
    connections.push_back(
        connect(source, &Model::columnsMoved, this, [this, is_ours](const QModelIndex &parent) {
            if (is_ours(parent))
                endMoveColumns();
        }));
    connections.push_back(connect(source, &Model::headerDataChanged, this,
                                  [this](Qt::Orientation orientation, int first, int last) {
                                      const bool is_columns = orientation == Qt::Horizontal;
                                      if (IsFlat() && (is_columns || rowCount() > 0))
                                          Q_EMIT headerDataChanged(
                                              orientation, is_columns ? first : 0,
                                              is_columns ? last : rowCount() - 1);
                                  }));
}

// Whether the source had `change` rows less when we last looked.
bool CFlatProxy::IsInStep(int change) const
{
    return d_ptr_->source_rows_ + change == sourceModel()->rowCount();
}

void CFlatProxy::OnRowsInserted(const QModelIndex &parent, int first, int last)
{
    if (!IsFlat())
        return;
    if (parent.isValid() || HasChildRows(*sourceModel(), first, last)) {
        Attach(sourceModel());
        return;
    }
    const int count = last - first + 1;
    if (!IsInStep(count)) {
        OnSourceReset();
        Rebuild();
        return;
    }
    d_ptr_->source_rows_ += count;
    d_ptr_->order_.Renumber(first, count);
    OnSourceRows(first, count);
    if (d_ptr_->holds_ > 0)
        return;
    const std::vector<int> rows = ShownOf(first, last);
    if (rows.empty())
        return;
    // In a sorted list they are a sorted run at the end.
    const int place = sortColumn() >= 0 ? rowCount() : d_ptr_->order_.LowerPlace(first);
    beginInsertRows({}, place, place + static_cast<int>(rows.size()) - 1);
    d_ptr_->order_.Insert(place, rows);
    endInsertRows();
    if (dynamicSortFilter() && sortColumn() >= 0)
        sort(sortColumn(), sortOrder());
}

// The rows are still there, so that views can ask for them. Slots may change the list meanwhile.
void CFlatProxy::OnRowsAboutToBeRemoved(const QModelIndex &parent, int first, int last)
{
    constexpr int kMostRuns = 128;
    if (!IsFlat() || parent.isValid() || d_ptr_->holds_ > 0)
        return;
    const QPointer<CFlatProxy> self(this);
    for (int run = 0; self; ++run) {
        const std::vector<int> places = d_ptr_->order_.PlacesOf(first, last);
        if (places.empty())
            return;
        if (run == kMostRuns) { // each run takes time by the length of the list
            BeginHold();
            --d_ptr_->holds_;
            ShowOrder(d_ptr_->order_.Without(places));
            return;
        }
        auto begin = places.cend() - 1;
        while (begin != places.cbegin() && *(begin - 1) == *begin - 1)
            --begin;
        beginRemoveRows({}, *begin, places.back());
        d_ptr_->order_.Erase(*begin, places.back() - *begin + 1);
        endRemoveRows();
    }
}

void CFlatProxy::OnRowsRemoved(const QModelIndex &parent, int first, int last)
{
    if (!IsFlat()) {
        if (!HasChildRows(sourceModel()))
            Attach(sourceModel());
        return;
    }
    const int count = last - first + 1;
    if (parent.isValid())
        return;
    if (!IsInStep(-count)) {
        OnSourceReset();
        Rebuild();
        return;
    }
    d_ptr_->source_rows_ -= count;
    d_ptr_->order_.Renumber(last + 1, -count);
    OnSourceRows(first, -count);
}

// A change moves no row unless the filter is dynamic. For a long range, all rows are reported:
// views repaint only visible rows.
void CFlatProxy::OnSourceDataChanged(const QModelIndex &top_left, const QModelIndex &bottom_right,
                                     const QVector<int> &roles)
{
    constexpr int kFewRows = 64;
    if (!IsFlat() || !top_left.isValid() || !bottom_right.isValid() || top_left.parent().isValid())
        return;
    int first = 0;
    int last = rowCount() - 1;
    if (bottom_right.row() - top_left.row() < kFewRows) {
        int lowest = last + 1;
        int highest = -1;
        for (int row = top_left.row(); row <= bottom_right.row(); ++row) {
            const int place = d_ptr_->order_.PlaceOf(row);
            lowest = place >= 0 ? std::min(lowest, place) : lowest;
            highest = std::max(highest, place);
        }
        first = lowest;
        last = highest;
    }
    const QPointer<CFlatProxy> self(this);
    if (first <= last)
        Q_EMIT dataChanged(index(first, top_left.column()), index(last, bottom_right.column()),
                           roles);
    if (self && dynamicSortFilter())
        Rebuild();
}

} // namespace Vantor
