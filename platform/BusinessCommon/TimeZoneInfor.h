// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>
#include <Nim/Base/Record.h>

namespace BusinessCommon {

/// \brief The zone of a device or of the client as biases in minutes: UTC = local standard time +
/// utc_bias, and in daylight saving UTC = local time + utc_bias + daylight_bias.
struct TimeZoneInfor
{
    int utc_bias = 0;      ///< UTC+8 is -480
    bool b_dst = false;    ///< the zone has daylight saving
    int daylight_bias = 0; ///< an hour forward in summer is -60
};

/// \brief A TimeZoneInfor as a record.
class VANTOR_BASE_EXPORT CTimeZoneInfor : public Nim::Base::CRecord<TimeZoneInfor>
{
    VANTOR_RECORD(CTimeZoneInfor)
    VANTOR_RECORD_FIELD(utc_bias)
    VANTOR_RECORD_FIELD(b_dst)
    VANTOR_RECORD_FIELD(daylight_bias)
};

} // namespace BusinessCommon
