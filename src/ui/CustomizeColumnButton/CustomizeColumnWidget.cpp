// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/CustomizeColumnWidget.h"

#include "common/DisconnectChildren.h"
#include "common/Translate.h"
#include "ui/CustomizeColumnButton/ColumnLayout.h"
#include "ui/CustomizeColumnButton/CustomizeColumnForm.h"
#include "ui/CustomizeColumnButton/DropDown.h"
#include "ui/CustomizeColumnButton/ItemDragMovableListView.h"
#include "ui/CustomizeColumnButton/ListSightCheckModel.h"

#include <Ravel/Label.h>
#include <Ravel/PushButton.h>

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QScrollBar>

#include <algorithm>

namespace Vantor {
namespace {

constexpr int kNarrowestPx = 220;
constexpr int kWidestPx = 480;

std::unique_ptr<QStandardItem> NewRow(const ColumnInfo &column, int index)
{
    auto item = std::make_unique<QStandardItem>(column.column_name);
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled
                   | (column.b_manual_check ? Qt::ItemIsUserCheckable : Qt::NoItemFlags));
    item->setData(index, CListSightCheckModel::kColumnIndexRole);
    item->setData(column.b_manual_sort, CListSightCheckModel::kManualSortRole);
    item->setCheckState(column.column_checked);
    return item;
}

} // namespace

struct CCustomizeColumnWidgetDataPtr : CustomizeColumnForm
{
    QVector<CColumnInfo> vec_initial_columns_;
    QVector<CColumnInfo> vec_current_columns_;
    QVector<CColumnInfo> vec_pre_changed_columns_;
    QVector<QPointer<QWidget>> vec_relate_widgets_;
    QMetaObject::Connection check_connection_; // of the model to OnUpdateCurrentListState()
    int adaptive_width_px_ = 0;
    CCustomizeColumnWidget::ChoiceState choice_state_ = CCustomizeColumnWidget::ChoiceState::Ready;

    [[nodiscard]] int ColumnIndex(int row) const
    {
        return ptr_model_->index(row, 0).data(CListSightCheckModel::kColumnIndexRole).toInt();
    }

    [[nodiscard]] QVector<int> RowOrder() const
    {
        QVector<int> order(ptr_model_->rowCount());
        for (int row = 0; row < order.size(); ++row)
            order[row] = ColumnIndex(row);
        return order;
    }

    [[nodiscard]] bool CanMove(int from, int to) const
    {
        return choice_state_ == CCustomizeColumnWidget::ChoiceState::Ready
               && CanMoveColumn(vec_current_columns_, ColumnOrder(vec_current_columns_), from, to);
    }
};

CCustomizeColumnWidget::CCustomizeColumnWidget(QWidget *parent)
    : QWidget(parent, Qt::Popup | Qt::FramelessWindowHint),
      d_ptr_(std::make_unique<CCustomizeColumnWidgetDataPtr>())
{
    setObjectName(QStringLiteral("CustomizeColumnWidget"));
    setAttribute(Qt::WA_StyledBackground);
    d_ptr_->Build(*this);
    d_ptr_->check_connection_ =
        connect(d_ptr_->ptr_model_, &CListSightCheckModel::SignalCheckStateChanged, this,
                &CCustomizeColumnWidget::OnUpdateCurrentListState);
    connect(d_ptr_->ptr_model_, &CListSightCheckModel::SignalRowMoved, this,
            &CCustomizeColumnWidget::OnUpdateCurrentCutomizeListIndex);
    connect(d_ptr_->ptr_all_check_box_, &QCheckBox::stateChanged, this,
            &CCustomizeColumnWidget::OnAllCheckBoxStateChanged);
    connect(d_ptr_->ptr_reset_button_, &QPushButton::clicked, this,
            &CCustomizeColumnWidget::OnResetCustomizeListClicked);
    connect(d_ptr_->ptr_read_again_button_, &QPushButton::clicked, this,
            &CCustomizeColumnWidget::SignalReadAgain);
    connect(d_ptr_->ptr_list_view_, &CItemDragMovableListView::SignalDragFinished, this,
            &CCustomizeColumnWidget::SignalColumnWidgetFinishChanged);
    d_ptr_->ptr_list_view_->SetMoveRule(
        [state = d_ptr_.get()](int from, int to) { return state->CanMove(from, to); });
    Retranslate();
}

CCustomizeColumnWidget::~CCustomizeColumnWidget()
{
    DisconnectChildren(this);
}

void CCustomizeColumnWidget::InitCustomizeWidget(const QVector<CColumnInfo> &columns)
{
    d_ptr_->vec_initial_columns_ = columns;
    d_ptr_->vec_pre_changed_columns_ = columns;
    SetCustomizeWidgetListItems(columns);
}

