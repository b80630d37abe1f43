// SPDX-License-Identifier: MIT
#pragma once

#include "Message.h"

#include <QtCore/QString>

#include <functional>
#include <memory>
#include <string>
#include <vector>

struct MHD_Daemon;

namespace Server {

class CConnections;
struct ServerOptions;

/// \brief What a front asks of the server behind it. Called on several threads at once.
struct FrontHandler
{
    /// Answers a request, at once or later (Reply::later). The request stays valid until its reply
    /// is there. Every reply must be there before the front is stopped.
    std::function<Reply(const Request &)> answer;
    /// The longest body, in bytes, that a request may have; called before the body is read.
    /// Throws Refused to refuse the request without reading its body.
    std::function<size_t(const Request &)> body_limit;
    /// Hears of each request that is refused without being handed over.
    std::function<void(const Request &, int status)> refused;
    /// Hears that a connection of \a address was closed to make room.
    std::function<void(const std::string &address)> closed;
};

/// \brief Listens, reads requests within their limits, and hands each to one function.
///
/// When there are many connections, those that wait the longest without a session are closed first.
class CHttpFront
{
public:
    explicit CHttpFront(FrontHandler handler);
    ~CHttpFront();
    CHttpFront(const CHttpFront &) = delete;
    CHttpFront &operator=(const CHttpFront &) = delete;

    /// \return an empty text, or why it cannot listen.
    [[nodiscard]] QString Start(const ServerOptions &options);
    void Stop();
    [[nodiscard]] int Port() const;

    /// \brief Whether \a address is that of a proxy that names its clients.
    [[nodiscard]] bool IsProxy(const std::string &address) const;

    [[nodiscard]] const FrontHandler &Handler() const { return handler_; }
    [[nodiscard]] CConnections &Connections() const { return *connections_; }

private:
    const FrontHandler handler_;
    const std::unique_ptr<CConnections> connections_;
    std::vector<std::string> proxies_; // from Start() on, unchanged
    MHD_Daemon *daemon_ = nullptr;
};

} // namespace Server
