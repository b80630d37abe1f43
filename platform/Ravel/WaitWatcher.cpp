// SPDX-License-Identifier: MIT
#include "Ravel/WaitWatcher.h"

template class Ravel::CUiSingleton<Ravel::CWaitWatcher>;

namespace Ravel {

CWaitWatcher::CWaitWatcher(QObject *parent) : QObject(parent) {}

bool CWaitWatcher::IsWaiting() const
{
    return waits_ > 0;
}

void CWaitWatcher::BeginWait()
{
    if (++waits_ == 1)
        Q_EMIT SignalWaitingChanged(true);
}

void CWaitWatcher::EndWait()
{
    Q_ASSERT(waits_ > 0);
    if (--waits_ == 0)
        Q_EMIT SignalWaitingChanged(false);
}

} // namespace Ravel
