// SPDX-License-Identifier: MIT
#include "HttpFront.h"

#include "Server.h"

#include <ClientComm/RapidJsonProto.h>
#include <Nim/Base/Log.h>

#include <arpa/inet.h>
#include <microhttpd.h>
#include <netinet/in.h>

#include <QtCore/QJsonDocument>

#include <cstring>

namespace Server {
namespace {

constexpr char kAnswer[] = "Server::CHttpFront::Answer";
constexpr unsigned kThreads = 4;          // a password check keeps one busy
constexpr unsigned kConnections = 64;     // at a time
constexpr unsigned kIdleTime_s = 60;      // then a connection is closed
constexpr size_t kHeaderBytes = 16 << 10; // request line and headers, then status 431
// A body that is too long is read to its end all the same, so that its sender gets to see why it is
// refused; one that is far too long is not.
constexpr size_t kDrainedBody = 8 * CHttpFront::kMaximumBody;
constexpr char kBearer[] = "Bearer ";

struct Address
{
    sockaddr_storage storage{};
    bool is_ipv6 = false;
};

bool ReadAddress(const std::string &text, int port, Address &address)
{
    auto *const v4 = reinterpret_cast<sockaddr_in *>(&address.storage);
    auto *const v6 = reinterpret_cast<sockaddr_in6 *>(&address.storage);
    if (inet_pton(AF_INET, text.c_str(), &v4->sin_addr) == 1) {
        v4->sin_family = AF_INET;
        v4->sin_port = htons(static_cast<uint16_t>(port));
        return true;
    }
    address.is_ipv6 = inet_pton(AF_INET6, text.c_str(), &v6->sin6_addr) == 1;
    v6->sin6_family = AF_INET6;
    v6->sin6_port = htons(static_cast<uint16_t>(port));
    return address.is_ipv6;
}

std::string ClientAddress(MHD_Connection *connection)
{
    const auto *const info =
        MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CLIENT_ADDRESS);
    char text[INET6_ADDRSTRLEN] = "";
    if (info && info->client_addr->sa_family == AF_INET) {
        const auto *const v4 = reinterpret_cast<const sockaddr_in *>(info->client_addr);
        inet_ntop(AF_INET, &v4->sin_addr, text, sizeof text);
    } else if (info && info->client_addr->sa_family == AF_INET6) {
        const auto *const v6 = reinterpret_cast<const sockaddr_in6 *>(info->client_addr);
        inet_ntop(AF_INET6, &v6->sin6_addr, text, sizeof text);
    }
    return text;
}

const char *HeaderOf(MHD_Connection *connection, const char *name)
{
    return MHD_lookup_connection_value(connection, MHD_HEADER_KIND, name);
}

// The reply in the language of the request: XML for XML.
std::string TextOf(const Reply &reply, bool is_xml)
{
    QJsonObject status{{QStringLiteral("ErrorModule"), reply.module},
                       {QStringLiteral("ErrorCode"), reply.code}};
    if (!reply.data.isEmpty())
        status.insert(QStringLiteral("Data"), reply.data);
    const QJsonDocument document(QJsonObject{{QStringLiteral("ResponseStatus"), status}});
    std::string text = document.toJson(QJsonDocument::Compact).toStdString();
    ClientComm::CRapidJsonProto xml;
    return is_xml && xml.Load(text) ? xml.ToXml() : text;
}

MHD_Result Send(MHD_Connection *connection, const Reply &reply, bool is_xml)
{
    std::string text = TextOf(reply, is_xml);
    MHD_Response *const response =
        MHD_create_response_from_buffer(text.size(), text.data(), MHD_RESPMEM_MUST_COPY);
    Nim::Base::Encrypt::Wipe(text); // a login's session
    if (!response)
        return MHD_NO;
    MHD_add_response_header(response, "Content-Type",
                            is_xml ? "application/xml; charset=utf-8"
                                   : "application/json; charset=utf-8");
    MHD_add_response_header(response, "Cache-Control", "no-store");
    if (reply.status == kUnauthorized)
        MHD_add_response_header(response, "WWW-Authenticate", "Bearer");
    const MHD_Result result =
        MHD_queue_response(connection, static_cast<unsigned>(reply.status), response);
    MHD_destroy_response(response);
    return result;
}

// Called by the library for the headers, for each piece of the body, and at its end.
MHD_Result OnRequest(void *front, MHD_Connection *connection, const char *url, const char *method,
                     const char * /*version*/, const char *upload, size_t *upload_size,
                     void **context)
{
    if (!*context) {
        const char *const length = HeaderOf(connection, "Content-Length");
        const size_t announced = length ? std::strtoull(length, nullptr, 10) : 0;
        if (announced > kDrainedBody)
            return Send(connection, Reply::Refusal(kTooLarge), false);
        auto request = std::make_unique<Request>();
        request->method = method;
        request->path = url;
        request->address = ClientAddress(connection);
        request->is_too_large = announced > CHttpFront::kMaximumBody;
        if (!request->is_too_large)
            request->body.reserve(announced); // growing would leave copies of a password behind
        const char *const session = HeaderOf(connection, "Authorization");
        if (session && std::strncmp(session, kBearer, sizeof kBearer - 1) == 0)
            request->session = session + sizeof kBearer - 1;
        *context = request.release();
        return MHD_YES;
    }
    auto *const request = static_cast<Request *>(*context);
    if (*upload_size > 0) {
        if (!request->is_too_large) {
            if (request->body.size() + *upload_size > CHttpFront::kMaximumBody)
                return MHD_NO; // its length was not announced: the connection is closed
            request->body.append(upload, *upload_size);
        }
        *upload_size = 0;
        return MHD_YES;
    }
    if (request->is_too_large)
        return Send(connection, Reply::Refusal(kTooLarge), false);
    const bool is_xml = !request->body.empty() && request->body.front() == '<';
    return Send(connection, static_cast<const CHttpFront *>(front)->Answer(*request), is_xml);
}

void OnCompleted(void * /*front*/, MHD_Connection * /*connection*/, void **context,
                 MHD_RequestTerminationCode /*reason*/)
{
    delete static_cast<Request *>(*context);
    *context = nullptr;
}

} // namespace

