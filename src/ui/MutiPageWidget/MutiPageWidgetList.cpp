// SPDX-License-Identifier: MIT
// What the widget hands on to its list.
#include "ui/FilterTreeViewEx/FilterProxyModelEx.h"
#include "ui/FilterTreeViewEx/FilterTreeViewEx.h"
#include "ui/MutiPageWidget/MutiPageWidget.h"
#include "ui/MutiPageWidget/MutiPageWidget_p.h"

#include <QtCore/QItemSelectionModel>
#include <QtWidgets/QComboBox>

#include <algorithm>
#include <limits>

namespace Vantor {

void CMutiPageWidget::SetModel(Ravel::CTreeViewModel *model)
{
    if (model)
        d_ptr_->form_.ptr_tree_view_->SetModel(model);
}

void CMutiPageWidget::InitTreeView()
{
    d_ptr_->form_.ptr_tree_view_->ClearAllItems();
}

int CMutiPageWidget::TopLevelItemCount()
{
    return d_ptr_->b_local_paging_ ? GetTreeView()->TopLevelItemCount()
                                   : d_ptr_->page_.TotalRecords();
}

QAbstractItemModel *CMutiPageWidget::GetBackupModel()
{
    return GetTreeView()->GetBackupModel();
}

int CMutiPageWidget::GetItemsPerPage()
{
    return GetTreeView()->GetItemsPerPage();
}

void CMutiPageWidget::SetItemsPerPage(int count)
{
    QComboBox *const chooser = GetItemPerPageComboBox();
    const int index = chooser->findData(std::max(0, count));
    if (index < 0 || index == chooser->currentIndex())
        GetTreeView()->SetTreeViewItemPerPage(count);
    else
        chooser->setCurrentIndex(index);
}

void CMutiPageWidget::SetFilterEnabled(bool enabled)
{
    d_ptr_->b_local_paging_ = enabled;
    GetTreeView()->SetFilterEnabled(enabled);
    if (enabled)
        connect(this, &CMutiPageWidget::SignalPageChanged, this,
                &CMutiPageWidget::OnCurrentPageChanged);
}

QList<QModelIndex> CMutiPageWidget::GetSelectedRows() const
{
    const QItemSelectionModel *const selection = GetTreeView()->selectionModel();
    return selection ? selection->selectedRows(0) : QList<QModelIndex>();
}

void CMutiPageWidget::SetCurrentIndex(const QModelIndex &index)
{
    if (index.isValid())
        GetTreeView()->setCurrentIndex(index);
}

void CMutiPageWidget::MoveFromTheCurrentRow(int delta)
{
    const QList<QModelIndex> rows = GetSelectedRows();
    if (delta == 0 || rows.size() != 1)
        return;
    const QModelIndex &selected = rows.constFirst();
    const qint64 row = qint64{selected.row()} + delta;
    if (row >= 0 && row <= std::numeric_limits<int>::max())
        SetCurrentIndex(selected.sibling(int(row), 0));
}

void CMutiPageWidget::SetFilterKeyWord(const QString &keyword)
{
    GetTreeView()->SetFilterKeyWord(keyword);
}

void CMutiPageWidget::SetFilterKeyWords(std::vector<QStringList> &lists)
{
    GetTreeView()->SetFilterKeyWords(lists);
}

void CMutiPageWidget::SetCustomColumnFixedWidth(const int &column)
{
    d_ptr_->form_.ptr_tree_view_->SetSectionFixed(column);
}

} // namespace Vantor
