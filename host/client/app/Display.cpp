// SPDX-License-Identifier: MIT
#include "app/Display.h"

#include <QtCore/QtGlobal>

#if !defined(Q_OS_WIN) && !defined(Q_OS_MACOS)
// Last: its macros have names such as None and Bool.
#include <X11/Xlib.h>
#endif

namespace Client {

#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
bool HasDisplay()
{
    return true;
}
#else
namespace {

bool IsSet(const char *variable)
{
    return !qEnvironmentVariableIsEmpty(variable);
}

} // namespace

bool HasDisplay()
{
    if (IsSet("QT_QPA_PLATFORM") || IsSet("WAYLAND_DISPLAY"))
        return true;
    if (!IsSet("DISPLAY"))
        return false;
    // The variable outlives its server, for instance in a terminal multiplexer.
    Display *const display = XOpenDisplay(nullptr);
    if (!display)
        return false;
    XCloseDisplay(display);
    return true;
}
#endif

} // namespace Client
