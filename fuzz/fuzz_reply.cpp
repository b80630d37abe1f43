// SPDX-License-Identifier: MIT
// Bytes are what a server sends in answer to a request. Whatever they are, the exchange ends in
// time, keeps to its limits, and the next one works.
#include "Require.h"
#include "support/RawServer.h"

#include <BusinessCommon/NetCommManager.h>

#include <cstdint>
#include <mutex>
#include <string>

namespace {

using BusinessCommon::CNetCommManager;

constexpr int kTimeMs = 2000;

std::mutex mutex;
std::string reply; // under the mutex

CRawServer &TheServer()
{
    static auto *const server = new CRawServer([](int socket) {
        if (CRawServer::ReadRequest(socket).empty())
            return;
        const std::lock_guard<std::mutex> lock(mutex);
        CRawServer::Send(socket, reply);
    });
    return *server;
}

void SetReply(const std::string &bytes)
{
    const std::lock_guard<std::mutex> lock(mutex);
    reply = bytes;
}

bool Exchange(ClientComm::CClientRecvInfo &recv)
{
    ClientComm::CClientSendInfo send;
    send.SetVal_URL("/x");
    send.SetVal_Method("POST"); // a connection of its own, and never sent again
    send.SetVal_Request_Data("{}");
    return Nim::Base::CSingleton<CNetCommManager>::Instance().ClientSynSend(recv, send, 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    CNetCommManager::SetServer("127.0.0.1", TheServer().Port());
    CNetCommManager::SetTimeouts(kTimeMs, kTimeMs);
    SetReply(std::string(reinterpret_cast<const char *>(data), size));
    ClientComm::CClientRecvInfo recv;
    const bool is_answered = Exchange(recv);
    const auto error = recv.GetVal_Error_code();
    Require(is_answered
                || (error.module_code == BusinessCommon::kModuleNetwork
                    && recv.Read().Receive_Data.empty()),
            "a failure has its code and no body");
    Require(recv.Read().Receive_Data.size() <= size, "the body is part of the reply");

    SetReply(CRawServer::ReplyWith("{}"));
    Require(Exchange(recv) && recv.Read().Receive_Data == "{}", "the next exchange works");
    return 0;
}
