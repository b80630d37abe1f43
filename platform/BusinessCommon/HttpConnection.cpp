// SPDX-License-Identifier: MIT
#include "BusinessCommon/HttpConnection.h"

#include "BusinessCommon/NetErrors.h"
#include "BusinessCommon/NetStop.h"
#include "ClientComm/RapidJsonProto.h"
#include "Nim/Base/Encrypt.h"
#include "Nim/Base/SecretText.h"
#include "Nim/Base/WipedMemory.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <set>
#include <tuple>

namespace BusinessCommon {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::array<const char *, 4> kMethods = {"GET", "PUT", "POST", "DELETE"};
constexpr int kPatternXml = 2;
constexpr int kFirstFailure = 300;

struct CodeOfError
{
    CURLcode error;
    int code;
};

constexpr CodeOfError kCodes[] = {
    {CURLE_OK, 0},
    {CURLE_OPERATION_TIMEDOUT, kNetTimeout},
    {CURLE_URL_MALFORMAT, kNetConnect},
    {CURLE_COULDNT_RESOLVE_HOST, kNetConnect},
    {CURLE_COULDNT_CONNECT, kNetConnect},
    {CURLE_SSL_CONNECT_ERROR, kNetTls},
    {CURLE_PEER_FAILED_VERIFICATION, kNetCertificate},
    {CURLE_SSL_CACERT_BADFILE, kNetCertificate},
    {CURLE_FILESIZE_EXCEEDED, kNetTooLarge},
    {CURLE_OUT_OF_MEMORY, kNetTooLarge},      // of one header line beyond libcurl's own limit
    {CURLE_UNSUPPORTED_PROTOCOL, kNetBroken}, // of a reply without a status line
    {CURLE_WEIRD_SERVER_REPLY, kNetBroken},
    {CURLE_GOT_NOTHING, kNetBroken},
    {CURLE_PARTIAL_FILE, kNetBroken},
    {CURLE_SEND_ERROR, kNetBroken},
    {CURLE_RECV_ERROR, kNetBroken},
};

int CodeOf(CURLcode error)
{
    for (const CodeOfError &entry : kCodes) {
        if (entry.error == error)
            return entry.code;
    }
    return kNetFailed;
}

struct EasyDeleter
{
    void operator()(CURL *easy) const { curl_easy_cleanup(easy); }
};
struct ListDeleter
{
    void operator()(curl_slist *list) const { curl_slist_free_all(list); }
};
using Easy = std::unique_ptr<CURL, EasyDeleter>;
using List = std::unique_ptr<curl_slist, ListDeleter>;

// One exchange under way. Of its thread, but for the flag.
struct Transfer
{
    CURLM *multi = nullptr;
    std::chrono::milliseconds read_time{};
    Clock::time_point deadline;
    std::string *body = nullptr; // of the reply
    size_t head_bytes = 0;
    int head_lines = 0;
    bool is_connected = false;
    bool is_too_large = false;
    const CNetStop *stop = nullptr;      // may be null
    std::atomic<bool> is_aborted{false}; // by any thread
};

// The exchanges under way, for those who want to break them off.
struct Active
{
    std::mutex mutex;
    std::set<Transfer *> transfers; // under the mutex
};

Active &CurrentActive()
{
    static auto *const active = new Active; // threads may send until the process ends
    return *active;
}

class CActiveGuard
{
public:
    explicit CActiveGuard(Transfer &transfer) : transfer_(transfer)
    {
        const std::lock_guard<std::mutex> lock(CurrentActive().mutex);
        CurrentActive().transfers.insert(&transfer_);
    }
    ~CActiveGuard()
    {
        const std::lock_guard<std::mutex> lock(CurrentActive().mutex);
        CurrentActive().transfers.erase(&transfer_);
    }
    CActiveGuard(const CActiveGuard &) = delete;
    CActiveGuard &operator=(const CActiveGuard &) = delete;

private:
    Transfer &transfer_;
};

// libcurl calls it for the status line, each header field, the empty line and each trailer.
size_t OnHeadLine(char * /*line*/, size_t /*one*/, size_t size, void *data)
{
    auto &transfer = *static_cast<Transfer *>(data);
    transfer.head_bytes += size;
    ++transfer.head_lines;
    transfer.is_too_large = transfer.head_bytes > kMaximumReplyHeadBytes
                            || transfer.head_lines > kMaximumReplyHeadLines;
    return transfer.is_too_large ? 0 : size;
}

size_t OnBody(char *bytes, size_t /*one*/, size_t size, void *data)
{
    auto &transfer = *static_cast<Transfer *>(data);
    std::string &body = *transfer.body;
    transfer.is_too_large = body.size() + size > kMaximumReplyBytes;
    if (transfer.is_too_large)
        return 0;
    try {
        if (body.size() + size
            > body.capacity()) { // growing would leave copies of a session behind
            std::string larger;
            larger.reserve(2 * (body.size() + size));
            larger = body;
            body.swap(larger);
            Nim::Base::Encrypt::Wipe(larger);
        }
        body.append(bytes, size);
    } catch (const std::bad_alloc &) {
        return 0;
    }
    return size;
}

// The time to read begins when the connection is there, and begins once.
int OnConnected(void *data, char * /*remote*/, char * /*local*/, int /*port*/, int /*own_port*/)
{
    auto &transfer = *static_cast<Transfer *>(data);
    if (!std::exchange(transfer.is_connected, true))
        transfer.deadline = Clock::now() + transfer.read_time;
    return CURL_PREREQFUNC_OK;
}

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

// Blanks, control characters and bytes beyond ASCII are written as RFC 3986 says.
std::string TargetOf(const std::string &url)
{
    std::string target;
    for (const char c : url) {
        char escaped[4] = {c};
        if (c <= ' ' || c >= '\x7f')
            std::snprintf(escaped, sizeof escaped, "%%%02X", static_cast<unsigned char>(c));
        target += escaped;
    }
    return target;
}

List HeadersOf(const ClientComm::ClientSendInfo &send, const std::string &session)
{
    List list(curl_slist_append(nullptr, "Expect:")); // a body is sent without asking first
    const auto add = [&list](const std::string &line) {
        curl_slist *const longer = curl_slist_append(list.get(), line.c_str());
        if (!longer)
            throw std::bad_alloc();
        static_cast<void>(list.release());
        list.reset(longer);
    };
    if (!send.Request_Data.empty())
        add(send.Pattern == kPatternXml ? "Content-Type: application/xml; charset=utf-8"
                                        : "Content-Type: application/json; charset=utf-8");
    if (!session.empty())
        add(Nim::Base::SecretText("Authorization: Bearer " + session));
    return list;
}

void SetRequest(CURL *easy, const ClientComm::ClientSendInfo &send, const curl_slist *headers,
                const std::string &target)
{
    curl_easy_setopt(easy, CURLOPT_REQUEST_TARGET, target.c_str());
    curl_easy_setopt(easy, CURLOPT_HTTPHEADER, headers);
    const bool has_body = !send.Request_Data.empty();
    const bool is_post = send.Method == "POST";
    if (has_body || is_post || send.Method == "PUT") {
        curl_easy_setopt(easy, CURLOPT_POSTFIELDS, send.Request_Data.c_str());
        curl_easy_setopt(easy, CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(send.Request_Data.size()));
    }
    curl_easy_setopt(easy, CURLOPT_CUSTOMREQUEST, send.Method.c_str());
    // libcurl repeats any request on a kept connection that the server has just closed. A POST must
    // not happen twice, so it gets a connection of its own.
    curl_easy_setopt(easy, CURLOPT_FRESH_CONNECT, is_post ? 1L : 0L);
}

void SetServer(CURL *easy, const NetServer &server)
{
    curl_easy_setopt(easy, CURLOPT_URL, AddressOf(server).c_str());
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(easy, CURLOPT_PROXY, ""); // no proxy, even if the environment names one
    curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, long(CURL_HTTP_VERSION_1_1));
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    // Else the end of the exchange waits for the name server, whatever the times are.
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, long(server.connect_time.count()));
    curl_easy_setopt(easy, CURLOPT_SSL_VERIFYPEER, server.is_certificate_checked ? 1L : 0L);
    curl_easy_setopt(easy, CURLOPT_SSL_VERIFYHOST, server.is_certificate_checked ? 2L : 0L);
    if (!server.ca_file.empty()) {
        curl_easy_setopt(easy, CURLOPT_CAINFO, server.ca_file.c_str());
        curl_easy_setopt(easy, CURLOPT_CAPATH, nullptr); // not the system's
    }
}

