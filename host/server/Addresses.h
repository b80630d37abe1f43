// SPDX-License-Identifier: MIT
#pragma once

#include "Sockets.h"

#include <string>

namespace Server {

struct Address
{
    sockaddr_storage storage{};
    bool is_ipv6 = false;
};

/// \brief Read an IPv4 or IPv6 address in digits. \return false for any other text.
[[nodiscard]] bool ReadAddress(const std::string &text, int port, Address &address);

/// \brief The address of \a client and its network, for limits: an IPv4 address, or the first 64
/// bits of an IPv6 address. For another kind of socket both texts are left unchanged.
void ReadClient(const sockaddr *client, std::string &address, std::string &network);

/// \brief Whether \a address, IPv4 or IPv6, is reached from this machine only.
[[nodiscard]] bool IsLoopback(const std::string &address);

} // namespace Server
