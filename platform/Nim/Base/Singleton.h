// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>

#include <atomic>
#include <memory>
#include <mutex>
#include <type_traits>

namespace Nim::Base {

/// \brief Whether a singleton is left to the operating system when the library is unloaded. A class
/// that others keep the address of, beside QObjects, specialises it as true.
template <class T> struct IsKeptAtUnload : std::is_base_of<QObject, T>
{
};

/// \brief Deletes a singleton, or leaves it alone, when the library is unloaded.
///
/// This happens at the end of the process, when the application object and the window system
/// usually do not exist any more (after exit() in a slot, the application object exists, but its
/// platform plug-in is unloaded). So a QObject is left to the operating system; everything else is
/// deleted, see IsKeptAtUnload.
struct ReleaseAtUnload
{
    /// \brief Called once for each \a instance, by the end of its module.
    template <class T> void operator()(T *instance) const
    {
        if constexpr (!IsKeptAtUnload<T>::value)
            delete instance;
    }
};

/// \brief One instance of \a T in the process, created by the first Instance().
///
/// \a T derives from CSingleton<T>; a private constructor befriends it, the destructor is public,
/// and the constructor must not call Instance(). A class that only one module uses needs nothing
/// more. So that host, plug-ins and library share one instance under hidden visibility, an exported
/// class has its instantiation exported once: \code
/// // Clock.h
/// class CClock;
/// extern template class CLIENT_EXPORT Nim::Base::CSingleton<CClock>;
/// class CLIENT_EXPORT CClock : public Nim::Base::CSingleton<CClock>
/// {
///     friend class Nim::Base::CSingleton<CClock>;
///     CClock() = default;
/// };
/// // Clock.cpp
/// template class Nim::Base::CSingleton<CClock>;
/// \endcode
template <class T> class CSingleton
{
public:
    CSingleton(const CSingleton &) = delete;
    CSingleton &operator=(const CSingleton &) = delete;

    /// \brief The instance; the first call creates it on the calling thread. It exists until the
    /// library is unloaded.
    ///
    /// Safe to call from any thread. \a T documents on which threads the instance may be used.
    static T &Instance()
    {
        if (T *const ready = published_.load(std::memory_order_acquire))
            return *ready;
        const std::lock_guard<std::mutex> lock(mutex_);
        if (!s_instance_) {
            s_instance_.reset(new T);
            published_.store(s_instance_.get(), std::memory_order_release);
        }
        return *s_instance_;
    }

protected:
    CSingleton() = default;
    ~CSingleton() = default;

private:
    static std::unique_ptr<T, ReleaseAtUnload> s_instance_;
    static std::mutex mutex_;
    // Written under mutex_ by the thread that makes the instance, read by every thread: a
    // unique_ptr must not be read outside the lock.
    static std::atomic<T *> published_;
};

template <class T> std::unique_ptr<T, ReleaseAtUnload> CSingleton<T>::s_instance_;
template <class T> std::mutex CSingleton<T>::mutex_;
template <class T> std::atomic<T *> CSingleton<T>::published_{nullptr};

} // namespace Nim::Base
