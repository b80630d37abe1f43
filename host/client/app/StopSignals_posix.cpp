// SPDX-License-Identifier: MIT
#include "app/StopSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QtCore/QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>

namespace Client {
namespace {

constexpr std::array<int, 3> kSignals{SIGHUP, SIGINT, SIGTERM};

// A signal handler may only write to a file descriptor. The event loop reads the other end of this
// pipe.
std::array<int, 2> pipe_ends{-1, -1};
std::array<struct sigaction, kSignals.size()> earlier_actions;

void OnSignal(int number)
{
    const int earlier_errno = errno;
    const auto byte = static_cast<unsigned char>(number);
    [[maybe_unused]] const ssize_t written = write(pipe_ends[1], &byte, 1);
    errno = earlier_errno;
}

} // namespace

CStopSignals::CStopSignals(QObject *parent) : QObject(parent)
{
    Q_ASSERT(pipe_ends[0] < 0);
    if (pipe2(pipe_ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *const notifier = new QSocketNotifier(pipe_ends[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        unsigned char number = 0;
        if (read(pipe_ends[0], &number, 1) == 1)
            OnStop(number);
    });
    struct sigaction action = {};
    action.sa_handler = OnSignal;
    action.sa_flags = SA_RESTART;
    for (size_t i = 0; i < kSignals.size(); ++i) {
        sigaction(kSignals[i], nullptr, &earlier_actions[i]);
        if (earlier_actions[i].sa_handler != SIG_IGN)
            sigaction(kSignals[i], &action, nullptr);
    }
}

CStopSignals::~CStopSignals()
{
    if (pipe_ends[0] < 0)
        return;
    for (size_t i = 0; i < kSignals.size(); ++i)
        sigaction(kSignals[i], &earlier_actions[i], nullptr);
    for (int &end : pipe_ends) {
        close(end);
        end = -1;
    }
}

} // namespace Client
