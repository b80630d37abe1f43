// SPDX-License-Identifier: MIT
#pragma once

#include <ClientComm/ClientInfo.h>

#include <string>

namespace BusinessCommon {

/// \brief CNetCommManager::ClientSynSend() for the session \a session, whatever is set by now.
bool ExchangeAs(const std::string &session, ClientComm::CClientRecvInfo &recv,
                const ClientComm::CClientSendInfo &send);

/// \brief Changes with every server that is set: requests with different numbers do not share their
/// fate.
[[nodiscard]] int CurrentServerNumber();

} // namespace BusinessCommon
