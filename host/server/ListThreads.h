// SPDX-License-Identifier: MIT
#pragma once

#include "Message.h"
#include "StoreThread.h"

#include <atomic>
#include <functional>
#include <mutex>

namespace Server {

/// \brief Two threads that read lists: one for quick requests and one for those that turn out to be
/// slow, so that a long search delays only other long searches.
///
/// Both have a time limit and take only so much work and refuse more.
class CListThreads
{
public:
    using Work = std::function<Reply(CStore &)>;
    /// Gets the result, which throws what the work threw.
    using Done = std::function<void(const std::function<Reply()> &result)>;

    void Start(const StoreAddress &address);
    /// \brief Refuse the accepted work that is not done at once, and until the next Start() all new
    /// work.
    void Stop();

    /// \brief Run \a work, and then \a done on the same thread, once; or \a done at once with a
    /// refusal. \a work may be begun more than once. When \a is_unwanted says so, before \a done is
    /// called, it is broken off.
    void Run(const Work &work, const Done &done, const std::function<bool()> &is_unwanted);

private:
    void RunSlowly(const Work &work, const Done &done, const std::function<bool()> &is_over);
    static void Refuse(const Done &done);

    CStoreThread quick_;
    CStoreThread slow_;
    std::mutex mutex_;
    std::atomic<bool> is_running_{false}; // changed under the mutex
    std::atomic<int> quick_count_{0};
    std::atomic<int> slow_count_{0};
};

} // namespace Server
