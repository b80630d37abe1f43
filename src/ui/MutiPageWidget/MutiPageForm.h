// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

QT_BEGIN_NAMESPACE
class QFrame;
class QHBoxLayout;
class QIntValidator;
class QPushButton;
class QWidget;
QT_END_NAMESPACE

namespace Ravel {

class CComboBox;
class CFrame;
class CLabel;
class CLineEdit;
class CPushButton;

} // namespace Ravel

namespace Vantor {

class CFilterTreeViewEx;

/// \brief The children of a CMutiPageWidget, laid out: the tree view, a line, the paging bar.
///
/// Object names are interface. \a page owns all of them.
struct CMutiPageForm
{
    CMutiPageForm(QWidget *page, bool is_right_to_left);

    /// \brief The texts of the language that is spoken now, but not those that count something.
    void Retranslate() const;
    /// \brief Let the page edit take the pages 1 to \a pages. It is 40 wide, and wider only when a
    /// number of pages has more than four digits.
    void SetMostPages(int pages) const;
    /// \brief The bar's margins and spacing with the page edit and the jump button, or without.
    void SetJumpRoom(bool has_jump) const;

    QWidget *const ptr_container_;
    CFilterTreeViewEx *const ptr_tree_view_;
    Ravel::CFrame *const ptr_bottom_line_;
    QWidget *const ptr_bottom_widget_;
    Ravel::CLabel *const ptr_total_records_;
    Ravel::CComboBox *const ptr_page_combox_;
    Ravel::CPushButton *const ptr_home_btn_;
    Ravel::CPushButton *const ptr_previous_btn_;
    QWidget *const ptr_page_holder_; // "widget_4"
    Ravel::CLineEdit *const ptr_cur_page_edit_;
    Ravel::CLabel *const ptr_total_page_;
    Ravel::CPushButton *const ptr_next_btn_;
    Ravel::CPushButton *const ptr_last_btn_;
    Ravel::CPushButton *const ptr_jump_btn_;
    QWidget *const ptr_wig_batch_alarms_;
    Ravel::CPushButton *const ptr_btn_batch_confirm_;
    QHBoxLayout *const ptr_bar_layout_;
    QIntValidator *const ptr_page_validator_;

private:
    void Name() const;
    void SetSizes() const;
    void Arrange(QWidget *page) const;
    void FillChoices() const;
    void SetIcons(bool is_right_to_left) const;
};

} // namespace Vantor
