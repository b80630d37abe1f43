// SPDX-License-Identifier: MIT
#include "KeyBoard/DeviceThread.h"

namespace KeyBoard {
namespace {

thread_local bool is_device_thread = false;

} // namespace

bool CDeviceThread::IsCurrent()
{
    return is_device_thread;
}

bool CDeviceThread::Begin()
{
    SetPhase(Phase::kPreparing);
    start();
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait(lock, [this] { return phase_ != Phase::kPreparing; });
    return phase_ == Phase::kServing;
}

void CDeviceThread::End()
{
    {
        std::unique_lock<std::mutex> lock(mutex_);
        if (phase_ == Phase::kIdle)
            return;
        if (phase_ == Phase::kServing)
            phase_ = Phase::kEnding;
        changed_.notify_all();
        changed_.wait(lock, [this] { return phase_ == Phase::kEnded; });
    }
    wait();
}

bool CDeviceThread::ShallEnd(std::chrono::milliseconds time)
{
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_for(lock, time, [this] { return phase_ == Phase::kEnding; });
}

void CDeviceThread::SetPhase(Phase phase)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    phase_ = phase;
    changed_.notify_all();
}

void CDeviceThread::run()
{
    is_device_thread = true;
    const bool is_prepared = Prepare();
    SetPhase(is_prepared ? Phase::kServing : Phase::kEnded);
    if (!is_prepared)
        return;
    Serve();
    SetPhase(Phase::kEnded);
}

} // namespace KeyBoard
