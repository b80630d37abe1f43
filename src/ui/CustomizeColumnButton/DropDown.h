// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QSize;
class QWidget;
QT_END_NAMESPACE

namespace Vantor {

// How the drop-downs of this folder open and close.

/// \brief Show \a drop_down in \a size below \a button, or above it, inside the button's window if
/// the drop-down is a window, else inside its parent; see DropDownPlace(). Gives \a first the
/// focus.
void ShowDropDown(QWidget &drop_down, const QWidget &button, const QSize &size, QWidget &first);

/// \brief Escape closes \a drop_down and gives the focus back to \a button, which may be null.
/// \return false for any other key.
bool CloseDropDownByKey(QWidget &drop_down, QWidget *button, const QKeyEvent &event);

} // namespace Vantor
