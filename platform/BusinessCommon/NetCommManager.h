// SPDX-License-Identifier: MIT
#pragma once

#include "BusinessCommon/NetErrors.h"

#include <BaseExport.h>
#include <ClientComm/ClientInfo.h>
#include <Nim/Base/Singleton.h>

#include <functional>
#include <string>

namespace BusinessCommon {

class CNetCommManager;
class CNetStop;

} // namespace BusinessCommon

// Threads may still ask it when the process ends.
template <> struct Nim::Base::IsKeptAtUnload<BusinessCommon::CNetCommManager> : std::true_type
{
};

extern template class VANTOR_BASE_EXPORT Nim::Base::CSingleton<BusinessCommon::CNetCommManager>;

namespace BusinessCommon {

/// \brief The exchange with the management server, reached through
/// Nim::Base::CSingleton<CNetCommManager>::Instance().
///
/// HTTP/1.1 (RFC 9112) or HTTPS. Each thread that sends has one connection of its own, kept alive
/// between requests, so that no thread waits behind a slow request of another one. A reply is read
/// within the limits of NetErrors.h, because a server may be hostile. All operations may be called
/// from any thread.
class VANTOR_BASE_EXPORT CNetCommManager : public Nim::Base::CSingleton<CNetCommManager>
{
    friend class Nim::Base::CSingleton<CNetCommManager>;
    CNetCommManager() = default;

public:
    /// \brief Carries one request out and fills in the reply, as ClientSynSend() does. Called on
    /// the threads that send.
    using Transport =
        std::function<bool(ClientComm::CClientRecvInfo &, const ClientComm::CClientSendInfo &)>;

    /// \brief Send \a send and wait for the reply, at most the times of SetTimeouts().
    ///
    /// \param recv  its Receive_Data is the body of the reply, its Error_code is all 0 for a reply
    ///              of status 2xx; else the words at "/ResponseStatus/ErrorModule" and
    ///              "/ResponseStatus/ErrorCode" of the reply, when it has such, else
    ///              {kModuleHttp, status}; {kModuleNetwork, NetErrorCode, kNetSubSystem} when no
    ///              reply came.
    /// \param flags not used, 0.
    /// \return true when the exchange took place, whatever the status of the reply.
    bool ClientSynSend(ClientComm::CClientRecvInfo &recv, const ClientComm::CClientSendInfo &send,
                       int flags = 0);

    /// \brief The same for \a session instead of the one that is set, for example to end it.
    bool ClientSynSendAs(const std::string &session, ClientComm::CClientRecvInfo &recv,
                         const ClientComm::CClientSendInfo &send);

    /// \brief The same, until \a stop breaks it off. A transport that the host has set cannot
    /// be stopped: it runs to its end, and its reply is dropped.
    bool ClientSynSendUntil(const CNetStop &stop, ClientComm::CClientRecvInfo &recv,
                            const ClientComm::CClientSendInfo &send);

    /// \brief Where to send; without it every exchange fails with kNetConnect.
    /// \param ca_file certificates to trust (PEM) instead of the system's; empty: the system's.
    static void SetServer(const std::string &host, int port, bool tls = false,
                          const std::string &ca_file = {});

    /// \brief Whether to check the server's certificate and host name; true by default. Pass
    /// false only in a network without attackers.
    static void SetCertificateCheck(bool is_checked);

    /// \brief Longest times in milliseconds: to look up the host, connect and agree on TLS (default
    /// 3000), and from then on until the reply is complete (default 10000). Less than 1 counts
    /// as 1.
    static void SetTimeouts(int connect_ms, int read_ms);

    /// \brief The session that later requests belong to, sent as "Authorization: Bearer token" (RFC
    /// 6750). An empty \a token sends no such header.
    static void SetSession(const std::string &token);
    /// \brief The token of SetSession(); empty without a session.
    [[nodiscard]] static std::string Session();

    /// \brief Let \a transport do all exchanges from now on; an empty function restores HTTP(S). An
    /// exception it throws counts as false with kNetFailed.
    static void SetTransport(Transport transport);

    /// \brief Break off all exchanges under way, on every thread: they end with kNetBroken. Later
    /// ones are sent as ever. Called when the application object ends.
    static void Abort();
};

} // namespace BusinessCommon