CHttpFront::CHttpFront(Handler handler) : handler_(std::move(handler)) {}

CHttpFront::~CHttpFront()
{
    Stop();
}

QString CHttpFront::Start(const ServerOptions &options)
{
    Address address;
    if (!ReadAddress(options.address, options.port, address))
        return QStringLiteral("%1 is no IP address.").arg(QString::fromStdString(options.address));
    unsigned flags = MHD_USE_AUTO | MHD_USE_INTERNAL_POLLING_THREAD;
    if (address.is_ipv6)
        flags |= MHD_USE_IPv6;
    const bool is_tls = !options.certificate.empty();
    if (is_tls)
        flags |= MHD_USE_TLS;
    MHD_OptionItem tls[] = {
        {MHD_OPTION_HTTPS_MEM_CERT, 0, const_cast<char *>(options.certificate.c_str())},
        {MHD_OPTION_HTTPS_MEM_KEY, 0, const_cast<char *>(options.private_key.c_str())},
        {MHD_OPTION_END, 0, nullptr}};
    daemon_ = MHD_start_daemon(
        flags, 0, nullptr, nullptr, &OnRequest, this, MHD_OPTION_SOCK_ADDR,
        reinterpret_cast<sockaddr *>(&address.storage), MHD_OPTION_NOTIFY_COMPLETED, &OnCompleted,
        nullptr, MHD_OPTION_THREAD_POOL_SIZE, kThreads, MHD_OPTION_CONNECTION_LIMIT, kConnections,
        MHD_OPTION_CONNECTION_TIMEOUT, kIdleTime_s, MHD_OPTION_CONNECTION_MEMORY_LIMIT,
        kHeaderBytes, MHD_OPTION_ARRAY, is_tls ? tls : tls + 2, MHD_OPTION_END);
    if (daemon_)
        return {};
    return QStringLiteral("Cannot listen on %1, port %2: %3")
        .arg(QString::fromStdString(options.address))
        .arg(options.port)
        .arg(QString::fromLocal8Bit(std::strerror(errno)));
}

void CHttpFront::Stop()
{
    if (daemon_)
        MHD_stop_daemon(daemon_);
    daemon_ = nullptr;
}

int CHttpFront::Port() const
{
    const auto *const info =
        daemon_ ? MHD_get_daemon_info(daemon_, MHD_DAEMON_INFO_BIND_PORT) : nullptr;
    return info ? info->port : 0;
}

Reply CHttpFront::Answer(const Request &request) const
{
    try {
        return handler_(request);
    } catch (const Refused &refusal) {
        return Reply::Refusal(refusal.status);
    } catch (const std::exception &failure) {
        Nim::Base::Log::WriteFramed(kAnswer, __FILE__, __LINE__, Nim::Base::Log::kError,
                                    "ClientWarningAndMore", "%s %s failed: %s",
                                    request.method.c_str(), request.path.c_str(), failure.what());
    }
    return Reply::Refusal(kServerError);
}

} // namespace Server
