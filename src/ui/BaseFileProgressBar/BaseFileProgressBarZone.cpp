// SPDX-License-Identifier: MIT
#include "common/TimeZoneRecords.h"
#include "ui/BaseFileProgressBar/BaseFileProgressBar.h"
#include "ui/BaseFileProgressBar/BaseFileProgressBar_p.h"

#include <BusinessCommon/IsoTime.h>
#include <BusinessCommon/TimeZoneManager.h>

namespace Vantor {

void CBaseFileProgressBar::SetDeviceTimeZoneInfor(
    const std::shared_ptr<BusinessCommon::CTimeZoneInfor> &info)
{
    constexpr int kTmYearBase = 1900;
    if (!info)
        return;
    d_ptr_->device_zone_ = *info;
    TimeZoneParam zone;
    zone.b_dst = info->GetVal_b_dst();
    zone.daylight_bias = info->GetVal_daylight_bias();
    zone.utc_bias = info->GetVal_utc_bias();

    const int year = QDateTime::fromSecsSinceEpoch(GetCurrentUTCTime()).date().year();
    std::tm begin{};
    std::tm end{};
    if (Nim::Base::CSingleton<BusinessCommon::CTimeZoneManager>::Instance().GetDstDate(
            begin, zone.tm_dst_begin, end, zone.tm_dst_end, year - kTmYearBase, info))
        SetTimeZoneInfor(CTimeZoneParam(zone));
}

const BusinessCommon::CTimeZoneInfor &CBaseFileProgressBar::GetDeviceTimeZoneInfor() const
{
    return d_ptr_->device_zone_;
}

qint64 CBaseFileProgressBar::ISOTimeToTimeT(std::string text) // NOLINT: by value is fixed
{
    return BusinessCommon::IsoTextToSeconds(text);
}

} // namespace Vantor
