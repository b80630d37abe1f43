// SPDX-License-Identifier: MIT
#pragma once

#include "BusinessCommon/Socket_p.h"

#include <ClientComm/ClientInfo.h>

#include <chrono>
#include <memory>
#include <mutex>
#include <string>

namespace httplib {

class Client;
struct Request;

} // namespace httplib

namespace BusinessCommon {

/// \brief Where and how to connect. A connection is made anew when it changes.
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

    /// \brief One request and its reply, as CNetCommManager::ClientSynSend() tells it.
    bool Exchange(ClientComm::ClientRecvInfo &recv, const ClientComm::ClientSendInfo &send,
                  const std::string &session);

    /// \brief Break off the exchange under way, if any. Any thread.
    void Cut();

private:
    [[nodiscard]] int SendOnce(httplib::Request &request, ClientComm::ClientRecvInfo &recv,
                               int &status);

    const NetServer server_;
    std::unique_ptr<httplib::Client> client_;
    bool is_aborted_ = false; // the last request was, by Abort()
    std::mutex cutter_mutex_;
    CSocketCutter cutter_; // under cutter_mutex_
};

/// \brief Break off every exchange under way, on every thread.
void CutAllExchanges();

} // namespace BusinessCommon
