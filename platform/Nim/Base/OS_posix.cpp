// SPDX-License-Identifier: MIT
#include "Nim/Base/OS_p.h"

#include <QtCore/QLocale>

#include <memory>

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

bool SystemCapsLock()
{
    const std::unique_ptr<Display, int (*)(Display *)> display(XOpenDisplay(nullptr),
                                                               XCloseDisplay);
    if (!display)
        return false;
    constexpr unsigned kCapsLockIndicator = 1;
    unsigned indicators = 0;
    return XkbGetIndicatorState(display.get(), XkbUseCoreKbd, &indicators) == Success
           && (indicators & kCapsLockIndicator) != 0;
}

} // namespace Nim::Base::OS
