// SPDX-License-Identifier: MIT
#include "HttpFront.h"

#include "Addresses.h"
#include "Connections.h"
#include "ServerOptions.h"

#include <ClientComm/RapidJsonProto.h>
#include <Nim/Base/Log.h>

#include <microhttpd.h>
#ifndef _WIN32
#include <poll.h>
#endif
#include <strings.h>

#include <QtCore/QJsonDocument>

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <optional>

namespace Server {
namespace {

constexpr char kAnswer[] = "Server::CHttpFront::Answer";
constexpr unsigned kFlags =
    MHD_USE_AUTO | MHD_USE_INTERNAL_POLLING_THREAD | MHD_USE_ERROR_LOG | MHD_ALLOW_SUSPEND_RESUME;
constexpr unsigned kThreads = 4; // a password check keeps one busy
// CConnections closes waiting connections beyond its maximum; until they are closed, new ones need
// room.
constexpr unsigned kConnections = 2 * CConnections::kMaximum;
constexpr unsigned kIdleTime_s = 60; // then a connection is closed
constexpr size_t kPathBytes = 2 << 10;
constexpr size_t kHeaderBytes = 16 << 10;
constexpr int kHeaderFields = 100;
constexpr size_t kConnectionBytes = 48 << 10; // beyond it the library refuses, in its own words
// A body that is too long is read to its end nevertheless, because its sender reads the refusal
// only then. A body beyond this limit is not.
constexpr size_t kDrainedBody = size_t(16) << 20;
constexpr char kRetryAfter_s[] = "1"; // when the database cannot be reached
constexpr char kBearer[] = "Bearer "; // in upper or lower case

void ReadPeer(MHD_Connection *connection, std::string &address, std::string &network)
{
    const auto *const info =
        MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CLIENT_ADDRESS);
    if (info)
        ReadClient(info->client_addr, address, network);
}

MHD_Result OnForwarded(void *data, MHD_ValueKind /*kind*/, const char *name, const char *value)
{
    if (value && strcasecmp(name, "X-Forwarded-For") == 0)
        *static_cast<std::string *>(data) = value; // the last one is the proxy's
    return MHD_YES;
}

// Reads the address of the client behind a proxy: the last one, because the proxy appends it to
// what the client may have sent.
void ReadForwarded(MHD_Connection *connection, std::string &address, std::string &network)
{
    std::string list;
    MHD_get_connection_values(connection, MHD_HEADER_KIND, OnForwarded, &list);
    const QString last = QString::fromLatin1(list.c_str()).section(QLatin1Char(','), -1).trimmed();
    Address client;
    if (ReadAddress(last.toStdString(), 0, client))
        ReadClient(reinterpret_cast<const sockaddr *>(&client.storage), address, network);
}

int SocketOf(MHD_Connection *connection)
{
    const auto *const info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
    return info ? info->connect_fd : -1;
}

// A client that has closed only its own half counts, too, as it does for proxies.
bool IsClosedByPeer([[maybe_unused]] int socket)
{
#ifdef POLLRDHUP
    pollfd state{socket, POLLRDHUP, 0};
    return poll(&state, 1, 0) > 0;
#else
    return false;
#endif
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
    if (!reply.text.empty())
        status.insert(QStringLiteral("ErrorText"), QString::fromStdString(reply.text));
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
    if (reply.status == kUnavailable)
        MHD_add_response_header(response, "Retry-After", kRetryAfter_s);
    if (reply.status == kUnauthorized)
        MHD_add_response_header(response, "WWW-Authenticate", "Bearer");
    const MHD_Result result =
        MHD_queue_response(connection, static_cast<unsigned>(reply.status), response);
    MHD_destroy_response(response);
    return result;
}

// A request while it is read.
struct Upload
{
    Request request;
    size_t limit = 0;           // of the body
    int refusal = 0;            // a status, when the body is not kept
    std::optional<Reply> reply; // that came later, while the connection was suspended
};

// The size of the header fields, or a status that refuses them.
struct Head
{
    size_t bytes = 0;
    int fields = 0;
};

MHD_Result OnField(void *data, MHD_ValueKind /*kind*/, const char *name, const char *value)
{
    auto &head = *static_cast<Head *>(data);
    head.bytes += std::strlen(name) + (value ? std::strlen(value) : 0);
    ++head.fields;
    return MHD_YES;
}

int RefusalOfHead(MHD_Connection *connection, const char *path)
{
    if (std::strlen(path) > kPathBytes)
        return kUriTooLong;
    Head head;
    MHD_get_connection_values(connection, MHD_HEADER_KIND, OnField, &head);
    return head.bytes > kHeaderBytes || head.fields > kHeaderFields ? kHeadTooLarge : 0;
}

// What \a answer returns; an exception becomes a status.
Reply Answer(const Request &request, const std::function<Reply()> &answer)
{
    try {
        return answer();
    } catch (const Refused &refusal) {
        return Reply::Refusal(refusal.status, refusal.what());
    } catch (const std::exception &failure) {
        Nim::Base::Log::WriteFramed(kAnswer, __FILE__, __LINE__, Nim::Base::Log::kError,
                                    "ClientWarningAndMore", "%s %s failed: %s",
                                    request.method.c_str(), request.path.c_str(), failure.what());
    }
    return Reply::Refusal(kServerError);
}

MHD_Result Refuse(const CHttpFront &front, MHD_Connection *connection, const Upload &upload)
{
    front.Handler().refused(upload.request, upload.refusal);
    return Send(connection, Reply::Refusal(upload.refusal), false);
}

MHD_Result BeginRequest(const CHttpFront &front, MHD_Connection *connection, const char *path,
                        const char *method, void **context)
{
    auto upload = std::make_unique<Upload>();
    Request &request = upload->request;
    request.method = method;
    request.path = std::string(path, strnlen(path, kPathBytes));
    ReadPeer(connection, request.address, request.network);
    if (front.IsProxy(request.address))
        ReadForwarded(connection, request.address, request.network);
    const char *const session = HeaderOf(connection, "Authorization");
    if (session && strncasecmp(session, kBearer, sizeof kBearer - 1) == 0)
        request.session = session + sizeof kBearer - 1;
    const char *const length = HeaderOf(connection, "Content-Length");
    const size_t announced = length ? std::strtoull(length, nullptr, 10) : 0;
    upload->refusal = RefusalOfHead(connection, path);
    try {
        upload->limit = upload->refusal == 0 ? front.Handler().body_limit(request) : 0;
    } catch (const Refused &refusal) {
        upload->refusal = refusal.status;
    }
    if (upload->refusal == 0 && announced > upload->limit)
        upload->refusal = kTooLarge;
    if (upload->refusal == 0)
        request.body.reserve(announced); // growing would leave copies of a password behind
    const bool is_refused_at_once = announced > kDrainedBody;
    const MHD_Result result = is_refused_at_once ? Refuse(front, connection, *upload) : MHD_YES;
    *context = upload.release();
    return result;
}

MHD_Result SendReply(const CHttpFront &front, MHD_Connection *connection, const Request &request,
                     const Reply &reply)
{
    const int socket = SocketOf(connection);
    if (!request.session.empty() && reply.status != kUnauthorized)
        front.Connections().SetKnown(socket);
    front.Connections().SetAnswering(socket, false);
    const bool is_xml = !request.body.empty() && request.body.front() == '<';
    return Send(connection, reply, is_xml);
}

// The thread serves others until the reply is there; then the library calls OnRequest() again.
MHD_Result Suspend(MHD_Connection *connection, Upload &upload, const Reply &reply)
{
    MHD_suspend_connection(connection);
    reply.later([connection, &upload](const std::function<Reply()> &result) {
        upload.reply = Answer(upload.request, result);
        MHD_resume_connection(connection);
    });
    return MHD_YES;
}

// Called by the library for the headers, for each piece of the body, and at its end.
MHD_Result OnRequest(void *data, MHD_Connection *connection, const char *path, const char *method,
                     const char * /*version*/, const char *piece, size_t *piece_size,
                     void **context)
{
    const auto &front = *static_cast<const CHttpFront *>(data);
    try {
        if (!*context)
            return BeginRequest(front, connection, path, method, context);
        auto &upload = *static_cast<Upload *>(*context);
        Request &request = upload.request;
        if (*piece_size > 0) {
            if (upload.refusal == 0) {
                if (request.body.size() + *piece_size > upload.limit)
                    return MHD_NO; // its length was not announced: the connection is closed
                request.body.append(piece, *piece_size);
            }
            *piece_size = 0;
            return MHD_YES;
        }
        if (upload.refusal != 0)
            return Refuse(front, connection, upload);
        if (upload.reply)
            return SendReply(front, connection, request, *upload.reply);
        const int socket = SocketOf(connection);
        request.has_client_gone = [socket] { return IsClosedByPeer(socket); };
        front.Connections().SetAnswering(socket, true);
        const Reply reply = Answer(request, [&] { return front.Handler().answer(request); });
        if (reply.later)
            return Suspend(connection, upload, reply);
        return SendReply(front, connection, request, reply);
    } catch (const std::bad_alloc &) {
        return MHD_NO;
    }
}

void OnCompleted(void * /*front*/, MHD_Connection * /*connection*/, void **context,
                 MHD_RequestTerminationCode /*reason*/)
{
    delete static_cast<Upload *>(*context);
    *context = nullptr;
}

void OnConnection(void *data, MHD_Connection *connection, void ** /*context*/,
                  MHD_ConnectionNotificationCode code)
{
    const auto &front = *static_cast<const CHttpFront *>(data);
    const int socket = SocketOf(connection);
    if (code == MHD_CONNECTION_NOTIFY_CLOSED) {
        front.Connections().Remove(socket);
        return;
    }
    std::string address;
    std::string network;
    ReadPeer(connection, address, network);
    if (front.IsProxy(address))
        network.clear(); // a proxy has many networks behind it
    const std::string closed = front.Connections().Add(socket, address, network);
    if (!closed.empty())
        front.Handler().closed(closed);
}

// The library's reason why it does not start. Later messages are only about clients that have gone.
struct StartMessage
{
    std::string text;
};

thread_local StartMessage *start_message = nullptr;

__attribute__((format(printf, 2, 0))) void OnLibraryMessage(void * /*data*/, const char *format,
                                                            va_list values)
{
    char text[256] = "";
    std::vsnprintf(text, sizeof text, format, values);
    if (start_message && start_message->text.empty())
        start_message->text = text;
}

} // namespace

