// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <utility>

namespace Nim::Base {

/// \brief A function behind a service that a host or a test may replace while threads run.
///
/// Set() swaps the function under a mutex; Get() copies it out, so that no lock is held during the
/// call and a function that is being replaced stays alive until its last call ends.
template <class Signature> class CReplaceable
{
public:
    /// \param preset what an empty function restores; must not be empty itself.
    explicit CReplaceable(std::function<Signature> preset)
        : preset_(std::make_shared<std::function<Signature>>(std::move(preset))), current_(preset_)
    {}

    /// \brief Use \a replacement from the next Get() on; an empty one restores the preset.
    void Set(std::function<Signature> replacement)
    {
        auto next = replacement ? std::make_shared<std::function<Signature>>(std::move(replacement))
                                : preset_;
        const std::lock_guard<std::mutex> lock(mutex_);
        current_.swap(next); // the old one is released after the lock
    }

    /// \brief The present function; never null, and never empty.
    [[nodiscard]] std::shared_ptr<const std::function<Signature>> Get() const
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        return current_;
    }

private:
    mutable std::mutex mutex_;
    const std::shared_ptr<std::function<Signature>> preset_;
    std::shared_ptr<std::function<Signature>> current_;
};

} // namespace Nim::Base
