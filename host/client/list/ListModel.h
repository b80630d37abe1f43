// SPDX-License-Identifier: MIT
#pragma once

#include "list/IncidentList.h"

#include <QtCore/QAbstractTableModel>

namespace Client {

/// \brief Shows an incident list, filtered and sorted. The list itself never moves: both work on
/// row numbers, so a million rows cost two integers each.
///
/// Rows that are equal in the sorted column keep the order they had, so sorting by one column and
/// then by another orders by both.
class CListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit CListModel(QObject *parent = nullptr);

    /// \brief Show \a list in its own order, filtered as before. Never null.
    void SetList(IncidentListPtr list);
    /// \brief Show only the rows that hold \a text in some cell; all when it is empty.
    void SetFilter(const QString &text);

    [[nodiscard]] QString Filter() const { return filter_; }
    /// \brief Rows of the list, shown or not.
    [[nodiscard]] int TotalCount() const { return order_.size(); }
    /// \brief What is shown now; stays so whatever happens to the model.
    [[nodiscard]] IncidentRows Rows() const { return {list_, shown_, filter_}; }
    /// \brief The row of the list that \a row shows.
    [[nodiscard]] int ListRow(int row) const { return shown_.at(row); }
    /// \brief The row that shows \a list_row; -1 when it is filtered out.
    [[nodiscard]] int RowOf(int list_row) const { return shown_.indexOf(list_row); }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    /// A \a column outside the list brings back the list's own order.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

private:
    [[nodiscard]] QVector<int> FilteredOrder() const;

    IncidentListPtr list_;
    QString filter_;
    QVector<int> order_; // all rows as sorted
    QVector<int> shown_; // those of them that match; shares order_ when all do
};

} // namespace Client
