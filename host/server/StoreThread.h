// SPDX-License-Identifier: MIT
#pragma once

#include "Store.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <future>
#include <mutex>
#include <string>
#include <thread>

namespace Server {

/// \brief A thread with a connection to the store; everybody else hands it work and waits.
///
/// The first work connects. When the connection is lost, the next work connects again; until that
/// succeeds, each work fails at once with StoreUnreachable.
class CStoreThread
{
public:
    /// \brief Hears that the store has been lost, with the reason, or is back (an empty text).
    /// Called on the thread.
    using Watch = std::function<void(const std::string &reason)>;

    CStoreThread() = default;
    ~CStoreThread() { Stop(); }
    CStoreThread(const CStoreThread &) = delete;
    CStoreThread &operator=(const CStoreThread &) = delete;

    void Start(StoreAddress address, Watch watch = {});
    /// \brief Finish the work that was handed in, disconnect and end.
    void Stop();

    /// \brief Run \a work on the thread, and return its result or throw its exception. When the
    /// connection breaks off before \a work has stored anything, it is run once more on a new one.
    template <class Work> auto Do(Work &&work)
    {
        using Result = decltype(work(std::declval<CStore &>()));
        std::packaged_task<Result()> task([this, &work] { return WithStore(work); });
        auto result = task.get_future();
        Add([&task] { task(); });
        return result.get();
    }

    /// \brief Run \a work on the thread without waiting for it. If it throws, \a failed gets the
    /// exception.
    void Post(std::function<void(CStore &)> work,
              std::function<void(const std::exception_ptr &)> failed);

private:
    template <class Work> auto WithStore(Work &work)
    {
        for (bool is_again = false;; is_again = true) {
            CStore &store = Connected();
            const qint64 commits = store.Commits();
            try {
                return work(store);
            } catch (const StoreSilent &failure) {
                Disconnect(failure); // no second wait of the same length
                throw;
            } catch (const StoreUnreachable &failure) {
                const bool may_be_stored = store.Commits() != commits;
                Disconnect(failure);
                if (is_again || may_be_stored)
                    throw;
            }
        }
    }

    enum class State { New, Connected, Lost };

    CStore &Connected();
    void Disconnect(const StoreUnreachable &failure);
    void Add(std::function<void()> job);
    void Work();

    StoreAddress address_;
    Watch watch_;
    std::thread thread_;
    std::unique_ptr<CStore> store_; // of the thread, as are the next two
    std::chrono::steady_clock::time_point next_attempt_;
    State state_ = State::New;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> jobs_; // under the mutex, as is the next one
    bool is_ending_ = false;
};

} // namespace Server
