// SPDX-License-Identifier: MIT
#include "ClientComm/ClientInfo.h"

#include "Nim/Base/Encrypt.h"

namespace ClientComm {

ClientSendInfo::~ClientSendInfo()
{
    Nim::Base::Encrypt::Wipe(Request_Data);
}

ClientRecvInfo::~ClientRecvInfo()
{
    Nim::Base::Encrypt::Wipe(Receive_Data);
}

VANTOR_RECORD_DEFINE(CClientSendInfo);
VANTOR_RECORD_DEFINE(CClientRecvInfo);

} // namespace ClientComm
