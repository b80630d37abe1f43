// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/qglobal.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

QT_BEGIN_NAMESPACE
class QSqlDriver;
QT_END_NAMESPACE

namespace Server {

/// \brief Breaks the connection to a PostgreSQL server off when an answer takes too long.
///
/// A server that was stopped, or whose disk hangs, sends nothing and keeps the connection open; no
/// timeout of PostgreSQL or of TCP ends the wait for its answer. This shuts the socket down on
/// another thread, so the statement fails like one whose connection was lost.
class CHangWatch
{
public:
    /// \param driver of an open connection, which the watch does not outlive.
    explicit CHangWatch(const QSqlDriver &driver);
    ~CHangWatch();
    CHangWatch(const CHangWatch &) = delete;
    CHangWatch &operator=(const CHangWatch &) = delete;

    /// \brief An answer is expected within \a limit, until End().
    void Begin(std::chrono::milliseconds limit);
    void End();

    [[nodiscard]] bool HasBrokenOff();

private:
    void Watch();

    const int socket_;
    std::mutex mutex_;
    std::condition_variable ending_;
    // Under the mutex, as are the next two.
    std::optional<std::chrono::steady_clock::time_point> deadline_;
    bool has_broken_off_ = false;
    bool is_ending_ = false;
    std::thread thread_;
};

/// \brief An answer is expected as long as this exists. Without a watch it does nothing.
class CExpectedAnswer
{
public:
    CExpectedAnswer(CHangWatch *watch, std::chrono::milliseconds limit) : watch_(watch)
    {
        if (watch_)
            watch_->Begin(limit);
    }
    ~CExpectedAnswer()
    {
        if (watch_)
            watch_->End();
    }
    CExpectedAnswer(const CExpectedAnswer &) = delete;
    CExpectedAnswer &operator=(const CExpectedAnswer &) = delete;

private:
    CHangWatch *const watch_;
};

} // namespace Server
