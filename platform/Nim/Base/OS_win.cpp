// SPDX-License-Identifier: MIT
#include "Nim/Base/OS_p.h"

#include <windows.h>

namespace Nim::Base::OS {

bool SystemListSeparator(QString &separator)
{
    constexpr int kBufferLength = 64;
    wchar_t buffer[kBufferLength] = {};
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SLIST, buffer, kBufferLength) == 0)
        return false;
    separator = QString::fromWCharArray(buffer);
    return true;
}

bool SystemCapsLock()
{
    return (GetKeyState(VK_CAPITAL) & 1) != 0;
}

} // namespace Nim::Base::OS
