// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QThread>

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace KeyBoard {

/// \brief A thread that serves one device until it is ended.
///
/// Qt delivers no event on any thread without an application object, so nothing here is one:
/// Serve() waits for its device itself and asks ShallEnd() in between. That way the thread starts
/// and ends before, during and after the application object's life.
///
/// A derived class calls Begin() in its constructor and End() in its destructor.
class CDeviceThread : private QThread // clazy:exclude=ctor-missing-parent-argument
{
public:
    ~CDeviceThread() override = default;

    /// \brief Whether the calling thread is one of these.
    [[nodiscard]] static bool IsCurrent();

protected:
    /// \brief Start the thread. \return what Prepare() gave.
    bool Begin();
    /// \brief End the thread, and wait until it has ended; not from the thread itself.
    void End();

    /// \brief Make the device ready, on the thread. \return false when there is nothing to serve.
    virtual bool Prepare() = 0;
    /// \brief Serve the device until ShallEnd(), on the thread; then let it go.
    virtual void Serve() = 0;

    /// \brief Wait for End(), but no longer than \a time. On the thread.
    [[nodiscard]] bool ShallEnd(std::chrono::milliseconds time);

private:
    enum class Phase {
        kIdle,
        kPreparing,
        kServing,
        kEnding, ///< End() waits.
        kEnded,
    };

    void run() final;
    void SetPhase(Phase phase);

    std::mutex mutex_;
    std::condition_variable changed_;
    Phase phase_ = Phase::kIdle; // under the mutex
};

} // namespace KeyBoard
