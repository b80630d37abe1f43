// SPDX-License-Identifier: MIT
#include "common/EventTransMgr.h"

#include "common/CustomEvent.h"
#include "common/Guard.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>

template class Nim::Base::CSingleton<Vantor::CEventTransMgr>;

namespace Vantor {

CEventTransMgr::CEventTransMgr() = default;
CEventTransMgr::~CEventTransMgr() = default;

bool CEventTransMgr::SendCustomEvent(QEvent *event)
{
    bool result = false;
    if (event)
        RunGuarded("Vantor::CEventTransMgr::SendCustomEvent",
                   [&] { result = QCoreApplication::sendEvent(this, event); });
    return result;
}

void CEventTransMgr::PostCustomEvent(QEvent *event)
{
    if (event)
        RunGuarded("Vantor::CEventTransMgr::PostCustomEvent",
                   [&] { QCoreApplication::postEvent(this, event, Qt::NormalEventPriority); });
}

bool CEventTransMgr::event(QEvent *event)
{
    // Types are passed on unchanged, but this one would delete the singleton for all receivers.
    if (event->type() == QEvent::DeferredDelete)
        return true;
    // Because of the type, Qt would cast the event to one of its own classes.
    if (event->type() < QEvent::User && dynamic_cast<const CCustomEvent *>(event))
        return false;
    return QObject::event(event);
}

bool CEventTransMgr::eventFilter(QObject *watched, QEvent *event)
{
    return QObject::eventFilter(watched, event);
}

} // namespace Vantor
