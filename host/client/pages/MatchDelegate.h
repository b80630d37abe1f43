// SPDX-License-Identifier: MIT
#pragma once

#include <Ravel/TableDelegate.h>

namespace Client {

/// \brief Marks in each cell what the user searches for, in the theme's brand colour. A cell
/// without it is drawn as by its base class, which is faster.
class CMatchDelegate : public Ravel::CTableDelegate
{
    Q_OBJECT

public:
    using CTableDelegate::CTableDelegate;

    /// \brief Mark \a text from the next painting on; nothing when it is empty.
    void SetSearchText(const QString &text) { search_text_ = text; }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    void DrawText(QPainter &painter, const QStyleOptionViewItem &option) const;

    QString search_text_;
};

} // namespace Client
