// SPDX-License-Identifier: MIT
#include "app/Descriptors.h"

#include <fcntl.h>

namespace Client {

int CopyDescriptor(int descriptor)
{
    return fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
}

int OpenNowhere()
{
    return open("/dev/null", O_WRONLY | O_CLOEXEC);
}

} // namespace Client
