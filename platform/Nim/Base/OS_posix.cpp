// SPDX-License-Identifier: MIT
#include "Nim/Base/OS_p.h"

#include <QtCore/QLocale>

// Last: Xlib defines macros such as Bool and None.
#include <X11/XKBlib.h>

namespace Nim::Base::OS {

// POSIX locales have no list separator. Spreadsheets use semicolons where the decimal point is a
// comma.
bool SystemListSeparator(QString &separator)
{
    separator = QLocale::system().decimalPoint() == QLatin1Char(',') ? QStringLiteral(";")
                                                                     : QStringLiteral(",");
    return true;
}

namespace {

constexpr char kCapsLock[] = "Caps Lock";

struct Keyboard
{
    Display *display;
    Atom caps_lock; // of the indicator
};

// The connection stays open, because this is asked at each change of the focus. A server that is
// not there yet is tried again.
const Keyboard *OpenKeyboard()
{
    static Keyboard keyboard{nullptr, 0};
    if (!keyboard.display)
        keyboard.display = XOpenDisplay(nullptr);
    if (!keyboard.display)
        return nullptr;
    if (keyboard.caps_lock == 0)
        keyboard.caps_lock = XInternAtom(keyboard.display, kCapsLock, True);
    return &keyboard;
}

} // namespace

bool SystemCapsLock()
{
    const Keyboard *const keyboard = OpenKeyboard();
    Bool is_on = False;
    return keyboard && keyboard->caps_lock != 0
           && XkbGetNamedIndicator(keyboard->display, keyboard->caps_lock, nullptr, &is_on, nullptr,
                                   nullptr)
           && is_on;
}

} // namespace Nim::Base::OS
