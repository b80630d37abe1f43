// SPDX-License-Identifier: MIT
#pragma once

#include "Message.h"

#include <QtCore/QString>

#include <memory>

struct MHD_Daemon;

namespace Server {

struct ServerOptions;

/// \brief Listens, reads requests within their limits, and hands each to one function.
class CHttpFront
{
public:
    /// Longest body of a request in bytes; longer ones get status 413.
    static constexpr size_t kMaximumBody = size_t(2) << 20;

    /// \param handler is called on several threads at once; what it throws becomes a status.
    explicit CHttpFront(Handler handler);
    ~CHttpFront();
    CHttpFront(const CHttpFront &) = delete;
    CHttpFront &operator=(const CHttpFront &) = delete;

    /// \return an empty text, or why it cannot listen.
    [[nodiscard]] QString Start(const ServerOptions &options);
    void Stop();
    [[nodiscard]] int Port() const;

    /// \brief \a handler's answer, with what it throws as a status.
    [[nodiscard]] Reply Answer(const Request &request) const;

private:
    const Handler handler_;
    MHD_Daemon *daemon_ = nullptr;
};

} // namespace Server
