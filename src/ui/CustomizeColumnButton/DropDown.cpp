// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/DropDown.h"

#include "ui/CustomizeColumnButton/DropDownPlace.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QStyle>
#include <QtWidgets/QWidget>

namespace Vantor {

void ShowDropDown(QWidget &drop_down, const QWidget &button, const QSize &size, QWidget &first)
{
    const QWidget *const room_of =
        drop_down.isWindow() ? button.window() : drop_down.parentWidget();
    const QWidget *const space = drop_down.isWindow() ? nullptr : room_of; // null: the screen
    const auto place_of = [space](const QWidget &widget) {
        const QPoint corner = widget.mapToGlobal(QPoint());
        return QRect(space ? space->mapFromGlobal(corner) : corner, widget.size());
    };
    const QRect room = place_of(*room_of);
    QSize wanted = size;
    if (wanted.height() > room.height()) // a scroll bar will be there
        wanted.rwidth() +=
            drop_down.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &drop_down);
    drop_down.setGeometry(
        DropDownPlace(place_of(button), wanted, room, drop_down.layoutDirection()));
    drop_down.show();
    drop_down.raise();
    first.setFocus(Qt::PopupFocusReason);
}

bool CloseDropDownByKey(QWidget &drop_down, QWidget *button, const QKeyEvent &event)
{
    if (event.key() != Qt::Key_Escape)
        return false;
    drop_down.hide();
    if (button)
        button->setFocus(Qt::PopupFocusReason);
    return true;
}

} // namespace Vantor
