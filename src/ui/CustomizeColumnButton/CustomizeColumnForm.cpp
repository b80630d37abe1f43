// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/CustomizeColumnForm.h"

#include "common/Translate.h"
#include "ui/CustomizeColumnButton/CustomListItemDelegate.h"
#include "ui/CustomizeColumnButton/ItemDragMovableListView.h"
#include "ui/CustomizeColumnButton/ListSightCheckModel.h"

#include <Ravel/Frame.h>
#include <Ravel/Label.h>
#include <Ravel/PushButton.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHBoxLayout>

namespace Vantor {
namespace {

constexpr int kBorderPx = 1; // the theme draws it
constexpr int kHeadMarginPx = 10;
constexpr int kSpacingPx = 8;
static_assert(CustomizeColumnForm::kAroundListPx == 2 * kBorderPx + kSpacingPx);

QFrame *NewLine(QWidget *parent)
{
    auto *const line = new Ravel::CFrame(parent);
    line->setObjectName(QStringLiteral("ptr_column_line_"));
    line->setFixedHeight(kBorderPx);
    return line;
}

} // namespace

void CustomizeColumnForm::Build(QWidget &widget)
{
    ptr_model_ = new CListSightCheckModel(&widget);
    ptr_all_check_box_ = new QCheckBox(&widget);
    ptr_all_check_box_->setObjectName(QStringLiteral("ptr_all_check_box_"));
    ptr_all_check_box_->setTristate(true);
    ptr_list_view_ = new CItemDragMovableListView(&widget);
    ptr_list_view_->setObjectName(QStringLiteral("ptr_column_list_view_"));
    ptr_list_view_->setFrameShape(QFrame::NoFrame);
    ptr_list_view_->setModel(ptr_model_);
    ptr_list_view_->setItemDelegate(new CCustomListItemDelegate(ptr_list_view_));
    ptr_loading_label_ = new Ravel::CLabel(&widget);
    ptr_loading_label_->setObjectName(QStringLiteral("ptr_loading_label_"));
    ptr_loading_label_->setWordWrap(true); // a narrow list has room for a few words
    ptr_loading_label_->hide();
    ptr_reset_button_ = new Ravel::CPushButton(&widget);
    ptr_reset_button_->setObjectName(QStringLiteral("ptr_reset_button_"));
    ptr_read_again_button_ = new Ravel::CPushButton(&widget);
    ptr_read_again_button_->setObjectName(QStringLiteral("ptr_read_again_button_"));
    ptr_read_again_button_->hide();

    auto *const head = new QHBoxLayout;
    head->setContentsMargins(kHeadMarginPx, kSpacingPx, kHeadMarginPx, kSpacingPx);
    head->addWidget(ptr_all_check_box_);
    head->addStretch();
    auto *const foot = new QHBoxLayout;
    foot->setContentsMargins(kHeadMarginPx, kSpacingPx, kHeadMarginPx, kSpacingPx);
    foot->addWidget(ptr_loading_label_, 1);
    foot->addStretch();
    foot->addWidget(ptr_read_again_button_);
    foot->addWidget(ptr_reset_button_);
    auto *const layout = new QVBoxLayout(&widget);
    layout->setContentsMargins(kBorderPx, kBorderPx, kBorderPx, kBorderPx);
    layout->setSpacing(0);
    layout->setSizeConstraint(QLayout::SetNoConstraint); // a small window cuts it
    layout->addLayout(head);
    layout->addWidget(NewLine(&widget));
    layout->addWidget(ptr_list_view_, 1);
    layout->addWidget(NewLine(&widget));
    layout->addLayout(foot);
}

void CustomizeColumnForm::Retranslate(const QString &name) const
{
    ptr_list_view_->setAccessibleName(name);
    ptr_list_view_->setAccessibleDescription(Translate(
        QStringLiteral("Space shows and hides a column, Alt and the arrow keys move it.")));
    ptr_all_check_box_->setText(Translate(QStringLiteral("All columns")));
    ptr_read_again_button_->setText(Translate(QStringLiteral("Try again")));
    ptr_reset_button_->setText(Translate(QStringLiteral("Reset")));
    ptr_reset_button_->setToolTip(
        Translate(QStringLiteral("Shows the columns as they were at first.")));
}

} // namespace Vantor
