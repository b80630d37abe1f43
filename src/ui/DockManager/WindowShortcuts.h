// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/qglobal.h>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QWidget;
QT_END_NAMESPACE

namespace Vantor {

// Activates `window` and then its action or shortcut with the key of `event`, as if `window` had
// had the focus. Qt itself offers a key to the shortcuts of the active window only. Sequences of
// several keys and the mnemonics of menus are not looked at.
//
// Returns false, and does nothing, if `window` has no enabled shortcut with that key.
bool ActivateShortcut(QWidget *window, const QKeyEvent &event);

} // namespace Vantor
