// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtWidgets/QStyledItemDelegate>

namespace Vantor {

/// \brief Draws one row of a column chooser: check box, name and, where the row may be moved, a
/// drag handle at the trailing edge.
///
/// A click on a row, or Space, checks and unchecks it; a click on the handle does not. The row of a
/// column whose state is fixed is drawn as disabled.
class VANTOR_EXPORT CCustomListItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CCustomListItemDelegate(QObject *parent = nullptr);
    ~CCustomListItemDelegate() override;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const override;
    [[nodiscard]] QString displayText(const QVariant &value, const QLocale &locale) const override;

protected:
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};

} // namespace Vantor
