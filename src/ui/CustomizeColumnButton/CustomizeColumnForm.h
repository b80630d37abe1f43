// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QWidget;
QT_END_NAMESPACE

namespace Ravel {

class CLabel;
class CPushButton;

} // namespace Ravel

namespace Vantor {

class CItemDragMovableListView;
class CListSightCheckModel;

/// \brief The controls of CCustomizeColumnWidget and where they are. The widget owns them.
struct CustomizeColumnForm
{
    /// Borders and spacing beside the list, which count for the width.
    static constexpr int kAroundListPx = 10;

    void Build(QWidget &widget);
    /// \param name what a screen reader calls the list.
    void Retranslate(const QString &name) const;

    CListSightCheckModel *ptr_model_ = nullptr;
    CItemDragMovableListView *ptr_list_view_ = nullptr;
    QCheckBox *ptr_all_check_box_ = nullptr;
    Ravel::CPushButton *ptr_reset_button_ = nullptr;
    Ravel::CPushButton *ptr_read_again_button_ = nullptr;
    Ravel::CLabel *ptr_loading_label_ = nullptr;
};

} // namespace Vantor
