// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Singleton.h>
#include <VantorExport.h>

#include <QtCore/QObject>

namespace Vantor {

class CEventTransMgr;

} // namespace Vantor

extern template class VANTOR_EXPORT Nim::Base::CSingleton<Vantor::CEventTransMgr>;

namespace Vantor {

/// \brief Distributes events in the process: events sent or posted to this object reach every event
/// filter that is installed on it.
///
/// Reached through Nim::Base::CSingleton<CEventTransMgr>::Instance(). Events are delivered on the
/// thread that called it first, so a host calls it on the GUI thread at start-up; the library never
/// makes the first call. A receiver calls installEventFilter() on the manager and reads the events
/// in its eventFilter(); the filter installed last sees an event first, and one that returns true
/// keeps it from the others.
///
/// Types below 1000 belong to Qt, which handles them. A deferred deletion, and a CCustomEvent with
/// such a type, are ignored after the filters have seen them.
class VANTOR_EXPORT CEventTransMgr : public QObject, public Nim::Base::CSingleton<CEventTransMgr>
{
    Q_OBJECT

public:
    ~CEventTransMgr() override;

    /// \brief Deliver \a event now; the caller keeps it. On the manager's thread only.
    ///
    /// \return the result of QCoreApplication::sendEvent(), which is true for a user event even
    /// without a filter; false for null, or if a receiver threw.
    bool SendCustomEvent(QEvent *event);

    /// \brief Queue \a event with normal priority; the event queue owns it from now on. Any thread.
    ///
    /// Events of one thread arrive in the order in which it posted them. Filters installed before
    /// the event is delivered see it. Null is ignored.
    void PostCustomEvent(QEvent *event);

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    friend class Nim::Base::CSingleton<CEventTransMgr>;
    CEventTransMgr();
};

} // namespace Vantor
