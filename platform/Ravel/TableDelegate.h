// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtGui/QFont>
#include <QtWidgets/QStyledItemDelegate>

#include <array>

namespace Ravel {

/// \brief Draws a cell with text only directly, which is faster than the style's item drawing;
/// draws every other cell as QStyledItemDelegate does.
class VANTOR_PLATFORM_EXPORT CTableDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CTableDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

    /// \brief The style has changed: ask it again for the place of texts.
    void ForgetStyle();

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    [[nodiscard]] QRect TextRect(const QStyleOptionViewItem &option) const;
    [[nodiscard]] QString Fitting(const QString &text, const QFont &font, qreal width_px) const;

    mutable QRect inset_; // from the edges of a cell to its text; null until the style is asked

    // Width of each Latin-1 character in the font of the last cell; a view has one font.
    mutable QFont widths_font_;
    mutable std::array<qreal, 256> widths_px_{};
    mutable qreal ellipsis_px_ = 0;
};

} // namespace Ravel
