// SPDX-License-Identifier: MIT
// What hides a dock: clicks outside, Escape, and another application in front.
#include "common/ForwardEvents.h"
#include "common/LogMacro.h"
#include "ui/DockManager/AbstractDockFrame.h"
#include "ui/DockManager/DockWidget_p.h"
#include "ui/DockManager/WindowShortcuts.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

namespace Vantor {
namespace {

// Goes on from a dialog to its owner.
template <class Condition> bool AnyOwner(const QWidget *widget, Condition condition)
{
    while (widget && !condition(widget))
        widget = widget->parentWidget();
    return widget != nullptr;
}

} // namespace

VANTOR_FORWARD_EVENT(CDockWidget, QFrame)

// On the application from the end of the slide on, until the dock is hidden.
bool CDockWidget::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        OnMousePress(watched, static_cast<QMouseEvent *>(event)->pos());
        break;
    case QEvent::ApplicationStateChange:
        OnApplicationState(static_cast<QApplicationStateChangeEvent *>(event)->applicationState());
        break;
    case QEvent::Show:
        OnWindowShown(qobject_cast<QWidget *>(watched));
        break;
    default:
        break;
    }
    return QFrame::eventFilter(watched, event);
}

void CDockWidget::OnMousePress(QObject *watched, const QPoint &position)
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::eventFilter";
    const CAbstractDockFrame *const frame = d_ptr_->Content();
    bool hides = !frame || frame->IsAutoHide();
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE, "QEvent::MouseButtonPress[x:%d][y:%d]",
               position.x(), position.y());
    // One click comes once for each receiver: the native window, which is no widget, the widget,
    // and its parents until one of them accepts it.
    const auto *const widget = qobject_cast<QWidget *>(watched);
    if (!widget)
        return;
    if (Owns(widget))
        hides = false;
    const QPoint global = widget->mapToGlobal(position);
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "pt_global_pos[x:%d][y:%d]", global.x(),
               global.y());
    const bool is_hiding = d_ptr_->phase_ == DockPhase::SlidingOut;
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "pt_global_pos[x:%d][y:%d]", int(hides),
               int(is_hiding));
    if (rect().contains(mapFromGlobal(global)) || !hides || is_hiding)
        return;
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "this->geometry().contains");
    HideInAnimation();
}

// Whether `widget` is in the panel, in its dialogs and menus, or in what those opened.
bool CDockWidget::Owns(const QWidget *widget) const
{
    return AnyOwner(widget, [this](const QWidget *owner) {
        return owner == this || owner->objectName() == QLatin1String(kDockInnerName)
               || d_ptr_->vec_opened_.contains(const_cast<QWidget *>(owner));
    });
}

// A menu or a message box without a parent belongs to the panel if the panel had the focus when it
// was shown.
void CDockWidget::OnWindowShown(QWidget *window)
{
    if (!window || !window->isWindow() || window->parentWidget() || window == this)
        return;
    d_ptr_->vec_opened_.removeAll(window);
    const Qt::WindowType type = window->windowType();
    const bool is_transient = type == Qt::Popup || type == Qt::Dialog || type == Qt::Sheet;
    if (is_transient && Owns(QApplication::focusWidget()))
        d_ptr_->vec_opened_.append(window);
}

void CDockWidget::OnApplicationState(Qt::ApplicationState state)
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::eventFilter";
    if (state != Qt::ApplicationInactive && state != Qt::ApplicationHidden)
        return;
    const QWidget *const modal = QApplication::activeModalWidget();
    if (!modal) {
        hide();
        // One blank more than below: log readers of hosts look for both texts.
        VANTOR_LOG(kFunction, 4, VANTOR_LOG_WARNING,
                   "Activate Detail Widget,app hide. add by vtq.");
    } else if (!Owns(modal)) {
        hide();
        VANTOR_LOG(kFunction, 4, VANTOR_LOG_WARNING, "Activate Detail Widget,app hide.add by vtq.");
    }
}

void CDockWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        HideInAnimation();
        return;
    }
    QWidget *const window = d_ptr_->ptr_window_watch_->Window();
    // A child's keys go to its window by themselves.
    if (!isWindow() || !window || !ActivateShortcut(window, *event))
        QFrame::keyPressEvent(event);
}

} // namespace Vantor
