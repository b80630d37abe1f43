// SPDX-License-Identifier: MIT
#include "Connections.h"

#include "Sockets.h"

#include <algorithm>
#include <tuple>

namespace Server {

std::string CConnections::Add(int socket, const std::string &address, const std::string &network)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto is_of_network = [&network](const auto &entry) {
        return !network.empty() && entry.second.network == network && !entry.second.is_closing;
    };
    const auto is_open = [](const auto &entry) { return !entry.second.is_closing; };
    const auto alike = std::count_if(connections_.begin(), connections_.end(), is_of_network);
    const auto all = std::count_if(connections_.begin(), connections_.end(), is_open);
    Entry leaving = connections_.end();
    if (size_t(alike) >= kMaximumOfNetwork)
        leaving = OldestWaiting(&network);
    else if (size_t(all) >= kMaximum)
        leaving = OldestWaiting(nullptr);
    std::string closed;
    if (leaving != connections_.end()) {
        // The HTTP library sees the end of the stream and closes the socket; until then no other
        // socket gets its number.
        shutdown(leaving->first, SHUT_RDWR);
        leaving->second.is_closing = true;
        closed = leaving->second.address;
    }
    connections_[socket] = {address, network, false, false, false, ++uses_};
    return closed;
}

void CConnections::Remove(int socket)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    connections_.erase(socket);
}

void CConnections::SetAnswering(int socket, bool is_answering)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto entry = connections_.find(socket);
    if (entry == connections_.end())
        return;
    entry->second.is_answering = is_answering;
    entry->second.last_use = ++uses_;
}

void CConnections::SetKnown(int socket)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto entry = connections_.find(socket);
    if (entry != connections_.end())
        entry->second.is_known = true;
}

CConnections::Entry CConnections::OldestWaiting(const std::string *network)
{
    const auto rank = [&](const Connection &connection) {
        const bool may_go = !connection.is_answering && !connection.is_closing
                            && (!network || connection.network == *network);
        return std::make_tuple(!may_go, connection.is_known, connection.last_use);
    };
    const auto oldest = std::min_element(
        connections_.begin(), connections_.end(),
        [&](const auto &a, const auto &b) { return rank(a.second) < rank(b.second); });
    const bool is_one = oldest != connections_.end() && !std::get<0>(rank(oldest->second));
    return is_one ? oldest : connections_.end();
}

} // namespace Server
