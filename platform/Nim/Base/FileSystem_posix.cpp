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
    if (link(source, target) == 0) {
        unlink(source);
        return true;
    }
    if (errno != EPERM && errno != ENOSYS && errno != EOPNOTSUPP)
        return false;
    // One without hard links, such as a stick's: take the name with an empty file, replace that.
    const int reserved = open(target, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (reserved < 0)
        return false;
    close(reserved);
    if (rename(source, target) == 0)
        return true;
    const int error = errno;
    unlink(target);
    errno = error;
    return false;
}

} // namespace Nim::Base::FileSystem
