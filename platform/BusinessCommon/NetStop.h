// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>

#include <atomic>

namespace BusinessCommon {

/// \brief Lets any thread break off the exchanges that were given it, see
/// CNetCommManager::ClientSynSendUntil().
///
/// It has to outlive those exchanges. It stays stopped: each task has one of its own.
class VANTOR_BASE_EXPORT CNetStop
{
public:
    CNetStop() = default;
    CNetStop(const CNetStop &) = delete;
    CNetStop &operator=(const CNetStop &) = delete;

    /// \brief Close the connection of the exchange under way, which ends with kNetBroken at once.
    /// Later ones end so without being sent.
    void Stop();
    /// \brief Whether Stop() was called. Any thread.
    [[nodiscard]] bool IsStopped() const { return is_stopped_; }

private:
    std::atomic<bool> is_stopped_{false};
};

} // namespace BusinessCommon
