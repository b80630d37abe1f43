// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <string>

namespace Server {

/// \brief The open connections, to decide which one has to make room for a new one. Any thread.
class CConnections
{
public:
    /// More than so many at a time, or from one network, and the oldest waiting ones are closed.
    static constexpr size_t kMaximum = 128;
    static constexpr size_t kMaximumOfNetwork = 64;

    /// \brief Add a connection. An empty \a network, a proxy's, has no limit of its own.
    /// \return the address of a connection that was closed to make room, or an empty text.
    std::string Add(int socket, const std::string &address, const std::string &network);
    void Remove(int socket);
    /// \brief A whole request has come in, or was answered.
    void SetAnswering(int socket, bool is_answering);
    /// \brief Its last request had a session.
    void SetKnown(int socket);

private:
    struct Connection
    {
        std::string address;
        std::string network;
        bool is_answering = false;
        bool is_known = false;
        bool is_closing = false;
        std::uint64_t last_use = 0; // a running number
    };
    using Entry = std::map<int, Connection>::iterator;

    [[nodiscard]] Entry OldestWaiting(const std::string *network);

    std::mutex mutex_; // of all that follows
    std::map<int, Connection> connections_;
    std::uint64_t uses_ = 0;
};

} // namespace Server
