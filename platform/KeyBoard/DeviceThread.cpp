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
    start();
    is_ready_.acquire();
    return is_prepared_;
}

void CDeviceThread::End()
{
    is_ended_.release();
    wait();
}

bool CDeviceThread::ShallEnd(std::chrono::milliseconds time)
{
    return is_ended_.tryAcquire(1, int(time.count()));
}

void CDeviceThread::run()
{
    is_device_thread = true;
    const bool is_prepared = Prepare();
    is_prepared_ = is_prepared;
    is_ready_.release();
    if (is_prepared)
        Serve();
}

} // namespace KeyBoard
