// SPDX-License-Identifier: MIT
#include "BusinessCommon/NetCommManager.h"

#include "BusinessCommon/ApplicationEnd.h"
#include "BusinessCommon/HttpConnection.h"
#include "BusinessCommon/NetExchange.h"
#include "BusinessCommon/NetStop.h"
#include "Nim/Base/Log.h"
#include "Nim/Base/Replaceable.h"
#include "Nim/Base/SecretText.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <memory>
#include <mutex>

template class Nim::Base::CSingleton<BusinessCommon::CNetCommManager>;

namespace BusinessCommon {
namespace {

using ClientComm::CClientRecvInfo;
using ClientComm::CClientSendInfo;
using CTransport =
    Nim::Base::CReplaceable<bool(const NetTask &, CClientRecvInfo &, const CClientSendInfo &)>;

// What every thread asks for when it sends; all under the mutex.
struct Settings
{
    std::mutex mutex;
    NetServer server;
    int server_number = 0; // of the server that is set now
    Nim::Base::SecretText session;
};

Settings &CurrentSettings()
{
    static auto *const settings = new Settings; // threads may send until the process ends
    return *settings;
}

template <class Change> void ChangeServer(Change &&change)
{
    Settings &settings = CurrentSettings();
    const std::lock_guard<std::mutex> lock(settings.mutex);
    change(settings.server);
    ++settings.server_number;
}

NetServer CurrentServer()
{
    Settings &settings = CurrentSettings();
    const std::lock_guard<std::mutex> lock(settings.mutex);
    return settings.server;
}

bool SendByHttp(const NetTask &task, CClientRecvInfo &recv, const CClientSendInfo &send)
{
    thread_local std::unique_ptr<CHttpConnection> connection;
    const NetServer server = CurrentServer();
    if (!connection || !(connection->Server() == server))
        connection = std::make_unique<CHttpConnection>(server);
    return connection->Exchange(*recv.GetDataPtr(), send.Read(), task);
}

CTransport &CurrentTransport()
{
    static auto *const transport = new CTransport(SendByHttp);
    return *transport;
}

} // namespace

int CurrentServerNumber()
{
    Settings &settings = CurrentSettings();
    const std::lock_guard<std::mutex> lock(settings.mutex);
    return settings.server_number;
}

bool ExchangeAs(const NetTask &task, CClientRecvInfo &recv, const CClientSendInfo &send)
{
    AtApplicationEnd(EndStep::BreakOff, CNetCommManager::Abort);
    try {
        const bool is_answered = (*CurrentTransport().Get())(task, recv, send);
        if (!task.stop || !task.stop->IsStopped())
            return is_answered;
        recv.SetVal_Receive_Data({});
        recv.SetVal_Error_code({kModuleNetwork, kNetBroken, kNetSubSystem});
        return false;
    } catch (const std::exception &failure) {
        Nim::Base::Log::WriteFramed("BusinessCommon::CNetCommManager::ClientSynSend", __FILE__,
                                    __LINE__, Nim::Base::Log::kError, "ClientWarningAndMore",
                                    "Stopped by an exception: %s", failure.what());
    } catch (...) { // as above, without words
    }
    recv.SetVal_Error_code({kModuleNetwork, kNetFailed, kNetSubSystem});
    return false;
}

bool CNetCommManager::ClientSynSend(CClientRecvInfo &recv, const CClientSendInfo &send,
                                    int /*flags*/)
{
    return ExchangeAs({Session()}, recv, send);
}

bool CNetCommManager::ClientSynSendAs(const std::string &session, CClientRecvInfo &recv,
                                      const CClientSendInfo &send)
{
    return ExchangeAs({session}, recv, send);
}

bool CNetCommManager::ClientSynSendUntil(const CNetStop &stop, CClientRecvInfo &recv,
                                         const CClientSendInfo &send)
{
    return ExchangeAs({Session(), &stop}, recv, send);
}

void CNetCommManager::SetServer(const std::string &host, int port, bool tls,
                                const std::string &ca_file)
{
    ChangeServer([&](NetServer &server) {
        server.host = host;
        server.port = port;
        server.is_tls = tls;
        server.ca_file = ca_file;
    });
}

void CNetCommManager::SetCertificateCheck(bool is_checked)
{
    ChangeServer([is_checked](NetServer &server) { server.is_certificate_checked = is_checked; });
}

void CNetCommManager::SetTimeouts(int connect_ms, int read_ms)
{
    ChangeServer([connect_ms, read_ms](NetServer &server) {
        server.connect_time = std::chrono::milliseconds(std::max(connect_ms, 1));
        server.read_time = std::chrono::milliseconds(std::max(read_ms, 1));
    });
}

void CNetCommManager::SetSession(const std::string &token)
{
    Settings &settings = CurrentSettings();
    const std::lock_guard<std::mutex> lock(settings.mutex);
    settings.session = token;
}

std::string CNetCommManager::Session()
{
    Settings &settings = CurrentSettings();
    const std::lock_guard<std::mutex> lock(settings.mutex);
    return settings.session;
}

void CNetCommManager::SetTransport(Transport transport)
{
    if (!transport) {
        CurrentTransport().Set(nullptr);
        return;
    }
    CurrentTransport().Set([transport = std::move(transport)](
                               const NetTask &, CClientRecvInfo &recv,
                               const CClientSendInfo &send) { return transport(recv, send); });
}

void CNetCommManager::Abort()
{
    AbortExchanges(nullptr);
}

void CNetStop::Stop()
{
    is_stopped_ = true;
    AbortExchanges(this);
}

} // namespace BusinessCommon
