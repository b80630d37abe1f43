// SPDX-License-Identifier: MIT
#include "Ravel/TableView.h"

#include "Ravel/TableDelegate.h"

#include <QtWidgets/QHeaderView>

namespace Ravel {

CTableView::CTableView(QWidget *parent) : QTreeView(parent)
{
    // Without it a changed cell is looked up row by row, and pixel scrolling measures every row.
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setAllColumnsShowFocus(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setItemDelegate(new CTableDelegate(this));
}

void CTableView::SetSectionFixed(int column)
{
    if (column >= 0 && column < header()->count())
        header()->setSectionResizeMode(column, QHeaderView::Fixed);
}

} // namespace Ravel
