// SPDX-License-Identifier: MIT
#include "ui/MutiPageWidget/MutiPageForm.h"

#include "common/Translate.h"
#include "ui/FilterTreeViewEx/FilterTreeViewEx.h"

#include <Ravel/ComboBox.h>
#include <Ravel/Frame.h>
#include <Ravel/Label.h>
#include <Ravel/LineEdit.h>
#include <Ravel/PushButton.h>

#include <QtCore/QLocale>
#include <QtGui/QIcon>
#include <QtGui/QIntValidator>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace Vantor {
namespace {

constexpr char kContext[] = "SimpleMutiPageWidgetUi";

constexpr int kLineHeight_px = 1;
constexpr int kBarHeight_px = 52;
constexpr int kTextHeight_px = 26;
constexpr QSize kChoiceSize_px(122, 32);
constexpr QSize kFlipSize_px(24, 24);
constexpr QSize kFlipIconSize_px(16, 16);
constexpr QSize kPageEditSize_px(40, 26);
constexpr QSize kJumpSize_px(60, 26);
constexpr int kBatchRoom_px = 161;
constexpr int kBatchLeast_px = 100;
constexpr int kBatchMost_px = 160;
constexpr int kBatchHeight_px = 30;
constexpr int kHolderSpacing_px = 4;

constexpr int kPagesOfRows[] = {100, 200, 300, 500};
constexpr int kAdaptive = 0; // as many rows as fit

struct BarRoom
{
    int left;
    int right;
    int spacing;
};
constexpr BarRoom kWithJump{5, 5, 20};
constexpr BarRoom kWithoutJump{5, 10, 10};

QString Text(const char *key)
{
    return Translate(QString::fromLatin1(key), kContext);
}

QIcon Icon(const char *name)
{
    return QIcon(
        QStringLiteral(":/Ovrin/Tree/Images/Public/Control/Tree/%1.png").arg(QLatin1String(name)));
}

} // namespace

CMutiPageForm::CMutiPageForm(QWidget *page, bool is_right_to_left)
    : ptr_container_(new QWidget(page)), ptr_tree_view_(new CFilterTreeViewEx(ptr_container_)),
      ptr_bottom_line_(new Ravel::CFrame(page)), ptr_bottom_widget_(new QWidget(page)),
      ptr_total_records_(new Ravel::CLabel(ptr_bottom_widget_)),
      ptr_page_combox_(new Ravel::CComboBox(ptr_bottom_widget_)),
      ptr_home_btn_(new Ravel::CPushButton(ptr_bottom_widget_)),
      ptr_previous_btn_(new Ravel::CPushButton(ptr_bottom_widget_)),
      ptr_page_holder_(new QWidget(ptr_bottom_widget_)),
      ptr_cur_page_edit_(new Ravel::CLineEdit(ptr_page_holder_)),
      ptr_total_page_(new Ravel::CLabel(ptr_page_holder_)),
      ptr_next_btn_(new Ravel::CPushButton(ptr_bottom_widget_)),
      ptr_last_btn_(new Ravel::CPushButton(ptr_bottom_widget_)),
      ptr_jump_btn_(new Ravel::CPushButton(ptr_bottom_widget_)),
      ptr_wig_batch_alarms_(new QWidget(ptr_bottom_widget_)),
      ptr_btn_batch_confirm_(new Ravel::CPushButton(ptr_wig_batch_alarms_)),
      ptr_bar_layout_(new QHBoxLayout(ptr_bottom_widget_)),
      ptr_page_validator_(new QIntValidator(1, 1, ptr_cur_page_edit_))
{
    Name();
    SetIcons(is_right_to_left);
    SetSizes();
    Arrange(page);
    FillChoices();
    Retranslate();
}

void CMutiPageForm::Name() const
{
    const struct
    {
        QWidget *widget;
        const char *name;
    } names[] = {
        {ptr_container_, "pWidgetContainer"},
        {ptr_tree_view_, "pTreeView"},
        {ptr_bottom_line_, "ptr_bottom_line_"},
        {ptr_bottom_widget_, "ptr_bottom_widget_"},
        {ptr_total_records_, "ptr_total_records_"},
        {ptr_page_combox_, "ptr_page_combox_"},
        {ptr_home_btn_, "ptr_home_btn_"},
        {ptr_previous_btn_, "ptr_previous_btn_"},
        {ptr_page_holder_, "widget_4"},
        {ptr_cur_page_edit_, "ptr_cur_page_edit_"},
        {ptr_total_page_, "ptr_total_page_"},
        {ptr_next_btn_, "ptr_next_btn_"},
        {ptr_last_btn_, "ptr_last_btn_"},
        {ptr_jump_btn_, "ptr_jump_btn_"},
        {ptr_wig_batch_alarms_, "ptr_wig_batch_alarms"},
        {ptr_btn_batch_confirm_, "ptr_btn_batch_confirm"},
    };
    for (const auto &[widget, name] : names)
        widget->setObjectName(QLatin1String(name));
}

// Themes that know the names of a mirrored bar bring their own icons.
void CMutiPageForm::SetIcons(bool is_right_to_left) const
{
    ptr_home_btn_->setIcon(Icon(is_right_to_left ? "LastPage" : "HomePage"));
    ptr_previous_btn_->setIcon(Icon(is_right_to_left ? "NextPage" : "PreviousPage"));
    ptr_next_btn_->setIcon(Icon(is_right_to_left ? "PreviousPage" : "NextPage"));
    ptr_last_btn_->setIcon(Icon(is_right_to_left ? "HomePage" : "LastPage"));
}

