// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace BusinessCommon {

/// What the system calls a socket.
#ifdef _WIN32
using SocketHandle = std::uintptr_t;
#else
using SocketHandle = int;
#endif

/// \brief A second handle of a socket that another owner opens and closes as it likes.
///
/// A handle's number is used again once it is closed, so whoever wants to cut a connection of
/// another owner needs a handle of his own. Not synchronised.
class CSocketCutter
{
public:
    CSocketCutter() = default;
    CSocketCutter(const CSocketCutter &) = delete;
    CSocketCutter &operator=(const CSocketCutter &) = delete;
    ~CSocketCutter();

    /// \brief Hold \a socket from now on, and no longer the one before.
    void Watch(SocketHandle socket);
    /// \brief End the connection, under way or just being made; its owner sees it broken.
    void Cut();

private:
    void Release();

    SocketHandle copy_{};
    bool is_held_ = false;
};

/// \brief Keeps a connection that broke from ending the process, for this thread and scope.
///
/// Where writing to it raises a signal, the signal is held back and dropped; the write fails.
class CBrokenPipeGuard
{
public:
    CBrokenPipeGuard();
    ~CBrokenPipeGuard();
    CBrokenPipeGuard(const CBrokenPipeGuard &) = delete;
    CBrokenPipeGuard &operator=(const CBrokenPipeGuard &) = delete;

private:
    bool was_pending_ = false;
    bool was_blocked_ = true;
};

} // namespace BusinessCommon