void SetReply(CURL *easy, Transfer &transfer)
{
    curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, OnHeadLine);
    curl_easy_setopt(easy, CURLOPT_HEADERDATA, &transfer);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, OnBody);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, &transfer);
    curl_easy_setopt(easy, CURLOPT_PREREQFUNCTION, OnConnected);
    curl_easy_setopt(easy, CURLOPT_PREREQDATA, &transfer);
    curl_easy_setopt(easy, CURLOPT_MAXFILESIZE_LARGE, curl_off_t(kMaximumReplyBytes));
}

// Until the exchange ends, or its time does, or another thread breaks it off. 0 or a NetErrorCode.
int Run(Transfer &transfer)
{
    constexpr auto kLook = std::chrono::milliseconds(1000); // a wake-up comes at once
    const CActiveGuard guard(transfer);
    if (transfer.stop && transfer.stop->IsStopped()) // before it could be found
        return kNetBroken;
    for (;;) {
        int running = 0;
        if (curl_multi_perform(transfer.multi, &running) != CURLM_OK)
            return kNetFailed;
        if (transfer.is_too_large)
            return kNetTooLarge;
        if (running == 0)
            break;
        if (transfer.is_aborted)
            return kNetBroken;
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(transfer.deadline - Clock::now());
        if (left.count() <= 0)
            return kNetTimeout;
        curl_multi_poll(transfer.multi, nullptr, 0, int(std::min(left, kLook).count()), nullptr);
    }
    int more = 0;
    const CURLMsg *const message = curl_multi_info_read(transfer.multi, &more);
    return message ? CodeOf(message->data.result) : kNetFailed;
}

