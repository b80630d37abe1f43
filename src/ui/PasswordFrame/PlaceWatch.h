// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>

namespace Vantor {

/// \brief Filters the events of a widget and of its parents up to the window. The place of the
/// widget on the screen changes with the place of each of them.
class CPlaceWatch
{
public:
    /// \brief Install \a filter on \a widget and its present parents, and remove it from those of
    /// the last call.
    void Watch(QWidget *widget, QObject *filter)
    {
        for (const QPointer<QWidget> &watched : qAsConst(watched_)) {
            if (watched)
                watched->removeEventFilter(filter);
        }
        watched_.clear();
        for (; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
            widget->installEventFilter(filter);
            watched_.append(widget);
        }
    }

private:
    QVector<QPointer<QWidget>> watched_;
};

} // namespace Vantor
