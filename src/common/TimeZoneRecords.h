// SPDX-License-Identifier: MIT
#pragma once

#include "common/Record.h"

#include <VantorExport.h>

#include <QtCore/QtGlobal>

#include <string>

// Biases are minutes, with UTC = local standard time + utc_bias and, in daylight saving,
// UTC = local time + utc_bias + daylight_bias: UTC+8 is -480, an hour forward in summer is -60.
//
// Assigning one of these records to another of its class makes both use one structure, so that a
// later SetVal_ on either shows in both; copy construction is deep. The same holds for a record
// that is set as a field: SetVal_dST() shares its argument.

namespace Vantor {

/// \brief The zone of a time line, with the daylight-saving period of one year.
///
/// The period counts from begin to before end. Where begin is not before end it wraps the turn of
/// the year, as south of the equator: it then counts before end and from begin on. Both 0 is
/// therefore daylight saving at all times.
struct TimeZoneParam
{
    qint64 tm_dst_begin = 0; ///< seconds since 1970 UTC
    qint64 tm_dst_end = 0;   ///< seconds since 1970 UTC
    int utc_bias = 0;        ///< minutes, west positive: UTC+8 is -480
    int daylight_bias = 0;   ///< minutes: an hour forward in summer is -60
    bool b_dst = false;      ///< the zone has daylight saving
};

/// \brief A daylight-saving rule as the server describes it; carried, not interpreted.
struct DaylightSavingTime
{
    int daylight_bias = 0;     ///< minutes: an hour forward in summer is -60
    std::string daylight_date; ///< rule for the start, as received
    bool enable = false;       ///< the rule is in force
    std::string standard_date; ///< rule for the return to standard time, as received
};

/// \brief A TimeZoneParam as a record.
class VANTOR_EXPORT CTimeZoneParam : public CRecord<TimeZoneParam, SharedAssignment>
{
    VANTOR_RECORD(CTimeZoneParam)
    VANTOR_RECORD_FIELD(tm_dst_begin)
    VANTOR_RECORD_FIELD(tm_dst_end)
    VANTOR_RECORD_FIELD(utc_bias)
    VANTOR_RECORD_FIELD(daylight_bias)
    VANTOR_RECORD_FIELD(b_dst)
};

/// \brief A DaylightSavingTime as a record.
class VANTOR_EXPORT CDaylightSavingTime : public CRecord<DaylightSavingTime, SharedAssignment>
{
    VANTOR_RECORD(CDaylightSavingTime)
    VANTOR_RECORD_FIELD(daylight_bias)
    VANTOR_RECORD_FIELD(daylight_date)
    VANTOR_RECORD_FIELD(enable)
    VANTOR_RECORD_FIELD(standard_date)
};

/// \brief A zone of the server's list.
struct RawTimeZone
{
    int bias = 0;            ///< minutes, west positive
    CDaylightSavingTime dST; ///< the rule of daylight saving
    int iD = 0;              ///< the server's number of the zone
    int time_type = 0;       ///< the server's code; passed through
};

/// \brief A RawTimeZone as a record. A copy of it has a rule of its own.
class VANTOR_EXPORT CRawTimeZone : public CRecord<RawTimeZone, SharedAssignment>
{
    VANTOR_RECORD(CRawTimeZone)
    VANTOR_RECORD_FIELD(bias)
    VANTOR_RECORD_FIELD(dST)
    VANTOR_RECORD_FIELD(iD)
    VANTOR_RECORD_FIELD(time_type)
};

/// \brief What to ask the server for: the zone of a resource, or the client's own.
struct RequestTimeZone
{
    bool client_zone = false; ///< ask for the client's own zone
    std::string iD;           ///< of the resource
    std::string site_iD;      ///< of the site of the resource
    int resource_type = 0;    ///< the server's code; passed through
};

/// \brief A RequestTimeZone as a record.
class VANTOR_EXPORT CRequestTimeZone : public CRecord<RequestTimeZone, SharedAssignment>
{
    VANTOR_RECORD(CRequestTimeZone)
    VANTOR_RECORD_FIELD(client_zone)
    VANTOR_RECORD_FIELD(iD)
    VANTOR_RECORD_FIELD(site_iD)
    VANTOR_RECORD_FIELD(resource_type)
};

} // namespace Vantor
