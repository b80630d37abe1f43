// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <type_traits>

namespace Ravel {

/// \brief One instance of the QObject class \a T, which a parent may own and delete. GUI thread
/// only.
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

    /// \brief Create the instance as a child of \a parent, or without an owner, unless it exists.
    ///
    /// \return the instance; an existing instance keeps its parent.
    static T *CreateInstance(QObject *parent = nullptr)
    {
        if (!s_instance)
            s_instance = new T(parent);
        return s_instance;
    }

    /// \brief The instance, or null if it does not exist yet or was deleted with its parent. Never
    /// creates it.
    [[nodiscard]] static T *Instance() { return s_instance; }

    /// \brief Delete the instance, if it exists. CreateInstance() then creates a new one.
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
