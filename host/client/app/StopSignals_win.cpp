// SPDX-License-Identifier: MIT
#include "app/StopSignals.h"

#include <windows.h>

#include <csignal>
#include <mutex>

namespace Client {
namespace {

std::mutex mutex;
CStopSignals *listener = nullptr; // under the mutex

// Runs on a thread of its own.
BOOL WINAPI OnConsoleEvent(DWORD event)
{
    const std::lock_guard<std::mutex> lock(mutex);
    const int number = event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT ? SIGINT : SIGTERM;
    return listener && QMetaObject::invokeMethod(listener, "OnStop", Q_ARG(int, number));
}

} // namespace

CStopSignals::CStopSignals(QObject *parent) : QObject(parent)
{
    const std::lock_guard<std::mutex> lock(mutex);
    listener = this;
    SetConsoleCtrlHandler(OnConsoleEvent, TRUE);
}

CStopSignals::~CStopSignals()
{
    SetConsoleCtrlHandler(OnConsoleEvent, FALSE);
    const std::lock_guard<std::mutex> lock(mutex);
    listener = nullptr;
}

} // namespace Client
