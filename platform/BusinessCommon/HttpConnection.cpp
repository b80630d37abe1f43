// SPDX-License-Identifier: MIT
#include "BusinessCommon/HttpConnection.h"

#include "BusinessCommon/NetCommManager.h"
#include "ClientComm/RapidJsonProto.h"
#include "Nim/Base/Encrypt.h"

#include <httplib.h>

#include <algorithm>
#include <array>
#include <condition_variable>
#include <map>
#include <thread>
#include <tuple>

namespace BusinessCommon {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto kCutAgainTime = 50ms;

struct CodeOfError
{
    httplib::Error error;
    int code;
};

constexpr CodeOfError kCodes[] = {
    {httplib::Error::Connection, kNetConnect},
    {httplib::Error::BindIPAddress, kNetConnect},
    {httplib::Error::ConnectionTimeout, kNetTimeout},
    {httplib::Error::Read, kNetBroken},
    {httplib::Error::Write, kNetBroken},
    {httplib::Error::SSLConnection, kNetTls},
    {httplib::Error::SSLLoadingCerts, kNetCertificate},
    {httplib::Error::SSLServerVerification, kNetCertificate},
};

constexpr std::array<const char *, 4> kMethods = {"GET", "PUT", "POST", "DELETE"};
constexpr int kPatternXml = 2;
constexpr int kFirstFailure = 300;

int CodeOf(httplib::Error error)
{
    for (const CodeOfError &entry : kCodes) {
        if (entry.error == error)
            return entry.code;
    }
    return kNetFailed;
}

// The exchanges under way, and a thread that ends those which take too long: the library's own
// timeouts are for each read, so a server that sends a byte now and then would keep a thread for
// ever.
class CExchanges
{
public:
    enum class Cut { No, Late, Aborted };

    static CExchanges &Instance()
    {
        static auto *const exchanges = new CExchanges; // threads may send until the process ends
        return *exchanges;
    }

    void Begin(CHttpConnection *connection, Clock::time_point deadline)
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (!is_watched_)
            std::thread(&CExchanges::Watch, this).detach();
        is_watched_ = true;
        active_[connection] = {deadline, Cut::No};
        changed_.notify_one();
    }

    Cut End(CHttpConnection *connection)
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        const auto entry = active_.find(connection);
        const Cut cut = entry->second.cut;
        active_.erase(entry);
        return cut;
    }

    void AbortAll()
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        for (auto &[connection, exchange] : active_)
            exchange = {Clock::now(), Cut::Aborted};
        changed_.notify_one();
    }

private:
    struct Exchange
    {
        Clock::time_point deadline;
        Cut cut = Cut::No;
    };

    [[noreturn]] void Watch()
    {
        std::unique_lock<std::mutex> lock(mutex_);
        for (;;) {
            if (active_.empty()) {
                changed_.wait(lock);
                continue;
            }
            auto next = Clock::time_point::max();
            for (auto &[connection, exchange] : active_) {
                if (exchange.deadline <= Clock::now()) {
                    connection->Cut();
                    if (exchange.cut == Cut::No)
                        exchange.cut = Cut::Late;
                    // It may just be about to open its socket.
                    exchange.deadline = Clock::now() + kCutAgainTime;
                }
                next = std::min(next, exchange.deadline);
            }
            changed_.wait_until(lock, next);
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::map<CHttpConnection *, Exchange> active_;
    bool is_watched_ = false;
};

std::string AddressOf(const NetServer &server)
{
    const bool is_ipv6 = server.host.find(':') != std::string::npos;
    return (server.is_tls ? "https://" : "http://")
           + (is_ipv6 ? '[' + server.host + ']' : server.host) + ':' + std::to_string(server.port);
}

bool CanBeSent(const ClientComm::ClientSendInfo &send, const std::string &session)
{
    const auto is_plain = [](char c) { return c > ' ' && c < '\x7f'; };
    return !send.URL.empty() && send.URL.front() == '/'
           && std::find(kMethods.begin(), kMethods.end(), send.Method) != kMethods.end()
           && std::all_of(session.begin(), session.end(), is_plain);
}

httplib::Request RequestOf(const ClientComm::ClientSendInfo &send, const std::string &session)
{
    httplib::Request request;
    request.method = send.Method;
    request.path = send.URL;
    request.body = send.Request_Data;
    if (!send.Request_Data.empty()) {
        request.set_header("Content-Type", send.Pattern == kPatternXml
                                               ? "application/xml; charset=utf-8"
                                               : "application/json; charset=utf-8");
    }
    if (!session.empty())
        request.set_header("Authorization", "Bearer " + session);
    return request;
}

Nim::Base::Error::ErrorCode ErrorOf(int status, const std::string &body)
{
    if (status < kFirstFailure)
        return {};
    ClientComm::CRapidJsonProto reply;
    if (reply.Load(body)) {
        const int module = reply.GetInt("/ResponseStatus/ErrorModule");
        const int code = reply.GetInt("/ResponseStatus/ErrorCode");
        if (module > 0 && code > 0)
            return {module, code, 0};
    }
    return {kModuleHttp, status, 0};
}

} // namespace