CHttpFront::CHttpFront(FrontHandler handler)
    : handler_(std::move(handler)), connections_(std::make_unique<CConnections>())
{}

CHttpFront::~CHttpFront()
{
    Stop();
}

QString CHttpFront::Start(const ServerOptions &options)
{
    Address address;
    proxies_ = options.proxies;
    std::vector<std::string> addresses = proxies_;
    addresses.push_back(options.address); // the last one is listened on
    for (const std::string &text : addresses) {
        if (!ReadAddress(text, options.port, address = {}))
            return QStringLiteral("%1 is no IP address.").arg(QString::fromStdString(text));
    }
    unsigned flags = kFlags;
    if (address.is_ipv6)
        flags |= MHD_USE_IPv6;
    const bool is_tls = !options.certificate.empty();
    if (is_tls)
        flags |= MHD_USE_TLS;
    MHD_OptionItem tls[] = {
        {MHD_OPTION_HTTPS_MEM_CERT, 0, const_cast<char *>(options.certificate.c_str())},
        {MHD_OPTION_HTTPS_MEM_KEY, 0, const_cast<char *>(options.private_key.c_str())},
        {MHD_OPTION_END, 0, nullptr}};
    StartMessage message;
    start_message = &message;
    errno = 0;
    daemon_ = MHD_start_daemon(
        flags, 0, nullptr, nullptr, &OnRequest, this, MHD_OPTION_EXTERNAL_LOGGER, &OnLibraryMessage,
        nullptr, MHD_OPTION_SOCK_ADDR, reinterpret_cast<sockaddr *>(&address.storage),
        MHD_OPTION_NOTIFY_COMPLETED, &OnCompleted, nullptr, MHD_OPTION_NOTIFY_CONNECTION,
        &OnConnection, this, MHD_OPTION_THREAD_POOL_SIZE, kThreads, MHD_OPTION_CONNECTION_LIMIT,
        kConnections, MHD_OPTION_CONNECTION_TIMEOUT, kIdleTime_s,
        MHD_OPTION_CONNECTION_MEMORY_LIMIT, kConnectionBytes, MHD_OPTION_ARRAY,
        is_tls ? tls : tls + 2, MHD_OPTION_END);
    start_message = nullptr;
    if (daemon_)
        return {};
    return QStringLiteral("Cannot listen on %1, port %2: %3")
        .arg(QString::fromStdString(options.address))
        .arg(options.port)
        .arg(message.text.empty() ? QString::fromLocal8Bit(std::strerror(errno))
                                  : QString::fromStdString(message.text).simplified());
}

void CHttpFront::Stop()
{
    if (daemon_)
        MHD_stop_daemon(daemon_);
    daemon_ = nullptr;
}

bool CHttpFront::IsProxy(const std::string &address) const
{
    return std::find(proxies_.begin(), proxies_.end(), address) != proxies_.end();
}

int CHttpFront::Port() const
{
    const auto *const info =
        daemon_ ? MHD_get_daemon_info(daemon_, MHD_DAEMON_INFO_BIND_PORT) : nullptr;
    return info ? info->port : 0;
}

} // namespace Server
