// SPDX-License-Identifier: MIT
#pragma once

#include <ClientComm/ClientInfo.h>

#include <string>

namespace BusinessCommon {

/// \brief CNetCommManager::ClientSynSend() for the session \a session, whatever is set by now.
bool ExchangeAs(const std::string &session, ClientComm::CClientRecvInfo &recv,
                const ClientComm::CClientSendInfo &send);

} // namespace BusinessCommon
