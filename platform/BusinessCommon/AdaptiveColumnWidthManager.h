// SPDX-License-Identifier: MIT
#pragma once

#include "BusinessCommon/AdaptiveColumnWidthObserver.h"

#include <functional>
#include <memory>

namespace BusinessCommon {

struct CAdaptiveColumnWidthManagerDataPtr;

/// \brief Reads and writes layout texts on the server without keeping the caller waiting.
///
/// Requests are sent one after another on a thread that all managers share, for the user whose
/// session is set when the request is made. Answers come on the GUI thread, in the order of the
/// manager's requests, never from within the request; a request that is refused, lost or broken off
/// gives an answer too. When a server does not answer one request in time, or cannot be reached,
/// the reads that already wait behind it fail with it, so that their timeouts do not add up.
/// When the manager is destroyed its writes are still sent, its answers are
/// dropped. All operations belong to the GUI thread.
class VANTOR_BASE_EXPORT CAdaptiveColumnWidthManager
{
public:
    using Param = CAdaptiveColumnWidthObserver::Param; ///< What an observer gets.
    /// \brief Takes the one answer to a request; any thread may call it.
    using Answer = std::function<void(const Param &)>;
    /// \brief Answers a request in place of the server.
    using Handler = std::function<void(const AdaptiveLayout &, Answer)>;

    CAdaptiveColumnWidthManager();
    ~CAdaptiveColumnWidthManager();
    CAdaptiveColumnWidthManager(const CAdaptiveColumnWidthManager &) = delete;
    CAdaptiveColumnWidthManager &operator=(const CAdaptiveColumnWidthManager &) = delete;

    /// \brief Notify \a observer of each answer. It is not owned and must unregister before it is
    /// destroyed. A second registration of the same one changes nothing.
    void RegisterObserver(CAdaptiveColumnWidthObserver *observer);
    /// \brief Forget \a observer; one that is not registered is ignored.
    void UnRegisterObserver(CAdaptiveColumnWidthObserver *observer);

    /// \brief Read the text stored under the key of \a layout when its layout_data is empty, store
    /// layout_data otherwise. Null is refused with a log line.
    void AsyRequestAdaptiveColumnWidth(const std::shared_ptr<const AdaptiveLayout> &layout);

    /// \brief Let \a handler answer all requests from now on; an empty function restores the
    /// exchange with the server.
    ///
    /// It is called on the GUI thread and calls its answer once, then or later, on any thread;
    /// get_or_post is filled in for it. An answer that it drops, or an exception, counts as a
    /// failure.
    static void SetHandler(Handler handler);

    /// \brief Wait until all writes so far are answered, at most \a timeout_ms.
    ///
    /// For a host that stops its server: what the user changed last is then stored. The end of the
    /// application object waits in the same way, for at most 0.8 s.
    /// \return false when some are not; they are then given up.
    static bool FinishWrites(int timeout_ms);

private:
    const std::shared_ptr<CAdaptiveColumnWidthManagerDataPtr> d_ptr_;
};

} // namespace BusinessCommon
