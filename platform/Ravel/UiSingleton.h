// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Singleton.h>

#include <QtCore/QMutex>
#include <QtCore/QMutexLocker>

#include <atomic>
#include <memory>

namespace Ravel {

/// \brief One instance of the user-interface class \a T in the process, created by the first
/// Instance().
///
/// The rules of Nim::Base::CSingleton hold: derive from it, export its instantiation once, do not
/// call Instance() in the constructor. The instance lives until the library is unloaded.
template <class T> class CUiSingleton
{
public:
    CUiSingleton(const CUiSingleton &) = delete;
    CUiSingleton &operator=(const CUiSingleton &) = delete;

    /// \brief The instance; the first call creates it on the calling thread. Safe to call from any
    /// thread.
    static T &Instance()
    {
        if (T *const ready = published_.load(std::memory_order_acquire))
            return *ready;
        const QMutexLocker locker(&m_mutex);
        if (!s_instance) {
            s_instance.reset(new T);
            published_.store(s_instance.get(), std::memory_order_release);
        }
        return *s_instance;
    }

protected:
    CUiSingleton() = default;
    ~CUiSingleton() = default;

private:
    static std::unique_ptr<T, Nim::Base::ReleaseAtUnload> s_instance;
    static QMutex m_mutex;
    // Written under m_mutex by the thread that makes the instance, read by every thread.
    static std::atomic<T *> published_;
};

template <class T> std::unique_ptr<T, Nim::Base::ReleaseAtUnload> CUiSingleton<T>::s_instance;
template <class T> QMutex CUiSingleton<T>::m_mutex;
template <class T> std::atomic<T *> CUiSingleton<T>::published_{nullptr};

} // namespace Ravel
