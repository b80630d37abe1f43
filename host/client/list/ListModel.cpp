// SPDX-License-Identifier: MIT
#include "list/ListModel.h"

#include <QtCore/QHash>

#include <algorithm>
#include <numeric>

namespace Client {
namespace {

QVector<int> OwnOrder(int rows)
{
    QVector<int> order(rows);
    std::iota(order.begin(), order.end(), 0);
    return order;
}

// Sorts `order` by rank in one pass over counted places: stable, and no comparisons.
QVector<int> SortByRank(const QVector<int> &order, const CIncidentList &list,
                        const std::vector<int> &ranks, bool is_ascending)
{
    if (order.isEmpty())
        return order;
    const int highest = *std::max_element(ranks.begin(), ranks.end());
    const auto place_of = [&](int row) {
        const int rank = ranks[static_cast<size_t>(list.BaseRow(row))];
        return static_cast<size_t>(is_ascending ? rank : highest - rank);
    };
    std::vector<int> places(static_cast<size_t>(highest) + 2, 0);
    for (const int row : order)
        ++places[place_of(row) + 1];
    std::partial_sum(places.begin(), places.end(), places.begin());
    QVector<int> sorted(order.size());
    int *const to = sorted.data();
    for (const int row : order)
        to[places[place_of(row)]++] = row;
    return sorted;
}

} // namespace

CListModel::CListModel(QObject *parent)
    : QAbstractTableModel(parent), list_(std::make_shared<CIncidentList>(QVector<IncidentColumn>()))
{}

void CListModel::SetList(IncidentListPtr list)
{
    Q_ASSERT(list);
    beginResetModel();
    list_ = std::move(list);
    order_ = OwnOrder(list_->RowCount());
    shown_ = FilteredOrder();
    endResetModel();
}

void CListModel::SetFilter(const QString &text)
{
    if (text == filter_)
        return;
    beginResetModel();
    filter_ = text;
    shown_ = FilteredOrder();
    endResetModel();
}

int CListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : shown_.size();
}

int CListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : list_->ColumnCount();
}

QVariant CListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return list_->Text(shown_.at(index.row()), index.column());
    if (role == Qt::TextAlignmentRole && list_->IsNumeric(index.column()))
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant CListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return list_->Title(section);
    if (role == Qt::TextAlignmentRole)
        return int((list_->IsNumeric(section) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return {};
}

void CListModel::sort(int column, Qt::SortOrder order)
{
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList old_indexes = persistentIndexList();
    QHash<int, int> row_of; // of the list's rows that someone holds on to
    for (const QModelIndex &index : old_indexes)
        row_of.insert(shown_.at(index.row()), -1);

    if (column < 0 || column >= columnCount())
        order_ = OwnOrder(list_->RowCount());
    else
        order_ = SortByRank(order_, *list_, list_->Ranks(column), order == Qt::AscendingOrder);
    const QVector<int> before = std::exchange(shown_, FilteredOrder());

    for (int row = 0; !row_of.isEmpty() && row < shown_.size(); ++row) {
        const auto held = row_of.find(shown_.at(row));
        if (held != row_of.end())
            *held = row;
    }
    QModelIndexList new_indexes;
    for (const QModelIndex &old_index : old_indexes)
        new_indexes.append(index(row_of.value(before.at(old_index.row())), old_index.column()));
    changePersistentIndexList(old_indexes, new_indexes);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

QVector<int> CListModel::FilteredOrder() const
{
    if (filter_.isEmpty())
        return order_;
    const std::vector<char> is_match = list_->FindText(filter_);
    QVector<int> rows;
    for (const int row : order_) {
        if (is_match[static_cast<size_t>(list_->BaseRow(row))])
            rows.append(row);
    }
    return rows;
}

} // namespace Client
