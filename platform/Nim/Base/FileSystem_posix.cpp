// SPDX-License-Identifier: MIT
#include "Nim/Base/FileSystem.h"
#include "Nim/Base/FileSystem_p.h"

#include <fcntl.h>
#include <unistd.h>

#include <QtCore/QFile>

#include <cerrno>
#include <cstdio>

namespace Nim::Base::FileSystem {

std::FILE *OpenShared(const QString &path, const char *mode)
{
    const std::string close_on_exec = std::string(mode) + "e";
    return std::fopen(QFile::encodeName(path).constData(), close_on_exec.c_str());
}

bool RenameWithoutReplacing(const char *source, const char *target)
{
    if (renameat2(AT_FDCWD, source, AT_FDCWD, target, RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // A file system without that operation: a hard link fails too when the name is taken.
    if (link(source, target) != 0)
        return false;
    unlink(source);
    return true;
}

} // namespace Nim::Base::FileSystem
