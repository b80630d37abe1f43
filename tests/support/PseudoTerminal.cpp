// SPDX-License-Identifier: MIT
#include "support/PseudoTerminal.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cstdlib>

CPseudoTerminal::CPseudoTerminal() : handle_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
{
    if (handle_ < 0)
        return;
    termios settings{};
    if (grantpt(handle_) != 0 || unlockpt(handle_) != 0 || tcgetattr(handle_, &settings) != 0) {
        close(handle_);
        handle_ = -1;
        return;
    }
    cfmakeraw(&settings); // before the reader opens it, no byte may be taken for an editing key
    tcsetattr(handle_, TCSANOW, &settings);
}

CPseudoTerminal::~CPseudoTerminal()
{
    if (handle_ >= 0)
        close(handle_);
}

QString CPseudoTerminal::Path() const
{
    char name[64] = "";
    return ptsname_r(handle_, name, sizeof name) == 0 ? QString::fromLocal8Bit(name) : QString();
}

void CPseudoTerminal::Write(const QByteArray &bytes)
{
    for (int written = 0; written < bytes.size();) {
        const auto count =
            write(handle_, bytes.constData() + written, size_t(bytes.size() - written));
        if (count <= 0)
            return;
        written += int(count);
    }
}

QByteArray CPseudoTerminal::Read()
{
    QByteArray bytes;
    pollfd waiting{handle_, POLLIN, 0};
    char block[256];
    while (poll(&waiting, 1, 0) == 1 && (waiting.revents & POLLIN)) {
        const auto length = read(handle_, block, sizeof block);
        if (length <= 0)
            break;
        bytes.append(block, int(length));
    }
    return bytes;
}
