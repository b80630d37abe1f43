// SPDX-License-Identifier: MIT
#include "ListThreads.h"

namespace Server {
namespace {

using namespace std::chrono_literals;

constexpr auto kQuickLimit = 250ms;
constexpr auto kSlowLimit = 4s; // two of them take less than the patience of a client
constexpr int kMostQuick = 128;
constexpr int kMostSlow = 2; // one that runs and one that waits

} // namespace

void CListThreads::Start(const StoreAddress &address)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    quick_.Start(address);
    slow_.Start(address);
    is_running_ = true;
}

void CListThreads::Stop()
{
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        is_running_ = false;
    }
    quick_.Stop(); // first: it hands work to the other one
    slow_.Stop();
}

void CListThreads::Refuse(const Done &done)
{
    done([]() -> Reply { throw Refused(kUnavailable); });
}

void CListThreads::Run(const Work &work, const Done &done, const std::function<bool()> &is_unwanted)
{
    const auto is_over = [this, is_unwanted] {
        return !is_running_ || (is_unwanted && is_unwanted());
    };
    std::unique_lock<std::mutex> lock(mutex_);
    if (quick_count_.fetch_add(1) >= kMostQuick || !is_running_) {
        --quick_count_;
        lock.unlock();
        Refuse(done);
        return;
    }
    quick_.Post(
        [this, work, done, is_over](CStore &store) {
            store.SetTimeLimit(kQuickLimit, is_over);
            Reply reply = work(store);
            --quick_count_;
            done([&reply] { return reply; });
        },
        [this, work, done, is_over](const std::exception_ptr &failure) {
            --quick_count_;
            try {
                std::rethrow_exception(failure);
            } catch (const StoreTimeout &) {
                RunSlowly(work, done, is_over);
            } catch (...) {
                done([&failure]() -> Reply { std::rethrow_exception(failure); });
            }
        });
}

void CListThreads::RunSlowly(const Work &work, const Done &done,
                             const std::function<bool()> &is_over)
{
    if (slow_count_.fetch_add(1) >= kMostSlow || !is_running_) {
        --slow_count_;
        Refuse(done);
        return;
    }
    slow_.Post(
        [this, work, done, is_over](CStore &store) {
            store.SetTimeLimit(kSlowLimit, is_over);
            Reply reply = work(store);
            --slow_count_;
            done([&reply] { return reply; });
        },
        [this, done](const std::exception_ptr &failure) {
            --slow_count_;
            if (!is_running_)
                Refuse(done);
            else
                done([&failure]() -> Reply { std::rethrow_exception(failure); });
        });
}

} // namespace Server
