// SPDX-License-Identifier: MIT
#pragma once

#include "BusinessCommon/AdaptiveColumnWidthObserver.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>

namespace BusinessCommon {

/// \brief Read or write \a layout on the server for \a session, and wait for it.
[[nodiscard]] CAdaptiveColumnWidthObserver::Param ExchangeLayout(const AdaptiveLayout &layout,
                                                                 const std::string &session);

/// \brief Whether a request writes: it brings a text.
[[nodiscard]] bool IsWrite(const AdaptiveLayout &layout);

/// \brief The outcome of a request that did not get through.
[[nodiscard]] CAdaptiveColumnWidthObserver::Param FailedLayout(int code);

/// \brief The requests of all managers, sent one after another on a thread of their own, which ends
/// when it has had nothing to do for a while.
///
/// When a server is silent or cannot be reached, the reads that wait for it fail at once. A write
/// is tried all the same, because it is a change of the user.
class CLayoutQueue
{
public:
    using Answer = std::function<void(const CAdaptiveColumnWidthObserver::Param &)>;

    static CLayoutQueue &Instance();

    void Add(const AdaptiveLayout &layout, Answer answer);
    /// \brief Wait for the writes so far, for a limited time; drop the rest.
    bool FinishWrites(std::chrono::milliseconds time);

private:
    struct Job
    {
        AdaptiveLayout layout;
        std::string session;
        int server = 0; // see CurrentServerNumber()
        Answer answer;
    };

    void Work();
    [[nodiscard]] std::deque<Job> TakeReads(int server);
    [[nodiscard]] bool HasWrites() const;

    // All under the mutex.
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Job> jobs_;
    bool is_running_ = false;
    bool is_writing_ = false;
};

} // namespace BusinessCommon
