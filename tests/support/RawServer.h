// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

/// \brief One way in which a server can misbehave after it has read a request.
struct ServerFault
{
    const char *name;
    std::string bytes{};       // sent once
    bool is_hanging_up = true; // after the bytes; otherwise it waits until the client goes
    std::string repeated{};    // then sent again and again until the client goes
    int pause_ms = 0;          // before each repetition
};

/// \brief A listening socket on 127.0.0.1 whose connections are answered byte by byte.
class CRawServer
{
public:
    /// \param serve is called for each connection on its own thread. The socket is closed when
    /// \a serve returns, and shut down by the destructor.
    explicit CRawServer(std::function<void(int socket)> serve);
    /// \brief Answer the first request of each connection with \a fault.
    explicit CRawServer(const ServerFault &fault);
    ~CRawServer();
    CRawServer(const CRawServer &) = delete;
    CRawServer &operator=(const CRawServer &) = delete;

    int Port() const { return port_; }
    int Connections() const { return connections_; }

    /// \brief All faults that the client's exchange must survive.
    static const std::vector<ServerFault> &Faults();
    /// \brief The fault called \a name; ends the program if there is no such fault.
    static const ServerFault &Fault(const std::string &name);

    /// \brief Read one request with its body. \return the request line and the body; empty after
    /// the client has closed the connection.
    static std::string ReadRequest(int socket);
    /// \return false after the client has closed the connection.
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
    std::set<int> open_;                 // under the mutex, as are the threads
    std::map<int, std::thread> threads_; // by socket
    std::thread thread_;
};
