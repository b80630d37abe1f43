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
    for (auto &[socket, thread] : threads_)
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
        std::thread &thread = threads_[socket];
        if (thread.joinable())
            thread.join(); // an earlier connection's, which has closed this socket
        thread = std::thread([this, socket] {
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
    static const std::string chunked = head + "Transfer-Encoding: chunked\r\n\r\n";
    static const std::vector<ServerFault> faults{
        {"closes at once"},
        {"says nothing", {}, false},
        {"sends a byte now and then", head + "Content-Length: 100000\r\n\r\n", true, "x", 20},
        {"never ends its headers", head, true, "X: y\r\n", 20},
        {"has a long status line", "HTTP/1.1 200 " + std::string(90'000, 'x') + "\r\n\r\n"},
        {"sends header fields without end", head, true, "X: " + std::string(1000, 'y') + "\r\n"},
        {"sends a header line without end", head + "X: ", true, std::string(1 << 16, 'y')},
        {"sends interim replies without end", {}, true, "HTTP/1.1 100 Continue\r\n\r\n"},
        {"sends a chunk size without end", chunked, true, std::string(1 << 16, '0')},
        {"sends trailers without end", chunked + "0\r\n", true,
         "X: " + std::string(1000, 'y') + "\r\n"},
        {"does not speak HTTP", std::string(5000, '\xfe') + "\r\n\r\n"},
        {"ends within the body", head + "Content-Length: 1000\r\n\r\n{\"Resp"},
        {"announces too much", head + "Content-Length: 99999999999\r\n\r\n{}"},
        {"sends without end", chunked, true, "100000\r\n" + std::string(1 << 20, 'x') + "\r\n"},
        {"gives an array for a text",
         ReplyWith("{\"ResponseStatus\":{\"ErrorCode\":0,\"Data\":"
                   "{\"AdaptiveLayout\":{\"LayoutData\":[1]}}}}"),
         false},
        {"fails", ReplyWith("sorry", "500 Oh no"), false},
        {"refuses with a code of its own",
         ReplyWith(R"({"ResponseStatus":{"ErrorModule":7,"ErrorCode":77}})", "403 No"), false},
        {"sends no document", ReplyWith("<html>It works!"), false},
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
