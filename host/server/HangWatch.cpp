// SPDX-License-Identifier: MIT
#include "HangWatch.h"

#include "Sockets.h"
#include "StoreErrors.h"

#include <fcntl.h>
#include <unistd.h>

#include <QtCore/QLibrary>
#include <QtCore/QVariant>
#include <QtSql/QSqlDriver>

namespace Server {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kLook = 250ms;
constexpr int kLibraryVersion = 5;

// The library is loaded already: Qt's driver stands on it. It is not linked, because a server on
// SQLite does without it.
int SocketOf(const QSqlDriver &driver)
{
    using SocketFunction = int (*)(const void *connection);
    const auto socket_of = reinterpret_cast<SocketFunction>(
        QLibrary::resolve(QStringLiteral("libpq"), kLibraryVersion, "PQsocket"));
    if (!socket_of)
        throw DatabaseError("the client library of PostgreSQL, libpq, is missing");
    const QVariant handle = driver.handle();
    return socket_of(*static_cast<const void *const *>(handle.constData()));
}

// A number of our own for the same socket: the library may close its own at any time, and then
// another socket of this process may get its number.
int Duplicate(int socket)
{
#ifdef _WIN32
    return socket;
#else
    return fcntl(socket, F_DUPFD_CLOEXEC, 0);
#endif
}

} // namespace

CHangWatch::CHangWatch(const QSqlDriver &driver)
    : socket_(Duplicate(SocketOf(driver))), thread_(&CHangWatch::Watch, this)
{}

CHangWatch::~CHangWatch()
{
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        is_ending_ = true;
        ending_.notify_one();
    }
    thread_.join();
#ifndef _WIN32
    close(socket_);
#endif
}

void CHangWatch::Begin(std::chrono::milliseconds limit)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    deadline_ = Clock::now() + limit;
}

void CHangWatch::End()
{
    const std::lock_guard<std::mutex> lock(mutex_);
    deadline_.reset();
}

bool CHangWatch::HasBrokenOff()
{
    const std::lock_guard<std::mutex> lock(mutex_);
    return has_broken_off_;
}

// It looks now and then: to be woken for each statement would cost more than the statement.
void CHangWatch::Watch()
{
    std::unique_lock<std::mutex> lock(mutex_);
    while (!ending_.wait_for(lock, kLook, [this] { return is_ending_; })) {
        if (!deadline_ || Clock::now() < *deadline_)
            continue;
        shutdown(socket_, SHUT_RDWR);
        has_broken_off_ = true;
        deadline_.reset();
    }
}

} // namespace Server
