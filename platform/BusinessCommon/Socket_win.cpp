// SPDX-License-Identifier: MIT
#include "BusinessCommon/Socket_p.h"

#include <windows.h>
#include <winsock2.h>

namespace BusinessCommon {

CSocketCutter::~CSocketCutter()
{
    Release();
}

void CSocketCutter::Watch(SocketHandle socket)
{
    Release();
    WSAPROTOCOL_INFOW info{};
    if (WSADuplicateSocketW(socket, GetCurrentProcessId(), &info) != 0)
        return;
    copy_ = WSASocketW(FROM_PROTOCOL_INFO, FROM_PROTOCOL_INFO, FROM_PROTOCOL_INFO, &info, 0,
                       WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT);
    is_held_ = copy_ != INVALID_SOCKET;
}

void CSocketCutter::Cut()
{
    if (is_held_)
        shutdown(copy_, SD_BOTH);
}

void CSocketCutter::Release()
{
    if (is_held_)
        closesocket(copy_);
    is_held_ = false;
}

// Windows has no such signal.
CBrokenPipeGuard::CBrokenPipeGuard() = default;
CBrokenPipeGuard::~CBrokenPipeGuard() = default;

} // namespace BusinessCommon
