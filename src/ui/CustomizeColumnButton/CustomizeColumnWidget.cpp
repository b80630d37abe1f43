// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/CustomizeColumnWidget.h"

#include "common/Translate.h"
#include "ui/CustomizeColumnButton/ColumnLayout.h"
#include "ui/CustomizeColumnButton/CustomListItemDelegate.h"
#include "ui/CustomizeColumnButton/DropDownPlace.h"
#include "ui/CustomizeColumnButton/ItemDragMovableListView.h"
#include "ui/CustomizeColumnButton/ListSightCheckModel.h"

#include <Ravel/Frame.h>
#include <Ravel/Label.h>
#include <Ravel/PushButton.h>

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyle>

#include <algorithm>

namespace Vantor {
namespace {

constexpr int kNarrowestPx = 220;
constexpr int kWidestPx = 480;
constexpr int kBorderPx = 1; // the theme draws it
constexpr int kHeadMarginPx = 10;
constexpr int kSpacingPx = 8;

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

QFrame *NewLine(QWidget *parent)
{
    auto *const line = new Ravel::CFrame(parent);
    line->setObjectName(QStringLiteral("ptr_column_line_"));
    line->setFixedHeight(kBorderPx);
    return line;
}

} // namespace

struct CCustomizeColumnWidgetDataPtr
{
    QVector<CColumnInfo> vec_initial_columns_;
    QVector<CColumnInfo> vec_current_columns_;
    QVector<CColumnInfo> vec_pre_changed_columns_;
    CListSightCheckModel *ptr_model_ = nullptr;
    QVector<QPointer<QWidget>> vec_relate_widgets_;
    CItemDragMovableListView *ptr_list_view_ = nullptr;
    QCheckBox *ptr_all_check_box_ = nullptr;
    Ravel::CPushButton *ptr_reset_button_ = nullptr;
    Ravel::CLabel *ptr_loading_label_ = nullptr;
    QMetaObject::Connection check_connection_; // of the model to OnUpdateCurrentListState()
    int adaptive_width_px_ = 0;
    bool b_loading_ = false;

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
        return !b_loading_
               && CanMoveColumn(vec_current_columns_, ColumnOrder(vec_current_columns_), from, to);
    }
};

CCustomizeColumnWidget::CCustomizeColumnWidget(QWidget *parent)
    : QWidget(parent, Qt::Popup | Qt::FramelessWindowHint),
      d_ptr_(std::make_unique<CCustomizeColumnWidgetDataPtr>())
{
    setObjectName(QStringLiteral("CustomizeColumnWidget"));
    setAttribute(Qt::WA_StyledBackground);
    BuildUi();
    d_ptr_->check_connection_ =
        connect(d_ptr_->ptr_model_, &CListSightCheckModel::SignalCheckStateChanged, this,
                &CCustomizeColumnWidget::OnUpdateCurrentListState);
    connect(d_ptr_->ptr_model_, &CListSightCheckModel::SignalRowMoved, this,
            &CCustomizeColumnWidget::OnUpdateCurrentCutomizeListIndex);
    connect(d_ptr_->ptr_all_check_box_, &QCheckBox::stateChanged, this,
            &CCustomizeColumnWidget::OnAllCheckBoxStateChanged);
    connect(d_ptr_->ptr_reset_button_, &QPushButton::clicked, this,
            &CCustomizeColumnWidget::OnResetCustomizeListClicked);
    connect(d_ptr_->ptr_list_view_, &CItemDragMovableListView::SignalDragFinished, this,
            &CCustomizeColumnWidget::SignalColumnWidgetFinishChanged);
    d_ptr_->ptr_list_view_->SetMoveRule(
        [state = d_ptr_.get()](int from, int to) { return state->CanMove(from, to); });
    Retranslate();
    UpdateEnabled();
}

CCustomizeColumnWidget::~CCustomizeColumnWidget()
{
    // Qt hides a popup while it destroys it, and the view tells of the end of its drag then.
    d_ptr_->ptr_list_view_->disconnect(this);
}

