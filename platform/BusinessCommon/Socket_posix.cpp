// SPDX-License-Identifier: MIT
#include "BusinessCommon/Socket_p.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <csignal>
#include <ctime>

namespace BusinessCommon {
namespace {

sigset_t BrokenPipe()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGPIPE);
    return set;
}

bool IsPending()
{
    sigset_t pending;
    sigemptyset(&pending);
    sigpending(&pending);
    return sigismember(&pending, SIGPIPE) == 1;
}

} // namespace

CSocketCutter::~CSocketCutter()
{
    Release();
}

void CSocketCutter::Watch(SocketHandle socket)
{
    Release();
    copy_ = fcntl(socket, F_DUPFD_CLOEXEC, 0);
    is_held_ = copy_ >= 0;
}

void CSocketCutter::Cut()
{
    if (is_held_)
        shutdown(copy_, SHUT_RDWR);
}

void CSocketCutter::Release()
{
    if (is_held_)
        close(copy_);
    is_held_ = false;
}

CBrokenPipeGuard::CBrokenPipeGuard() : was_pending_(IsPending())
{
    const sigset_t set = BrokenPipe();
    sigset_t before;
    if (pthread_sigmask(SIG_BLOCK, &set, &before) == 0)
        was_blocked_ = sigismember(&before, SIGPIPE) == 1;
}

CBrokenPipeGuard::~CBrokenPipeGuard()
{
    if (was_blocked_)
        return;
    const sigset_t set = BrokenPipe();
    if (!was_pending_ && IsPending()) {
        const timespec at_once{};
        sigtimedwait(&set, nullptr, &at_once);
    }
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

} // namespace BusinessCommon
