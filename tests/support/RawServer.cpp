// SPDX-License-Identifier: MIT
#include "support/RawServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>

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
