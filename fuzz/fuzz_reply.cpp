// SPDX-License-Identifier: MIT
// Bytes are what a server sends in answer to a request. Whatever they are, the exchange ends in
// time, keeps to its limits, and the next one works.
#include "support/RawServer.h"

#include <BusinessCommon/NetCommManager.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using BusinessCommon::CNetCommManager;

constexpr int kTimeMs = 2000;

void Require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

std::string reply; // of the next connection; written between connections only

CRawServer &TheServer()
{
    static auto *const server = new CRawServer([](int socket) {
        if (!CRawServer::ReadRequest(socket).empty())
            CRawServer::Send(socket, reply);
    });
    return *server;
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
    reply.assign(reinterpret_cast<const char *>(data), size);
    ClientComm::CClientRecvInfo recv;
    const bool is_answered = Exchange(recv);
    const auto error = recv.GetVal_Error_code();
    Require(is_answered
                || (error.module_code == BusinessCommon::kModuleNetwork
                    && recv.Read().Receive_Data.empty()),
            "a failure has its code and no body");
    Require(recv.Read().Receive_Data.size() <= size, "the body is part of the reply");

    reply = CRawServer::ReplyWith("{}");
    Require(Exchange(recv) && recv.Read().Receive_Data == "{}", "the next exchange works");
    return 0;
}
