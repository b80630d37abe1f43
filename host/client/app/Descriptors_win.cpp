// SPDX-License-Identifier: MIT
#include "app/Descriptors.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace Client {

int CopyDescriptor(int descriptor)
{
    const int copy = _dup(descriptor);
    if (copy >= 0)
        SetHandleInformation(reinterpret_cast<HANDLE>(_get_osfhandle(copy)), HANDLE_FLAG_INHERIT,
                             0);
    return copy;
}

int OpenNowhere()
{
    return _open("NUL", _O_WRONLY | _O_NOINHERIT);
}

} // namespace Client
