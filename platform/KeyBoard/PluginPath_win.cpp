// SPDX-License-Identifier: MIT
#include "KeyBoard/PluginPath.h"

#include <windows.h>

#include <QtCore/QFileInfo>

namespace KeyBoard {

QString LibraryFolder()
{
    HMODULE module = nullptr;
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS
                                | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            reinterpret_cast<LPCWSTR>(&LibraryFolder), &module))
        return {};
    wchar_t path[MAX_PATH] = {};
    if (GetModuleFileNameW(module, path, MAX_PATH) == 0)
        return {};
    return QFileInfo(QString::fromWCharArray(path)).absolutePath();
}

} // namespace KeyBoard
