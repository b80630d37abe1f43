// SPDX-License-Identifier: MIT
#pragma once

#include "ui/BaseFileProgressBar/BaseFileProgressBar.h"
#include "ui/TimeBarDelegate/TimeBarDelegate.h"

#include <BusinessCommon/TimeZoneInfor.h>

#include <QtCore/QPointer>

namespace Vantor {

struct CBaseFileProgressBarDataPtr
{
    BusinessCommon::CTimeZoneInfor device_zone_; // given last, shown or not
    QList<int> list_types_;
    QPointer<CTimeBarDelegate> ptr_time_bars_;
};

} // namespace Vantor
