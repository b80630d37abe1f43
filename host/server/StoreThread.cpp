// SPDX-License-Identifier: MIT
#include "StoreThread.h"

#include "Migrations.h"

namespace Server {
namespace {

using namespace std::chrono_literals;

constexpr auto kPause = 500ms; // between two attempts to connect

} // namespace

void CStoreThread::Start(StoreAddress address, Watch watch)
{
    address_ = std::move(address);
    watch_ = std::move(watch);
    is_ending_ = false;
    thread_ = std::thread(&CStoreThread::Work, this);
}

void CStoreThread::Stop()
{
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        is_ending_ = true;
        changed_.notify_one();
    }
    thread_.join();
}

void CStoreThread::Post(std::function<void(CStore &)> work,
                        std::function<void(const std::exception_ptr &)> failed)
{
    Add([this, work = std::move(work), failed = std::move(failed)] {
        try {
            WithStore(work);
        } catch (...) {
            failed(std::current_exception());
        }
    });
}

CStore &CStoreThread::Connected()
{
    if (store_)
        return *store_;
    // Work that has waited for a failed attempt fails at once, instead of waiting for an attempt of
    // its own.
    if (std::chrono::steady_clock::now() < next_attempt_)
        throw StoreUnreachable("the database cannot be reached");
    try {
        store_ = OpenStore(address_);
    } catch (const StoreUnavailable &) {
        next_attempt_ = std::chrono::steady_clock::now() + kPause;
        throw;
    }
    if (state_ == State::Lost && watch_)
        watch_({});
    state_ = State::Connected;
    return *store_;
}

void CStoreThread::Disconnect(const StoreUnreachable &failure)
{
    store_.reset();
    if (state_ == State::Connected && watch_)
        watch_(failure.what());
    state_ = State::Lost;
}

void CStoreThread::Add(std::function<void()> job)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    jobs_.push_back(std::move(job));
    changed_.notify_one();
}

void CStoreThread::Work()
{
    std::unique_lock<std::mutex> lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return is_ending_ || !jobs_.empty(); });
        if (jobs_.empty())
            break;
        const std::function<void()> job = std::move(jobs_.front());
        jobs_.pop_front();
        lock.unlock();
        job();
        lock.lock();
    }
    lock.unlock();
    store_.reset();
}

} // namespace Server