void CMutiPageForm::SetSizes() const
{
    ptr_bottom_line_->setFixedHeight(kLineHeight_px);
    ptr_bottom_line_->setStyleSheet(QStringLiteral("border:1px solid #cccccc;"));
    ptr_bottom_widget_->setFixedHeight(kBarHeight_px);
    ptr_total_records_->setFixedHeight(kTextHeight_px);
    ptr_page_combox_->setFixedSize(kChoiceSize_px);
    for (QPushButton *const button :
         {ptr_home_btn_, ptr_previous_btn_, ptr_next_btn_, ptr_last_btn_}) {
        button->setFixedSize(kFlipSize_px);
        button->setIconSize(kFlipIconSize_px);
        button->setStyleSheet(QStringLiteral("border:none;"));
    }
    ptr_cur_page_edit_->setFixedSize(kPageEditSize_px);
    ptr_cur_page_edit_->setAlignment(Qt::AlignCenter);
    ptr_cur_page_edit_->setValidator(ptr_page_validator_);
    ptr_total_page_->setFixedHeight(kTextHeight_px);
    ptr_jump_btn_->setFixedSize(kJumpSize_px);
    ptr_wig_batch_alarms_->setMinimumWidth(kBatchRoom_px);
    ptr_btn_batch_confirm_->setMinimumWidth(kBatchLeast_px);
    ptr_btn_batch_confirm_->setMaximumWidth(kBatchMost_px);
    ptr_btn_batch_confirm_->setFixedHeight(kBatchHeight_px);
}

void CMutiPageForm::Arrange(QWidget *page) const
{
    auto *const holder = new QHBoxLayout(ptr_page_holder_);
    holder->setContentsMargins(0, 0, 0, 0);
    holder->setSpacing(kHolderSpacing_px);
    holder->addWidget(ptr_cur_page_edit_);
    holder->addWidget(ptr_total_page_);
    auto *const batch = new QHBoxLayout(ptr_wig_batch_alarms_);
    batch->setContentsMargins(0, 0, 0, 0);
    batch->addWidget(ptr_btn_batch_confirm_);

    ptr_bar_layout_->addWidget(ptr_total_records_);
    ptr_bar_layout_->addWidget(ptr_wig_batch_alarms_);
    ptr_bar_layout_->addStretch(1);
    // The keys walk in this order too.
    for (QWidget *const widget : std::initializer_list<QWidget *>{
             ptr_page_combox_, ptr_home_btn_, ptr_previous_btn_, ptr_page_holder_, ptr_next_btn_,
             ptr_last_btn_, ptr_jump_btn_})
        ptr_bar_layout_->addWidget(widget);
    SetJumpRoom(true);

    auto *const container = new QVBoxLayout(ptr_container_);
    container->setContentsMargins(0, 0, 0, 0);
    container->addWidget(ptr_tree_view_);
    auto *const layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(ptr_container_, 1);
    layout->addWidget(ptr_bottom_line_);
    layout->addWidget(ptr_bottom_widget_);
}

void CMutiPageForm::SetMostPages(int pages) const
{
    constexpr int kDigitsThatFit = 4;
    ptr_page_validator_->setRange(1, std::max(1, pages));
    const int more = std::max(0, QString::number(pages).size() - kDigitsThatFit);
    const int digit_px = ptr_cur_page_edit_->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    ptr_cur_page_edit_->setFixedWidth(kPageEditSize_px.width() + more * digit_px);
}

void CMutiPageForm::FillChoices() const
{
    ptr_page_combox_->addItem(QString(), kAdaptive);
    for (const int rows : kPagesOfRows)
        ptr_page_combox_->addItem(QString::number(rows), rows);
}

void CMutiPageForm::SetJumpRoom(bool has_jump) const
{
    const BarRoom &room = has_jump ? kWithJump : kWithoutJump;
    ptr_bar_layout_->setContentsMargins(room.left, 0, room.right, 0);
    ptr_bar_layout_->setSpacing(room.spacing);
}

void CMutiPageForm::Retranslate() const
{
    QLocale digits; // the user's own digits may be typed, "1,0" may not
    digits.setNumberOptions(QLocale::RejectGroupSeparator);
    ptr_page_validator_->setLocale(digits);
    ptr_page_combox_->setItemText(0, Text("TheAdaptive1GOQY412"));
    ptr_page_combox_->setToolTip(Text("RecordsPerPage"));
    ptr_page_combox_->setAccessibleName(Text("RecordsPerPage"));
    ptr_cur_page_edit_->setAccessibleName(Text("CurrentPage"));
    const struct
    {
        QPushButton *button;
        const char *key;
    } tips[] = {
        {ptr_home_btn_, "TheHomePageIceUgVgXxlcmQes"},
        {ptr_previous_btn_, "Previous"},
        {ptr_next_btn_, "Next"},
        {ptr_last_btn_, "LastPage"},
    };
    for (const auto &[button, key] : tips) {
        button->setToolTip(Text(key));
        button->setAccessibleName(Text(key)); // there is no text to read out
    }
    ptr_jump_btn_->setText(Text("Jumpxomgyeiu"));
    ptr_btn_batch_confirm_->setText(Text("BatchAlarmConfirmatiglkJZKGR"));
}

} // namespace Vantor
