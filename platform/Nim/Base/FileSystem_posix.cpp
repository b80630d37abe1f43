// SPDX-License-Identifier: MIT
#include "Nim/Base/FileSystem.h"
#include "Nim/Base/FileSystem_p.h"

#include <unistd.h>

#include <QtCore/QFile>

namespace Nim::Base::FileSystem {

std::FILE *OpenShared(const QString &path, const char *mode)
{
    const std::string close_on_exec = std::string(mode) + "e";
    return std::fopen(QFile::encodeName(path).constData(), close_on_exec.c_str());
}

bool RenameWithoutReplacing(const char *source, const char *target)
{
    // A hard link fails when the name is taken, on every file system that has links.
    return link(source, target) == 0 && unlink(source) == 0;
}

} // namespace Nim::Base::FileSystem
