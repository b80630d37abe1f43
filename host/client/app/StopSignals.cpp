// SPDX-License-Identifier: MIT
#include "app/StopSignals.h"

namespace Client {

void CStopSignals::OnStop(int number)
{
    if (status_ != 0)
        return;
    status_ = 128 + number;
    Q_EMIT SignalStop(status_);
}

} // namespace Client
