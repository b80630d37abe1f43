// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <type_traits>

namespace Ravel {

/// \brief One instance of the QObject class \a T that a parent may own and end. GUI thread only.
///
/// \a T derives from QObject and from CObjectSingleton<T>, befriends the latter and has a private
/// constructor that takes a parent QObject. So that host, plug-ins and library share one instance,
/// an exported \a T declares `extern template class EXPORT_MACRO Ravel::CObjectSingleton<T>;`
/// before its class.
template <class T> class CObjectSingleton
{
public:
    CObjectSingleton(const CObjectSingleton &) = delete;
    CObjectSingleton &operator=(const CObjectSingleton &) = delete;

    /// \brief Make the instance as a child of \a parent, or with no owner, unless there is one
    /// already.
    ///
    /// \return the instance; one that was there keeps the parent it has.
    static T *CreateInstance(QObject *parent = nullptr)
    {
        if (!s_instance)
            s_instance = new T(parent);
        return s_instance;
    }

    /// \brief The instance, or null when it was not made yet or Qt deleted it with its parent.
    /// Never makes one.
    [[nodiscard]] static T *Instance() { return s_instance; }

    /// \brief Delete the instance, if there is one. CreateInstance() then makes a new one.
    static void DeleteInstance() { delete s_instance.data(); }

protected:
    CObjectSingleton() = default;
    ~CObjectSingleton() = default;

    /// \brief For the destructor of a \a T that emits signals: from now on Instance() is null and
    /// DeleteInstance() does nothing.
    static void Retire() { s_instance.clear(); }

private:
    static QPointer<T> s_instance;
};

template <class T> QPointer<T> CObjectSingleton<T>::s_instance;

} // namespace Ravel
