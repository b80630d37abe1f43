// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/CustomListItemDelegate.h"

#include "ui/CustomizeColumnButton/ListSightCheckModel.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

#include <algorithm>

namespace Vantor {
namespace {

constexpr int kRowHeightPx = 34;
constexpr int kHandleWidthPx = 28; // with the room around the dots
constexpr int kDotColumns = 2;
constexpr int kDotRows = 3;
constexpr qreal kDotPx = 2.6;
constexpr qreal kDotStepPx = 5;

bool IsCheckable(const QModelIndex &index)
{
    constexpr Qt::ItemFlags kNeeded = Qt::ItemIsUserCheckable | Qt::ItemIsEnabled;
    return (index.flags() & kNeeded) == kNeeded;
}

// Empty for a row that cannot be moved.
QRect HandleOf(const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (!index.data(CListSightCheckModel::kManualSortRole).toBool())
        return {};
    return QStyle::alignedRect(option.direction, Qt::AlignRight | Qt::AlignVCenter,
                               QSize(kHandleWidthPx, option.rect.height()), option.rect);
}

bool IsOnRow(const QEvent &event, const QRect &row)
{
    const auto &mouse = static_cast<const QMouseEvent &>(event);
    return mouse.button() == Qt::LeftButton && row.contains(mouse.pos());
}

bool IsCheckKey(const QEvent &event)
{
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Space || key == Qt::Key_Select;
}

void DrawHandle(QPainter &painter, const QRect &place, const QColor &colour)
{
    const QPointF middle = QRectF(place).center();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    for (int column = 0; column < kDotColumns; ++column) {
        for (int row = 0; row < kDotRows; ++row) {
            const QPointF dot(middle.x() + kDotStepPx * (column - (kDotColumns - 1) / 2.0),
                              middle.y() + kDotStepPx * (row - (kDotRows - 1) / 2.0));
            painter.drawEllipse(dot, kDotPx / 2, kDotPx / 2);
        }
    }
    painter.restore();
}

} // namespace

CCustomListItemDelegate::CCustomListItemDelegate(QObject *parent) : QStyledItemDelegate(parent) {}

CCustomListItemDelegate::~CCustomListItemDelegate() = default;

void CCustomListItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QStyle *const style = item.widget ? item.widget->style() : QApplication::style();
    const QRect text = style->subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget);
    // The style would let a long name run below the handle.
    item.text =
        item.fontMetrics.elidedText(item.text, Qt::ElideRight, text.width() - kHandleWidthPx);
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
    const QRect handle = HandleOf(item, index);
    if (handle.isEmpty())
        return;
    QColor colour = item.palette.color(QPalette::Normal, QPalette::Text);
    colour.setAlphaF(item.state & (QStyle::State_MouseOver | QStyle::State_Selected) ? 0.8 : 0.45);
    DrawHandle(*painter, handle, colour);
}

QSize CCustomListItemDelegate::sizeHint(const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const
{
    const QSize hint = QStyledItemDelegate::sizeHint(option, index);
    return {hint.width() + kHandleWidthPx, std::max(hint.height(), kRowHeightPx)};
}

QString CCustomListItemDelegate::displayText(const QVariant &value, const QLocale &locale) const
{
    return QStyledItemDelegate::displayText(value, locale).simplified(); // headers may be broken
}

bool CCustomListItemDelegate::editorEvent(QEvent *event, QAbstractItemModel *model,
                                          const QStyleOptionViewItem &option,
                                          const QModelIndex &index)
{
    if (!IsCheckable(index))
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress: // the delegate's, so that the release after it is one click
        return IsOnRow(*event, option.rect);
    case QEvent::MouseButtonRelease:
        if (!IsOnRow(*event, option.rect) || IsOnRow(*event, HandleOf(option, index)))
            return false;
        break;
    case QEvent::KeyPress:
        if (!IsCheckKey(*event))
            return false;
        break;
    default:
        return false;
    }
    const bool is_checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return model->setData(index, is_checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void CCustomListItemDelegate::initStyleOption(QStyleOptionViewItem *option,
                                              const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (!IsCheckable(index))
        option->state &= ~QStyle::State_Enabled;
}

} // namespace Vantor
