// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QStyledItemDelegate>

namespace Ravel {

/// \brief Draws a cell that holds nothing but text without the style's item machinery; every other
/// cell as QStyledItemDelegate does.
class VANTOR_PLATFORM_EXPORT CTableDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CTableDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};

} // namespace Ravel
