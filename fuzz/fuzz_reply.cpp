// SPDX-License-Identifier: MIT
// Bytes are what a server sends in answer to a request. Whatever they are, the exchange ends in
// time, keeps to its limits, and the next one works.
#include "Require.h"
#include "support/RawServer.h"

#include <BusinessCommon/NetCommManager.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

namespace {

using BusinessCommon::CNetCommManager;

constexpr int kTimeMs = 2000;

// Answers one connection after another. CRawServer would keep a thread for each.
class CServer
{
public:
    CServer() : listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        address_.sin_family = AF_INET;
        address_.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        auto *const generic = reinterpret_cast<sockaddr *>(&address_);
        socklen_t size = sizeof address_;
        Require(bind(listener_, generic, size) == 0 && listen(listener_, 16) == 0
                    && getsockname(listener_, generic, &size) == 0,
                "the server listens");
        std::thread([this] { Serve(); }).detach();
    }

    int Port() const { return ntohs(address_.sin_port); }

    void SetReply(const std::string &reply)
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        reply_ = reply;
    }

private:
    [[noreturn]] void Serve()
    {
        for (;;) {
            const int client = accept(listener_, nullptr, nullptr);
            const bool is_asked = !CRawServer::ReadRequest(client).empty();
            std::string reply;
            {
                const std::lock_guard<std::mutex> lock(mutex_);
                reply = reply_;
            }
            if (is_asked)
                CRawServer::Send(client, reply);
            close(client);
        }
    }

    const int listener_;
    sockaddr_in address_{};
    std::mutex mutex_;
    std::string reply_; // under the mutex
};

CServer &TheServer()
{
    static auto *const server = new CServer;
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
    TheServer().SetReply(std::string(reinterpret_cast<const char *>(data), size));
    ClientComm::CClientRecvInfo recv;
    const bool is_answered = Exchange(recv);
    const auto error = recv.GetVal_Error_code();
    Require(is_answered
                || (error.module_code == BusinessCommon::kModuleNetwork
                    && recv.Read().Receive_Data.empty()),
            "a failure has its code and no body");
    Require(recv.Read().Receive_Data.size() <= size, "the body is part of the reply");

    TheServer().SetReply(CRawServer::ReplyWith("{}"));
    Require(Exchange(recv) && recv.Read().Receive_Data == "{}", "the next exchange works");
    return 0;
}
