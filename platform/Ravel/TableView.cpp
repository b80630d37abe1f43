// SPDX-License-Identifier: MIT
#include "Ravel/TableView.h"

#include "Ravel/TableDelegate.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHeaderView>

namespace Ravel {

CTableView::CTableView(QWidget *parent) : QTreeView(parent), delegate_(new CTableDelegate(this))
{
    // Otherwise a changed cell is searched row by row, and pixel scrolling measures every row.
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setAllColumnsShowFocus(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setItemDelegate(delegate_);
}

void CTableView::changeEvent(QEvent *event)
{
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::LayoutDirectionChange)
        delegate_->ForgetStyle();
}

void CTableView::SetSectionFixed(int column)
{
    if (column >= 0 && column < header()->count())
        header()->setSectionResizeMode(column, QHeaderView::Fixed);
}

} // namespace Ravel
