// SPDX-License-Identifier: MIT
#include "pages/MatchDelegate.h"

#include <Vantor/CStyleManager>

#include <QtGui/QPainter>
#include <QtGui/QTextLayout>
#include <QtWidgets/QApplication>

#include <cmath>

namespace Client {
namespace {

constexpr qreal kMarkOpacity = 0.30;

QVector<QTextLayout::FormatRange> FindMarks(const QString &text, const QString &search)
{
    QVector<QTextLayout::FormatRange> marks;
    if (search.isEmpty())
        return marks;
    QColor colour = Nim::Base::CSingleton<Vantor::CStyleManager>::Instance().BrandColor();
    colour.setAlphaF(kMarkOpacity);
    QTextLayout::FormatRange mark;
    mark.format.setBackground(colour);
    mark.length = search.size();
    for (int at = text.indexOf(search); at >= 0; at = text.indexOf(search, at + mark.length)) {
        mark.start = at;
        marks.append(mark);
    }
    return marks;
}

QStyle *StyleOf(const QStyleOptionViewItem &option)
{
    return option.widget ? option.widget->style() : QApplication::style();
}

} // namespace

void CMatchDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                           const QModelIndex &index) const
{
    if (search_text_.isEmpty() || !index.data().toString().contains(search_text_)) {
        CTableDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    QStyle *const style = StyleOf(item);
    QStyleOptionViewItem face = item;
    face.text.clear();
    style->drawControl(QStyle::CE_ItemViewItem, &face, painter, item.widget);
    item.rect = style->subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget);
    DrawText(*painter, item);
}

void CMatchDelegate::DrawText(QPainter &painter, const QStyleOptionViewItem &option) const
{
    // An English name keeps its own reading direction in an Arabic window, or a mark behind it
    // would be drawn in front.
    const auto direction = option.text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
    const int margin =
        1 + StyleOf(option)->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget);
    const QRect room = option.rect.adjusted(margin, 0, -margin, 0);
    const QString text =
        option.fontMetrics.elidedText(option.text.simplified(), Qt::ElideRight, room.width());

    QTextOption text_option(Qt::AlignLeft | Qt::AlignAbsolute);
    text_option.setTextDirection(direction);
    text_option.setWrapMode(QTextOption::NoWrap);
    QTextLayout layout(text, option.font);
    layout.setTextOption(text_option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(room.width());
    layout.endLayout();

    const QSize size(int(std::ceil(line.naturalTextWidth())), int(std::ceil(line.height())));
    const QRect place = QStyle::alignedRect(option.direction, option.displayAlignment, size, room);
    const bool is_selected = option.state.testFlag(QStyle::State_Selected);
    painter.setPen(option.palette.color(is_selected ? QPalette::HighlightedText : QPalette::Text));
    layout.draw(&painter, place.topLeft(), FindMarks(text, search_text_), room);
}

} // namespace Client
