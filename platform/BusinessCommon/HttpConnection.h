// SPDX-License-Identifier: MIT
#pragma once

#include "BusinessCommon/NetExchange.h"

#include <chrono>
#include <string>

namespace BusinessCommon {

/// \brief Where and how to connect. A change needs a new connection.
struct NetServer
{
    std::string host;
    int port = 0;
    bool is_tls = false;
    std::string ca_file;
    bool is_certificate_checked = true;
    std::chrono::milliseconds connect_time{3000};
    std::chrono::milliseconds read_time{10000};
};

bool operator==(const NetServer &a, const NetServer &b);

/// \brief One kept-alive connection to the server, for one thread.
class CHttpConnection
{
public:
    explicit CHttpConnection(NetServer server);
    ~CHttpConnection();
    CHttpConnection(const CHttpConnection &) = delete;
    CHttpConnection &operator=(const CHttpConnection &) = delete;

    [[nodiscard]] const NetServer &Server() const { return server_; }

    /// \brief One request and its reply, see CNetCommManager::ClientSynSend().
    bool Exchange(ClientComm::ClientRecvInfo &recv, const ClientComm::ClientSendInfo &send,
                  const NetTask &task);

private:
    const NetServer server_;
    void *const multi_; // libcurl's, with the connection that is kept
};

/// \brief Break off the exchanges under way that have \a stop, or all of them when it is null, on
/// every thread. Any thread.
void AbortExchanges(const CNetStop *stop);

} // namespace BusinessCommon
