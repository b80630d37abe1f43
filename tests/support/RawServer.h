// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

/// \brief A listening socket on 127.0.0.1 whose connections are answered byte by byte, for servers
/// that misbehave.
class CRawServer
{
public:
    /// \param serve is called for each connection on a thread of its own; the socket is closed
    /// behind it, and shut down when the server goes.
    explicit CRawServer(std::function<void(int socket)> serve);
    ~CRawServer();
    CRawServer(const CRawServer &) = delete;
    CRawServer &operator=(const CRawServer &) = delete;

    int Port() const { return port_; }
    int Connections() const { return connections_; }

    /// \brief Read one request with its body. \return its body behind the request line; empty when
    /// the client has gone.
    static std::string ReadRequest(int socket);
    /// \return false when the client has gone.
    static bool Send(int socket, const std::string &bytes);
    /// \brief A complete reply with \a body.
    static std::string ReplyWith(const std::string &body, const std::string &status = "200 OK");

private:
    void Listen();

    const std::function<void(int)> serve_;
    int listener_ = -1;
    int port_ = 0;
    std::atomic<int> connections_{0};
    std::mutex mutex_;
    std::set<int> open_; // under the mutex, as are the threads
    std::vector<std::thread> threads_;
    std::thread thread_;
};
