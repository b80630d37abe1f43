// SPDX-License-Identifier: MIT
#pragma once

#include "list/IncidentList.h"
#include "list/TypeColumns.h"

#include <Ravel/TreeViewModel.h>

namespace Ravel {

class CTreeViewItem;

} // namespace Ravel

namespace Client {

/// \brief An incident list as the rows of a list widget, in the list's order.
///
/// The column that is filtered by a range comes first, main type and sub type next, because keyword
/// lists go by the columns' places; ViewOrder() gives the order of the file, in which to show them.
/// Numbers have blanks in front, so that they sort by size.
class CIncidentModel : public Ravel::CTreeViewModel
{
    Q_OBJECT

public:
    using CTreeViewModel::CTreeViewModel;

    /// \brief Take the titles of \a list. The model has no rows then; add those of
    /// NewItems().
    void SetList(IncidentListPtr list);
    [[nodiscard]] const IncidentListPtr &List() const { return list_; }
    /// \brief The rows \a begin to \a end - 1 of the list; the caller owns them.
    [[nodiscard]] QList<Ravel::CTreeViewItem *> NewItems(int begin, int end) const;

    /// \brief Whether there are types to filter by: in column 1 the main ones, in column 2 the sub
    /// types.
    [[nodiscard]] bool HasTypes() const { return has_types_; }
    /// \brief The least and the greatest text of column 0.
    [[nodiscard]] QStringList Range() const;
    /// \brief The column of the list that \a column shows.
    [[nodiscard]] int ListColumn(int column) const { return columns_.at(column); }
    /// \brief For each column of the list the one of this model.
    [[nodiscard]] const QVector<int> &ViewOrder() const { return view_order_; }

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    IncidentListPtr list_;
    bool has_types_ = false;
    QVector<int> columns_; // of the list, for each of this model
    QVector<int> view_order_;
    QVector<int> digits_; // that the numbers of each column are filled up to; 0: as they are
};

} // namespace Client
