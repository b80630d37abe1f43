// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/DropDownPlace.h"

#include <algorithm>

namespace Vantor {
namespace {

// The first coordinate of `length` units inside [low, low + room) that is nearest to `wanted`.
int Shifted(int wanted, int length, int low, int room)
{
    return std::clamp(wanted, low, std::max(low, low + room - length));
}

} // namespace

QRect DropDownPlace(const QRect &button, const QSize &size, const QRect &room,
                    Qt::LayoutDirection direction)
{
    const QSize fitting = room.isEmpty() ? size : size.boundedTo(room.size());
    const int below = button.y() + button.height();
    const int left =
        direction == Qt::RightToLeft ? button.x() + button.width() - fitting.width() : button.x();
    if (room.isEmpty())
        return {QPoint(left, below), fitting};
    const int room_below = room.y() + room.height() - below;
    const int room_above = button.y() - room.y();
    const bool is_above = fitting.height() > room_below && fitting.height() <= room_above;
    const int top = is_above ? button.y() - fitting.height() : below;
    return {QPoint(Shifted(left, fitting.width(), room.x(), room.width()),
                   Shifted(top, fitting.height(), room.y(), room.height())),
            fitting};
}

} // namespace Vantor
