// SPDX-License-Identifier: MIT
#include "ui/DockManager/WindowWatch.h"

#include <QtCore/QEvent>
#include <QtWidgets/QWidget>

namespace Vantor {

void CWindowWatch::Watch(QWidget *widget)
{
    for (QWidget *const old : {widget_.data(), window_.data()}) {
        if (old) {
            old->removeEventFilter(this);
            old->disconnect(this);
        }
    }
    widget_ = widget;
    window_ = widget ? widget->window() : nullptr;
    for (QWidget *const watched : {widget_.data(), window_.data()}) {
        if (watched) {
            watched->installEventFilter(this); // once, also if both are the same
            connect(watched, &QObject::destroyed, this, &CWindowWatch::SignalDestroyed,
                    Qt::UniqueConnection);
        }
    }
}

bool CWindowWatch::IsAway() const
{
    return window_
           && (window_->isMinimized()
               || (window_->isHidden() && window_->testAttribute(Qt::WA_WState_ExplicitShowHide)));
}

bool CWindowWatch::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
        Q_EMIT SignalMoved();
        break;
    case QEvent::ParentChange: // it may be in another window now
        Watch(widget_);
        Q_EMIT SignalShownOrHidden();
        break;
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::WindowStateChange:
        Q_EMIT SignalShownOrHidden();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace Vantor
