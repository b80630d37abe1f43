// SPDX-License-Identifier: MIT
#pragma once

#include <ClientComm/ClientInfo.h>
#include <Nim/Base/SecretText.h>

#include <string>

namespace BusinessCommon {

class CNetStop;

/// \brief On whose behalf an exchange happens.
struct NetTask
{
    Nim::Base::SecretText session;  ///< the current session; may be empty
    const CNetStop *stop = nullptr; ///< breaks it off; may be null
};

/// \brief CNetCommManager::ClientSynSend() for \a task.
bool ExchangeAs(const NetTask &task, ClientComm::CClientRecvInfo &recv,
                const ClientComm::CClientSendInfo &send);

/// \brief Changes with every server that is set: requests with different numbers do not share their
/// fate.
[[nodiscard]] int CurrentServerNumber();

} // namespace BusinessCommon