void CCustomizeColumnWidget::SetCustomizeWidgetListItems(const QVector<CColumnInfo> &columns)
{
    d_ptr_->vec_current_columns_ = columns;
    FillRows();
    DetectListViewAllItemCheckState();
}

void CCustomizeColumnWidget::GetCustomlistItemsContent(QStringList &names, QList<int> &ids) const
{
    names.clear();
    ids.clear();
    const QVector<int> order = ColumnOrder(d_ptr_->vec_current_columns_);
    for (const int index : order) {
        const ColumnInfo &column = d_ptr_->vec_current_columns_.at(index).Read();
        if (column.column_checked != Qt::Checked)
            continue;
        names.append(column.column_name);
        ids.append(column.column_id);
    }
}

void CCustomizeColumnWidget::GetCustomlistItemsContent(QStringList &names) const
{
    QList<int> ids;
    GetCustomlistItemsContent(names, ids);
}

void CCustomizeColumnWidget::GetCustomlistItemsContent(QVector<CColumnInfo> &columns) const
{
    columns = d_ptr_->vec_current_columns_;
}

void CCustomizeColumnWidget::GetCustomlistItemsContentInit(QVector<CColumnInfo> &columns) const
{
    columns = d_ptr_->vec_initial_columns_;
}

void CCustomizeColumnWidget::SetRelateWidget(const QVector<QWidget *> &widgets)
{
    d_ptr_->vec_relate_widgets_.clear();
    for (QWidget *const widget : widgets)
        d_ptr_->vec_relate_widgets_.append(widget);
}

void CCustomizeColumnWidget::ClearCustomizeListItemsContent()
{
    SetCustomizeWidgetListItems({});
}

void CCustomizeColumnWidget::GetPreChangedCustomListState(QVector<CColumnInfo> &columns) const
{
    columns = d_ptr_->vec_pre_changed_columns_;
}

void CCustomizeColumnWidget::SetPreChangedCustomListState(const QVector<CColumnInfo> &columns)
{
    d_ptr_->vec_pre_changed_columns_ = columns;
}

void CCustomizeColumnWidget::SetChoiceState(ChoiceState state)
{
    if (state == d_ptr_->choice_state_)
        return;
    d_ptr_->choice_state_ = state;
    UpdateEnabled();
    if (isVisible())
        FirstFocus()->setFocus(Qt::OtherFocusReason); // a disabled list has lost it
}

QWidget *CCustomizeColumnWidget::FirstFocus() const
{
    if (d_ptr_->choice_state_ == ChoiceState::Unread)
        return d_ptr_->ptr_read_again_button_;
    return d_ptr_->ptr_list_view_;
}

bool CCustomizeColumnWidget::IsDragging() const
{
    return d_ptr_->ptr_list_view_->IsDragging();
}

void CCustomizeColumnWidget::ShowFor(const QWidget &button)
{
    CItemDragMovableListView &list = *d_ptr_->ptr_list_view_;
    if (!list.currentIndex().isValid())
        list.setCurrentIndex(d_ptr_->ptr_model_->index(0, 0));
    ShowDropDown(*this, button, sizeHint(), *FirstFocus());
}

QSize CCustomizeColumnWidget::sizeHint() const
{
    const QSize hint = QWidget::sizeHint();
    return {std::max(d_ptr_->adaptive_width_px_, hint.width()), hint.height()};
}

void CCustomizeColumnWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CCustomizeColumnWidget::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        Q_EMIT SignalLeaveWidget();
}

void CCustomizeColumnWidget::keyPressEvent(QKeyEvent *event)
{
    if (!CloseDropDownByKey(*this, d_ptr_->vec_relate_widgets_.value(0), *event))
        QWidget::keyPressEvent(event);
}

void CCustomizeColumnWidget::mousePressEvent(QMouseEvent *event)
{
    // The button would open again what this press closes.
    const auto is_pressed = [event](const QPointer<QWidget> &widget) {
        return widget && widget->rect().contains(widget->mapFromGlobal(event->globalPos()));
    };
    const auto &relate = d_ptr_->vec_relate_widgets_;
    setAttribute(Qt::WA_NoMouseReplay, std::any_of(relate.begin(), relate.end(), is_pressed));
    QWidget::mousePressEvent(event);
}

void CCustomizeColumnWidget::OnUpdateCurrentCutomizeListIndex(const QModelIndex &, int from, int to)
{
    if (!d_ptr_->CanMove(from, to)) {
        FillRows();
        return;
    }
    NumberColumns(d_ptr_->vec_current_columns_, d_ptr_->RowOrder(),
                  FirstColumnNumber(d_ptr_->vec_initial_columns_));
    Q_EMIT SignalCutomizelistChanged();
}

void CCustomizeColumnWidget::OnUpdateCurrentListState(const QModelIndex &index, int, int new_state)
{
    d_ptr_->vec_current_columns_[d_ptr_->ColumnIndex(index.row())].SetVal_column_checked(
        Qt::CheckState(new_state));
    DetectListViewAllItemCheckState();
    Q_EMIT SignalCutomizelistChanged();
}