void CCustomizeColumnWidget::BuildUi()
{
    d_ptr_->ptr_model_ = new CListSightCheckModel(this);
    d_ptr_->ptr_all_check_box_ = new QCheckBox(this);
    d_ptr_->ptr_all_check_box_->setObjectName(QStringLiteral("ptr_all_check_box_"));
    d_ptr_->ptr_all_check_box_->setTristate(true);
    d_ptr_->ptr_list_view_ = new CItemDragMovableListView(this);
    d_ptr_->ptr_list_view_->setObjectName(QStringLiteral("ptr_column_list_view_"));
    d_ptr_->ptr_list_view_->setFrameShape(QFrame::NoFrame);
    d_ptr_->ptr_list_view_->setModel(d_ptr_->ptr_model_);
    d_ptr_->ptr_list_view_->setItemDelegate(new CCustomListItemDelegate(d_ptr_->ptr_list_view_));
    d_ptr_->ptr_loading_label_ = new Ravel::CLabel(this);
    d_ptr_->ptr_loading_label_->setObjectName(QStringLiteral("ptr_loading_label_"));
    d_ptr_->ptr_loading_label_->hide();
    d_ptr_->ptr_reset_button_ = new Ravel::CPushButton(this);
    d_ptr_->ptr_reset_button_->setObjectName(QStringLiteral("ptr_reset_button_"));

    auto *const head = new QHBoxLayout;
    head->setContentsMargins(kHeadMarginPx, kSpacingPx, kHeadMarginPx, kSpacingPx);
    head->addWidget(d_ptr_->ptr_all_check_box_);
    head->addStretch();
    auto *const foot = new QHBoxLayout;
    foot->setContentsMargins(kHeadMarginPx, kSpacingPx, kHeadMarginPx, kSpacingPx);
    foot->addWidget(d_ptr_->ptr_loading_label_);
    foot->addStretch();
    foot->addWidget(d_ptr_->ptr_reset_button_);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(kBorderPx, kBorderPx, kBorderPx, kBorderPx);
    layout->setSpacing(0);
    layout->setSizeConstraint(QLayout::SetNoConstraint); // a small window cuts it
    layout->addLayout(head);
    layout->addWidget(NewLine(this));
    layout->addWidget(d_ptr_->ptr_list_view_, 1);
    layout->addWidget(NewLine(this));
    layout->addLayout(foot);
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

void CCustomizeColumnWidget::SetLoading(bool is_loading)
{
    d_ptr_->b_loading_ = is_loading;
    UpdateEnabled();
    if (!is_loading && isVisible() && !focusWidget())
        d_ptr_->ptr_list_view_->setFocus(Qt::OtherFocusReason); // a disabled list loses it
}

bool CCustomizeColumnWidget::IsDragging() const
{
    return d_ptr_->ptr_list_view_->IsDragging();
}

void CCustomizeColumnWidget::ShowAt(const QRect &button, const QRect &room)
{
    QSize size = sizeHint();
    if (!room.isEmpty() && size.height() > room.height())
        size.rwidth() += style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    setGeometry(DropDownPlace(button, size, room, layoutDirection()));
    show();
    CItemDragMovableListView &list = *d_ptr_->ptr_list_view_;
    if (!list.currentIndex().isValid())
        list.setCurrentIndex(d_ptr_->ptr_model_->index(0, 0));
    list.setFocus(Qt::PopupFocusReason);
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
    if (event->key() == Qt::Key_Escape)
        hide();
    else
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
    // A model that is being filled tells of no check and no move, so that nothing is written.
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
    // The rows know what stands around a name: check box, margins of the theme, handle.
    ensurePolished();
    d_ptr_->ptr_list_view_->ensurePolished();
    const int widest = d_ptr_->ptr_list_view_->sizeHint().width() + 2 * kBorderPx + kSpacingPx;
    return std::clamp(widest, kNarrowestPx, kWidestPx);
}

void CCustomizeColumnWidget::UpdateEnabled()
{
    const auto &columns = d_ptr_->vec_current_columns_;
    const bool is_any_free = std::any_of(columns.begin(), columns.end(), [](const CColumnInfo &c) {
        return c.Read().b_manual_check;
    });
    d_ptr_->ptr_all_check_box_->setEnabled(is_any_free && !d_ptr_->b_loading_);
    d_ptr_->ptr_list_view_->setEnabled(!d_ptr_->b_loading_);
    d_ptr_->ptr_reset_button_->setEnabled(!d_ptr_->b_loading_);
    d_ptr_->ptr_loading_label_->setVisible(d_ptr_->b_loading_);
}

void CCustomizeColumnWidget::Retranslate()
{
    setAccessibleName(Translate(QStringLiteral("Columns")));
    d_ptr_->ptr_list_view_->setAccessibleName(accessibleName());
    d_ptr_->ptr_list_view_->setAccessibleDescription(Translate(
        QStringLiteral("Space shows and hides a column, Alt and the arrow keys move it.")));
    d_ptr_->ptr_all_check_box_->setText(Translate(QStringLiteral("All columns")));
    d_ptr_->ptr_loading_label_->setText(Translate(QStringLiteral("Loading…")));
    d_ptr_->ptr_reset_button_->setText(Translate(QStringLiteral("Reset")));
    d_ptr_->ptr_reset_button_->setToolTip(
        Translate(QStringLiteral("Shows the columns as they were at first.")));
}

} // namespace Vantor
