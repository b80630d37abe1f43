// SPDX-License-Identifier: MIT
#include "Addresses.h"

#include <algorithm>
#include <iterator>

namespace Server {
namespace {

constexpr size_t kNetworkBytes = 8; // of an IPv6 address

} // namespace

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

void ReadClient(const sockaddr *client, std::string &address, std::string &network)
{
    char text[INET6_ADDRSTRLEN] = "";
    if (client->sa_family == AF_INET) {
        const auto *const v4 = reinterpret_cast<const sockaddr_in *>(client);
        inet_ntop(AF_INET, &v4->sin_addr, text, sizeof text);
        address = network = text;
    } else if (client->sa_family == AF_INET6) {
        in6_addr v6 = reinterpret_cast<const sockaddr_in6 *>(client)->sin6_addr;
        inet_ntop(AF_INET6, &v6, text, sizeof text);
        address = text;
        std::fill(std::begin(v6.s6_addr) + kNetworkBytes, std::end(v6.s6_addr), 0);
        inet_ntop(AF_INET6, &v6, text, sizeof text);
        network = text;
    }
}

bool IsLoopback(const std::string &address)
{
    in6_addr v6{};
    in_addr v4{};
    if (inet_pton(AF_INET, address.c_str(), &v4) == 1)
        return ntohl(v4.s_addr) >> 24 == 127;
    return inet_pton(AF_INET6, address.c_str(), &v6) == 1 && IN6_IS_ADDR_LOOPBACK(&v6);
}

} // namespace Server