void CCustomizeColumnWidget::OnResetCustomizeListClicked()
{
    SetCustomizeWidgetListItems(d_ptr_->vec_initial_columns_);
    Q_EMIT SignalCutomizelistChanged();
}

void CCustomizeColumnWidget::OnAllCheckBoxStateChanged(int state)
{
    disconnect(d_ptr_->check_connection_);
    const Qt::CheckState wanted = state == Qt::Unchecked ? Qt::Unchecked : Qt::Checked;
    for (int row = 0; row < d_ptr_->ptr_model_->rowCount(); ++row) {
        CColumnInfo &column = d_ptr_->vec_current_columns_[d_ptr_->ColumnIndex(row)];
        if (!column.Read().b_manual_check)
            continue;
        column.SetVal_column_checked(wanted);
        d_ptr_->ptr_model_->setData(d_ptr_->ptr_model_->index(row, 0), wanted, Qt::CheckStateRole);
    }
    d_ptr_->check_connection_ =
        connect(d_ptr_->ptr_model_, &CListSightCheckModel::SignalCheckStateChanged, this,
                &CCustomizeColumnWidget::OnUpdateCurrentListState);
    DetectListViewAllItemCheckState();
    Q_EMIT SignalCutomizelistChanged();
}

void CCustomizeColumnWidget::FillRows()
{
    CItemDragMovableListView &list = *d_ptr_->ptr_list_view_;
    list.CancelDrag();
    const int current =
        list.currentIndex().isValid() ? d_ptr_->ColumnIndex(list.currentIndex().row()) : -1;
    const int scrolled = list.verticalScrollBar()->value();
    QStringList names;
    // A model that is being filled reports no check and no move, so nothing is written.
    d_ptr_->ptr_model_->removeRows(0, d_ptr_->ptr_model_->rowCount());
    const QVector<int> order = ColumnOrder(d_ptr_->vec_current_columns_);
    for (const int index : order) {
        const ColumnInfo &column = d_ptr_->vec_current_columns_.at(index).Read();
        names.append(column.column_name);
        d_ptr_->ptr_model_->appendRow(NewRow(column, index).release()); // the model owns it
        if (index == current)
            list.setCurrentIndex(d_ptr_->ptr_model_->index(names.size() - 1, 0));
    }
    list.verticalScrollBar()->setValue(scrolled);
    d_ptr_->adaptive_width_px_ = CalculateAdaptiveWidth(names);
    list.updateGeometry();
}

void CCustomizeColumnWidget::DetectListViewAllItemCheckState()
{
    {
        // The box itself checks all columns when it changes.
        const QSignalBlocker blocker(d_ptr_->ptr_all_check_box_);
        d_ptr_->ptr_all_check_box_->setCheckState(CommonCheckState(d_ptr_->vec_current_columns_));
    }
    UpdateEnabled();
}

int CCustomizeColumnWidget::CalculateAdaptiveWidth(const QStringList &names) const
{
    if (names.isEmpty())
        return kNarrowestPx;
    // The rows know the space around a name: check box, margins of the theme, handle.
    ensurePolished();
    d_ptr_->ptr_list_view_->ensurePolished();
    const int widest =
        d_ptr_->ptr_list_view_->sizeHint().width() + CustomizeColumnForm::kAroundListPx;
    return std::clamp(widest, kNarrowestPx, kWidestPx);
}

void CCustomizeColumnWidget::UpdateEnabled()
{
    const auto &columns = d_ptr_->vec_current_columns_;
    const bool is_any_free = std::any_of(columns.begin(), columns.end(), [](const CColumnInfo &c) {
        return c.Read().b_manual_check;
    });
    const bool is_ready = d_ptr_->choice_state_ == ChoiceState::Ready;
    const bool is_unread = d_ptr_->choice_state_ == ChoiceState::Unread;
    d_ptr_->ptr_all_check_box_->setEnabled(is_any_free && is_ready);
    d_ptr_->ptr_list_view_->setEnabled(is_ready);
    d_ptr_->ptr_reset_button_->setEnabled(is_ready);
    d_ptr_->ptr_reset_button_->setVisible(!is_unread);
    d_ptr_->ptr_read_again_button_->setVisible(is_unread);
    d_ptr_->ptr_loading_label_->setVisible(!is_ready);
    d_ptr_->ptr_loading_label_->setText(
        Translate(is_unread ? QStringLiteral("Could not be read") : QStringLiteral("Loading…")));
}

void CCustomizeColumnWidget::Retranslate()
{
    setAccessibleName(Translate(QStringLiteral("Columns")));
    d_ptr_->Retranslate(accessibleName());
    UpdateEnabled();
}

} // namespace Vantor