bool operator==(const NetServer &a, const NetServer &b)
{
    const auto fields = [](const NetServer &server) {
        return std::tie(server.host, server.port, server.is_tls, server.ca_file,
                        server.is_certificate_checked, server.connect_time, server.read_time);
    };
    return fields(a) == fields(b);
}

CHttpConnection::CHttpConnection(NetServer server)
    : server_(std::move(server)), client_(std::make_unique<httplib::Client>(AddressOf(server_)))
{
    client_->set_keep_alive(true);
    client_->set_tcp_nodelay(true);
    client_->set_connection_timeout(server_.connect_time);
    client_->set_read_timeout(server_.read_time);
    client_->set_write_timeout(server_.read_time);
    client_->set_socket_options([this](auto socket) {
        const std::lock_guard<std::mutex> lock(cutter_mutex_);
        cutter_.Watch(socket);
    });
    client_->enable_server_certificate_verification(server_.is_certificate_checked);
    if (!server_.ca_file.empty())
        client_->set_ca_cert_path(server_.ca_file);
}

CHttpConnection::~CHttpConnection()
{
    const CBrokenPipeGuard guard; // TLS says goodbye
    client_.reset();
}

bool CHttpConnection::Exchange(ClientComm::ClientRecvInfo &recv,
                               const ClientComm::ClientSendInfo &send, const std::string &session)
{
    recv.Receive_Data.clear();
    int status = 0;
    int code = kNetBadRequest;
    if (CanBeSent(send, session)) {
        const CBrokenPipeGuard guard;
        httplib::Request request = RequestOf(send, session);
        const bool was_open = client_->is_socket_open() != 0;
        code = SendOnce(request, recv, status);
        // The server may have closed the kept connection at that very moment. What can be sent
        // twice is sent again.
        if (code == kNetBroken && !is_aborted_ && was_open && send.Method != "POST"
            && recv.Receive_Data.empty())
            code = SendOnce(request, recv, status);
        Nim::Base::Encrypt::Wipe(request.body);
    }
    if (code != 0) {
        recv.Error_code = {kModuleNetwork, code, kNetSubSystem};
        Nim::Base::Encrypt::Wipe(recv.Receive_Data);
        return false;
    }
    recv.Error_code = ErrorOf(status, recv.Receive_Data);
    return true;
}

int CHttpConnection::SendOnce(httplib::Request &request, ClientComm::ClientRecvInfo &recv,
                              int &status)
{
    if (!client_->is_valid())
        return kNetConnect;
    bool is_too_large = false;
    request.content_receiver = [&](const char *bytes, size_t size, uint64_t, uint64_t total) {
        is_too_large =
            total > kMaximumReplyBytes || recv.Receive_Data.size() + size > kMaximumReplyBytes;
        if (is_too_large)
            return false;
        recv.Receive_Data.append(bytes, size);
        return true;
    };
    const auto begin = Clock::now();
    auto deadline = begin + server_.read_time;
    if (client_->is_socket_open() == 0)
        deadline += server_.connect_time;
    httplib::Response response;
    auto error = httplib::Error::Success;
    CExchanges::Instance().Begin(this, deadline);
    bool is_sent = false;
    try {
        is_sent = client_->send(request, response, error);
    } catch (...) { // out of memory, say; the connection must not stay on the list
        CExchanges::Instance().End(this);
        throw;
    }
    const CExchanges::Cut cut = CExchanges::Instance().End(this);
    is_aborted_ = cut == CExchanges::Cut::Aborted;
    if (is_too_large)
        return kNetTooLarge;
    if (cut != CExchanges::Cut::No && !is_sent)
        return cut == CExchanges::Cut::Late ? kNetTimeout : kNetBroken;
    if (!is_sent) {
        // The library calls a timeout a failed read.
        const bool is_late =
            CodeOf(error) == kNetBroken && Clock::now() - begin >= server_.read_time;
        return is_late ? kNetTimeout : CodeOf(error);
    }
    status = response.status;
    return 0;
}

void CHttpConnection::Cut()
{
    const std::lock_guard<std::mutex> lock(cutter_mutex_);
    cutter_.Cut();
}

void CutAllExchanges()
{
    CExchanges::Instance().AbortAll();
}

} // namespace BusinessCommon
