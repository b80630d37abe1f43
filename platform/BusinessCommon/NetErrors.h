// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace BusinessCommon {

/// Modules of the error codes that CNetCommManager::ClientSynSend() fills in.
enum NetErrorModule : int {
    kModuleNetwork = 2, ///< the code is a NetErrorCode
    kModuleHttp =
        3, ///< the code is the HTTP status, 300 to 599, of a reply without words of its own
};

/// Why no reply came. The third word, the subsystem, is then kNetSubSystem.
enum NetErrorCode : int {
    kNetTimeout = 20,     ///< nothing, or not all of it, within the time
    kNetConnect = 21,     ///< no server listens there, or the name is unknown
    kNetTls = 22,         ///< the server speaks no TLS we know
    kNetCertificate = 23, ///< the certificate is not signed by whom we trust, or for another host
    kNetBroken = 24,      ///< the connection broke, or Abort() cut it, or the reply is no HTTP
    kNetTooLarge = 25,    ///< the reply or its head is larger than the limits below
    kNetBadRequest = 26,  ///< the URL, the method or the session cannot be sent
    kNetFailed = 27,      ///< anything else
    kNetBadReply = 28,    ///< the reply is no document, or lacks a needed member
};

constexpr int kNetSubSystem = 2000;
constexpr std::size_t kMaximumReplyBytes = std::size_t(16) << 20;
/// Status line, header fields and trailers of a reply together, interim replies included.
constexpr std::size_t kMaximumReplyHeadBytes = std::size_t(32) << 10;
constexpr int kMaximumReplyHeadLines = 200;

} // namespace BusinessCommon
