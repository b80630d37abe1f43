// SPDX-License-Identifier: MIT
#include "KeyBoard/PluginPath.h"

#include <dlfcn.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace KeyBoard {

QString LibraryFolder()
{
    Dl_info info = {};
    if (!dladdr(reinterpret_cast<void *>(&LibraryFolder), &info) || !info.dli_fname)
        return {};
    return QFileInfo(QFile::decodeName(info.dli_fname)).absolutePath();
}

} // namespace KeyBoard
