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

    /// \brief The style has changed: ask it anew where texts lie.
    void ForgetStyle();

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    [[nodiscard]] QRect TextRect(const QStyleOptionViewItem &option) const;

    mutable QRect inset_; // from a cell's edges to its text's; null while the style is to be asked
};

} // namespace Ravel
