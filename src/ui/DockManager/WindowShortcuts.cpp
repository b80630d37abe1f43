// SPDX-License-Identifier: MIT
#include "ui/DockManager/WindowShortcuts.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QMenu>
#include <QtWidgets/QShortcut>

#include <algorithm>

namespace Vantor {
namespace {

// Qt finds shortcuts of the application wherever the focus is; those of a widget need the focus.
bool IsOfWindow(Qt::ShortcutContext context)
{
    return context == Qt::WindowShortcut;
}

// A menu offers its actions while it is closed, too, if its own entry is offered.
bool IsOffered(const QAction &action, const QWidget *window)
{
    const auto widgets = action.associatedWidgets();
    return action.isEnabled() && action.isVisible()
           && std::any_of(widgets.begin(), widgets.end(), [window](const QWidget *widget) {
                  if (const auto *const menu = qobject_cast<const QMenu *>(widget))
                      return IsOffered(*menu->menuAction(), window);
                  return widget->window() == window && widget->isVisible() && widget->isEnabled();
              });
}

QAction *FindAction(QWidget *window, const QKeySequence &keys)
{
    auto widgets = window->findChildren<QWidget *>();
    widgets.append(window);
    for (const QWidget *const widget : qAsConst(widgets)) {
        const auto actions = widget->actions();
        for (QAction *const action : actions) {
            if (IsOfWindow(action->shortcutContext()) && action->shortcuts().contains(keys)
                && IsOffered(*action, window))
                return action;
        }
    }
    return nullptr;
}

QShortcut *FindShortcut(const QWidget *window, const QKeySequence &keys)
{
    const auto shortcuts = window->findChildren<QShortcut *>();
    for (QShortcut *const shortcut : shortcuts) {
        const QWidget *const widget = shortcut->parentWidget();
        if (IsOfWindow(shortcut->context()) && shortcut->key() == keys && shortcut->isEnabled()
            && widget->window() == window && widget->isVisible() && widget->isEnabled())
            return shortcut;
    }
    return nullptr;
}

} // namespace

bool ActivateShortcut(QWidget *window, const QKeyEvent &event)
{
    const QKeySequence keys(int(event.modifiers() & ~Qt::KeypadModifier) | event.key());
    if (keys.isEmpty()) // from an input method; a shortcut without keys would match
        return false;
    if (QAction *const action = FindAction(window, keys)) {
        if (event.isAutoRepeat() && !action->autoRepeat())
            return true;
        window->activateWindow();
        action->trigger();
        return true;
    }
    if (QShortcut *const shortcut = FindShortcut(window, keys)) {
        if (event.isAutoRepeat() && !shortcut->autoRepeat())
            return true;
        window->activateWindow();
        Q_EMIT shortcut->activated();
        return true;
    }
    return false;
}

} // namespace Vantor
