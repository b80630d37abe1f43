// SPDX-License-Identifier: MIT
// Bytes are what a client sends. Whatever they are, the server answers with HTTP or hangs up, hands
// out nothing without a session, and goes on serving.
#include "Require.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <server/Server.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>

#include <cstdint>
#include <string>

namespace {

Server::CServer &TheServer()
{
    static auto *const folder = new QTemporaryDir;
    static Server::CServer *const server = [] {
        Server::ServerOptions options;
        options.database = folder->filePath(QStringLiteral("server.sqlite"));
        auto *const started = new Server::CServer(options);
        Require(started->Start().isEmpty(), "the server starts");
        return started;
    }();
    return *server;
}

// A connection that stays open is left after the patience.
std::string Talk(const std::string &bytes, const timeval &patience)
{
    const int client = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<uint16_t>(TheServer().Port()));
    setsockopt(client, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    Require(connect(client, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0,
            "the server listens");
    send(client, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    shutdown(client, SHUT_WR);
    std::string reply;
    char buffer[4096];
    for (ssize_t count = 0; (count = recv(client, buffer, sizeof buffer, 0)) > 0;)
        reply.append(buffer, static_cast<size_t>(count));
    close(client);
    return reply;
}

} // namespace

// NOLINTNEXTLINE(readability-non-const-parameter): the fuzzer's library fixes the types
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QGuiApplication(*argc, *argv); // codes are drawn
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::string reply =
        Talk(std::string(reinterpret_cast<const char *>(data), size), {0, 20'000});
    Require(reply.empty() || reply.rfind("HTTP/1.", 0) == 0, "an answer is HTTP");
    Require(reply.find("LayoutData") == std::string::npos
                && reply.find("SecuritySetting\"") == std::string::npos
                && reply.find("\"Session\"") == std::string::npos,
            "nothing is handed out without a session");
    static int turns = 0;
    if (++turns % 64 == 0)
        Require(Talk("GET /Quorra/Brisent/Platform/V0/AdaptiveLayout HTTP/1.0\r\nHost: x\r\n\r\n",
                     {5, 0})
                        .find(" 401 ")
                    != std::string::npos,
                "others are served");
    return 0;
}
