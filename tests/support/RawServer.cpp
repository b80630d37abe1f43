// SPDX-License-Identifier: MIT
#include "support/RawServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <utility>

namespace {

void Serve(int socket, const ServerFault &fault)
{
    if (CRawServer::ReadRequest(socket).empty() || !CRawServer::Send(socket, fault.bytes))
        return;
    while (!fault.repeated.empty() && CRawServer::Send(socket, fault.repeated))
        usleep(useconds_t(fault.pause_ms) * 1000);
    if (!fault.is_hanging_up)
        CRawServer::ReadRequest(socket);
}

} // namespace

CRawServer::CRawServer(std::function<void(int)> serve)
    : serve_(std::move(serve)), listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto *const generic = reinterpret_cast<sockaddr *>(&address);
    if (bind(listener_, generic, size) != 0 || listen(listener_, 16) != 0
        || getsockname(listener_, generic, &size) != 0)
        std::abort();
    port_ = ntohs(address.sin_port);
    thread_ = std::thread(&CRawServer::Listen, this);
}

CRawServer::CRawServer(const ServerFault &fault)
    : CRawServer([fault](int socket) { Serve(socket, fault); })
{}

CRawServer::~CRawServer()
{
    shutdown(listener_, SHUT_RDWR);
    thread_.join();
    close(listener_);
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        for (const int socket : open_)
            shutdown(socket, SHUT_RDWR);
    }
    for (std::thread &thread : threads_)
        thread.join();
}

void CRawServer::Listen()
{
    for (;;) {
        const int socket = accept(listener_, nullptr, nullptr);
        if (socket < 0)
            return;
        ++connections_;
        const std::lock_guard<std::mutex> lock(mutex_);
        open_.insert(socket);
        threads_.emplace_back([this, socket] {
            serve_(socket);
            const std::lock_guard<std::mutex> closing(mutex_);
            open_.erase(socket);
            close(socket);
        });
    }
}

const std::vector<ServerFault> &CRawServer::Faults()
{
    static const std::string head = "HTTP/1.1 200 OK\r\n";
    static const std::vector<ServerFault> faults{
        {"closes at once", {}, {}, 0, true},
        {"says nothing", {}, {}, 0, false},
        {"sends a byte now and then", head + "Content-Length: 100000\r\n\r\n", "x", 20, true},
        {"never ends its headers", head, "X: y\r\n", 20, true},
        {"has a long status line",
         "HTTP/1.1 200 " + std::string(90'000, 'x') + "\r\n\r\n",
         {},
         0,
         true},
        {"sends header fields without end", head, "X: " + std::string(1000, 'y') + "\r\n", 0, true},
        {"sends a header line without end", head + "X: ", std::string(1 << 16, 'y'), 0, true},
        {"sends interim replies without end", {}, "HTTP/1.1 100 Continue\r\n\r\n", 0, true},
        {"sends a chunk size without end", head + "Transfer-Encoding: chunked\r\n\r\n",
         std::string(1 << 16, '0'), 0, true},
        {"sends trailers without end", head + "Transfer-Encoding: chunked\r\n\r\n0\r\n",
         "X: " + std::string(1000, 'y') + "\r\n", 0, true},
        {"does not speak HTTP", std::string(5000, '\xfe') + "\r\n\r\n", {}, 0, true},
        {"ends within the body", head + "Content-Length: 1000\r\n\r\n{\"Resp", {}, 0, true},
        {"announces too much", head + "Content-Length: 99999999999\r\n\r\n{}", {}, 0, true},
        {"sends without end", head + "Transfer-Encoding: chunked\r\n\r\n",
         "100000\r\n" + std::string(1 << 20, 'x') + "\r\n", 0, true},
        {"gives an array for a text",
         ReplyWith("{\"ResponseStatus\":{\"ErrorCode\":0,\"Data\":"
                   "{\"AdaptiveLayout\":{\"LayoutData\":[1]}}}}"),
         {},
         0,
         false},
        {"gives a text for a number",
         ReplyWith(R"({"ResponseStatus":[1,{"ErrorCode":"no"}]})"),
         {},
         0,
         false},
        {"fails", ReplyWith("sorry", "500 Oh no"), {}, 0, false},
        {"refuses with a code of its own",
         ReplyWith(R"({"ResponseStatus":{"ErrorModule":7,"ErrorCode":77}})", "403 No"),
         {},
         0,
         false},
        {"sends no document", ReplyWith("<html>It works!"), {}, 0, false},
        {"sends an empty document", ReplyWith("{}"), {}, 0, false},
    };
    return faults;
}

const ServerFault &CRawServer::Fault(const std::string &name)
{
    for (const ServerFault &fault : Faults()) {
        if (fault.name == name)
            return fault;
    }
    std::abort();
}

std::string CRawServer::ReadRequest(int socket)
{
    std::string text;
    const auto read_more = [&] {
        char bytes[4096];
        const ssize_t count = recv(socket, bytes, sizeof bytes, 0);
        if (count > 0)
            text.append(bytes, static_cast<size_t>(count));
        return count > 0;
    };
    size_t end = 0;
    while ((end = text.find("\r\n\r\n")) == std::string::npos) {
        if (!read_more())
            return {};
    }
    const size_t length_at = text.find("Content-Length: ");
    const size_t length =
        length_at < end ? std::strtoul(text.c_str() + length_at + 16, nullptr, 10) : 0;
    while (text.size() < end + 4 + length) {
        if (!read_more())
            return {};
    }
    return text.substr(0, text.find("\r\n") + 2) + text.substr(end + 4);
}

bool CRawServer::Send(int socket, const std::string &bytes)
{
    return send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL)
           == static_cast<ssize_t>(bytes.size());
}

std::string CRawServer::ReplyWith(const std::string &body, const std::string &status)
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n"
           + body;
}