Nim::Base::Error::ErrorCode ErrorOf(long status, const std::string &body)
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
    return {kModuleHttp, int(status), 0};
}

CURLM *NewMulti()
{
    // Bodies and sessions pass through libcurl's buffers.
    static const CURLcode ready =
        curl_global_init_mem(CURL_GLOBAL_DEFAULT, std::malloc, Nim::Base::WipedFree,
                             Nim::Base::WipedRealloc, strdup, std::calloc);
    CURLM *const multi = ready == CURLE_OK ? curl_multi_init() : nullptr;
    if (!multi)
        throw std::bad_alloc();
    curl_multi_setopt(multi, CURLMOPT_MAXCONNECTS, 1L);
    return multi;
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

CHttpConnection::CHttpConnection(NetServer server) : server_(std::move(server)), multi_(NewMulti())
{}

CHttpConnection::~CHttpConnection()
{
    curl_multi_cleanup(multi_);
}

bool CHttpConnection::Exchange(ClientComm::ClientRecvInfo &recv,
                               const ClientComm::ClientSendInfo &send, const NetTask &task)
{
    Nim::Base::Encrypt::Wipe(recv.Receive_Data);
    long status = 0;
    int code = kNetBadRequest;
    if (CanBeSent(send, task.session)) {
        const Easy easy(curl_easy_init());
        if (!easy)
            throw std::bad_alloc();
        Transfer transfer;
        transfer.multi = multi_;
        transfer.body = &recv.Receive_Data;
        transfer.read_time = server_.read_time;
        transfer.stop = task.stop;
        transfer.deadline = Clock::now() + server_.connect_time + server_.read_time;
        const List headers = HeadersOf(send, task.session);
        SetServer(easy.get(), server_);
        SetRequest(easy.get(), send, headers.get(), TargetOf(send.URL));
        SetReply(easy.get(), transfer);
        curl_multi_add_handle(multi_, easy.get());
        code = Run(transfer);
        curl_easy_getinfo(easy.get(), CURLINFO_RESPONSE_CODE, &status);
        curl_multi_remove_handle(multi_, easy.get()); // closes an unfinished exchange
    }
    if (code != 0) {
        recv.Error_code = {kModuleNetwork, code, kNetSubSystem};
        Nim::Base::Encrypt::Wipe(recv.Receive_Data);
        return false;
    }
    recv.Error_code = ErrorOf(status, recv.Receive_Data);
    return true;
}

void AbortExchanges(const CNetStop *stop)
{
    const std::lock_guard<std::mutex> lock(CurrentActive().mutex);
    for (Transfer *const transfer : CurrentActive().transfers) {
        if (stop && transfer->stop != stop)
            continue;
        transfer->is_aborted = true;
        curl_multi_wakeup(transfer->multi);
    }
}

} // namespace BusinessCommon
