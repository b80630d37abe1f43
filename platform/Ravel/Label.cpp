// SPDX-License-Identifier: MIT
#include "Ravel/Label.h"

#include <QtGui/QMouseEvent>

#include <utility>

namespace Ravel {

CLabel::~CLabel() = default;

void CLabel::mousePressEvent(QMouseEvent *event)
{
    is_pressed_ = event->button() == Qt::LeftButton;
    QLabel::mousePressEvent(event);
    if (is_pressed_)
        event->accept(); // otherwise the widget behind gets the release
}

void CLabel::mouseReleaseEvent(QMouseEvent *event)
{
    const bool is_click = event->button() == Qt::LeftButton && std::exchange(is_pressed_, false)
                          && rect().contains(event->pos());
    QLabel::mouseReleaseEvent(event);
    if (is_click)
        Q_EMIT SignalMouseClicked(); // last: a slot may delete the label
}

} // namespace Ravel
