// SPDX-License-Identifier: MIT
#include "Nim/Base/FileSystem.h"
#include "Nim/Base/FileSystem_p.h"

#include <share.h>
#include <windows.h>

namespace Nim::Base::FileSystem {

std::FILE *OpenShared(const QString &path, const char *mode)
{
    return _wfsopen(path.toStdWString().c_str(), QString::fromLatin1(mode).toStdWString().c_str(),
                    _SH_DENYNO);
}

bool RenameWithoutReplacing(const char *source, const char *target)
{
    return MoveFileExA(source, target, 0) != 0;
}

} // namespace Nim::Base::FileSystem
