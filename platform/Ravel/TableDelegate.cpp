// SPDX-License-Identifier: MIT
#include "Ravel/TableDelegate.h"

#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

#include <algorithm>

namespace Ravel {
namespace {

// Roles and states that only the style can draw.
constexpr int kStyledRoles[] = {Qt::DecorationRole, Qt::CheckStateRole, Qt::FontRole,
                                Qt::BackgroundRole};
constexpr QStyle::State kMarked =
    QStyle::State_Selected | QStyle::State_MouseOver | QStyle::State_HasFocus;

QPalette::ColorGroup ColorGroup(QStyle::State state)
{
    if (!(state & QStyle::State_Enabled))
        return QPalette::Disabled;
    return state & QStyle::State_Active ? QPalette::Normal : QPalette::Inactive;
}

} // namespace

CTableDelegate::CTableDelegate(QObject *parent) : QStyledItemDelegate(parent) {}

// A sum of widths is faster than a text layout. Null if the sum is not exact.
QString CTableDelegate::Fitting(const QString &text, const QFont &font, qreal width_px) const
{
    const QChar ellipsis(0x2026);
    if (ellipsis_px_ <= 0 || widths_font_ != font) {
        const QFontMetricsF metrics(font);
        for (size_t i = 0; i < widths_px_.size(); ++i)
            widths_px_[i] = metrics.horizontalAdvance(QChar(static_cast<ushort>(i)));
        ellipsis_px_ = metrics.horizontalAdvance(ellipsis);
        widths_font_ = font;
    }
    qreal text_px = 0;
    int fitting = 0; // characters that fit beside an ellipsis
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i).unicode() >= widths_px_.size() || text.at(i) < QLatin1Char(' '))
            return {};
        text_px += widths_px_[text.at(i).unicode()];
        fitting = text_px + ellipsis_px_ <= width_px ? i + 1 : fitting;
    }
    return text_px <= width_px ? text : text.left(fitting) + ellipsis;
}

void CTableDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                           const QModelIndex &index) const
{
    const QVariant value = index.data(Qt::DisplayRole);
    const bool is_plain =
        value.userType() == QMetaType::QString && !(option.state & kMarked)
        && std::none_of(std::cbegin(kStyledRoles), std::cend(kStyledRoles),
                        [&index](int role) { return index.data(role).isValid(); });
    const QString text = value.toString();
    if (!is_plain || text.contains(QLatin1Char('\n'))) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    if (text.isEmpty())
        return;

    const QRect rect = TextRect(option);
    const QVariant alignment = index.data(Qt::TextAlignmentRole);
    const QVariant color = index.data(Qt::ForegroundRole);
    painter->setPen(color.canConvert<QBrush>()
                        ? color.value<QBrush>().color()
                        : option.palette.color(ColorGroup(option.state), QPalette::Text));
    const auto flags = QStyle::visualAlignment(
        option.direction,
        alignment.isValid() ? Qt::Alignment(alignment.toInt()) : option.displayAlignment);
    if (option.direction == Qt::LeftToRight && option.textElideMode == Qt::ElideRight
        && !(flags & (Qt::AlignRight | Qt::AlignHCenter | Qt::AlignTop | Qt::AlignBottom))) {
        const QString fitting = Fitting(text, option.font, rect.width());
        const int top_px = rect.top() + (rect.height() - option.fontMetrics.height()) / 2;
        if (!fitting.isNull()) {
            painter->drawText(rect.left(), top_px + option.fontMetrics.ascent(), fitting);
            return;
        }
    }
    // A name in Latin letters keeps its own direction in a mirrored list, or "B*" becomes "*B".
    const int direction =
        text.isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
    painter->drawText(rect,
                      static_cast<int>(flags | Qt::AlignAbsolute) | direction | Qt::TextSingleLine,
                      option.fontMetrics.elidedText(text, option.textElideMode, rect.width()));
}

// The style draws the cells with these states. It must align and shorten their texts as paint()
// does.
void CTableDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    constexpr auto kBesideText =
        QStyleOptionViewItem::HasDecoration | QStyleOptionViewItem::HasCheckIndicator;
    if (option->features & kBesideText || option->text.isEmpty())
        return; // these have an alignment of their own
    option->displayAlignment =
        QStyle::visualAlignment(option->direction, option->displayAlignment) | Qt::AlignAbsolute;
    option->direction = option->text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}

void CTableDelegate::ForgetStyle()
{
    inset_ = QRect();
}

// The place where the style draws the text, so that the text does not jump when the cell is
// selected.
QRect CTableDelegate::TextRect(const QStyleOptionViewItem &option) const
{
    if (inset_.isNull()) {
        const QStyle *const style = option.widget ? option.widget->style() : QApplication::style();
        QStyleOptionViewItem cell = option;
        cell.features |= QStyleOptionViewItem::HasDisplay;
        cell.text = QStringLiteral("x");
        cell.displayAlignment = Qt::AlignCenter;
        cell.showDecorationSelected = true;
        const QRect text = style->subElementRect(QStyle::SE_ItemViewItemText, &cell, option.widget);
        const int margin_px =
            style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
        inset_.setCoords(
            text.left() - option.rect.left() + margin_px, text.top() - option.rect.top(),
            text.right() - option.rect.right() - margin_px, text.bottom() - option.rect.bottom());
    }
    return option.rect.adjusted(inset_.left(), inset_.top(), inset_.right(), inset_.bottom());
}

} // namespace Ravel
