// SPDX-License-Identifier: MIT
#include "Nim/Base/FileSystem.h"
#include "Nim/Base/FileSystem_p.h"

#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#include <windows.h>

#include <cerrno>

namespace Nim::Base::FileSystem {

std::FILE *OpenShared(const QString &path, const char *mode)
{
    // "N": child processes do not inherit it.
    const std::wstring not_inherited = QString::fromLatin1(mode).toStdWString() + L"N";
    return _wfsopen(path.toStdWString().c_str(), not_inherited.c_str(), _SH_DENYNO);
}

// No such streams here: what a library leaves open after an error stays open.
std::FILE *WatchClosing(std::FILE *, bool *)
{
    return nullptr;
}

bool IsWritable(const char *path)
{
    return _access(path, 2) == 0;
}

int CreateLike(const char *path, const char *)
{
    const int file =
        _open(path, _O_WRONLY | _O_CREAT | _O_EXCL | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
    if (file < 0)
        return errno;
    _close(file);
    return 0;
}

bool RenameWithoutReplacing(const char *source, const char *target)
{
    return MoveFileExA(source, target, 0) != 0;
}

} // namespace Nim::Base::FileSystem
