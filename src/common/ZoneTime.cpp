// SPDX-License-Identifier: MIT
#include "common/ZoneTime.h"

#include "common/TimeZoneRecords.h"

#include <Nim/Base/TimeUnits.h>

#include <QtCore/QTimeZone>

#include <cstdlib>
#include <limits>

namespace Vantor {
namespace {

using Nim::Base::kMillisecondsPerSecond;
using Nim::Base::kMinutesPerHour;
using Nim::Base::kSecondsPerHour;
using Nim::Base::kSecondsPerMinute;

// QTimeZone takes an int and refuses what is above 14 hours; what is above int must not wrap into
// that range.
QTimeZone FixedZone(qint64 offset_s)
{
    constexpr qint64 kRefused = std::numeric_limits<int>::max();
    return QTimeZone(static_cast<int>(qBound(-kRefused, offset_s, kRefused)));
}

bool HasDateTime(qint64 seconds)
{
    return std::llabs(seconds) <= std::numeric_limits<qint64>::max() / kMillisecondsPerSecond;
}

QDateTime InZone(qint64 seconds, qint64 offset_s)
{
    return HasDateTime(seconds) ? QDateTime::fromSecsSinceEpoch(seconds, FixedZone(offset_s))
                                : QDateTime();
}

std::string OffsetText(int utc_bias)
{
    const qint64 minutes = std::abs(qint64(utc_bias));
    return QString::asprintf("%c%lld:%02lld", utc_bias < 0 ? '+' : '-', minutes / kMinutesPerHour,
                             minutes % kMinutesPerHour)
        .toStdString();
}

} // namespace

bool IsInDstPeriod(const TimeZoneParam &zone, qint64 seconds)
{
    if (zone.tm_dst_begin < zone.tm_dst_end)
        return zone.tm_dst_begin <= seconds && seconds < zone.tm_dst_end;
    return seconds < zone.tm_dst_end || seconds >= zone.tm_dst_begin;
}

qint64 WallClockOffset(const TimeZoneParam &zone, qint64 seconds)
{
    const bool is_dst = zone.b_dst && IsInDstPeriod(zone, seconds);
    const qint64 bias_min = qint64(zone.utc_bias) + (is_dst ? zone.daylight_bias : 0);
    return -bias_min * kSecondsPerMinute;
}

QDateTime WallClockOf(const TimeZoneParam &zone, qint64 seconds)
{
    const qint64 wall_clock = seconds + WallClockOffset(zone, seconds);
    return HasDateTime(wall_clock) ? QDateTime::fromSecsSinceEpoch(wall_clock, Qt::UTC)
                                   : QDateTime();
}

QDateTime DateTimeInZone(const TimeZoneParam &zone, qint64 seconds)
{
    return InZone(seconds, WallClockOffset(zone, seconds));
}

QDateTime DateTimeByBias(const TimeZoneParam &zone, qint64 seconds)
{
    const qint64 daylight_min = IsInDstPeriod(zone, seconds) ? zone.daylight_bias : 0;
    return InZone(seconds, (zone.utc_bias - daylight_min) * kSecondsPerMinute);
}

std::string IsoTextOfWallClock(const TimeZoneParam &zone, const QDateTime &wall_clock)
{
    if (!wall_clock.date().isValid())
        return {};
    // An invalid date-time keeps its fields; as UTC they are a time that exists, and the hours
    // carry into the next day.
    QDateTime fields(wall_clock.date(), wall_clock.time(), Qt::UTC);
    if (!wall_clock.isValid())
        fields = fields.addSecs(zone.daylight_bias / -kMinutesPerHour * kSecondsPerHour);
    const QDate date = fields.date();
    const QTime time = fields.time();
    const int year = date.year() < 0 ? date.year() + 1 : date.year(); // QDate has no year 0
    return QString::asprintf("%04d-%02d-%02dT%02d:%02d:%02d", year, date.month(), date.day(),
                             time.hour(), time.minute(), time.second())
               .toStdString()
           + OffsetText(zone.utc_bias);
}

qint64 CorrectForDst(const TimeZoneParam &zone, qint64 standard_s)
{
    if (!zone.b_dst)
        return standard_s;
    const bool is_dst = zone.tm_dst_begin < zone.tm_dst_end
                            ? zone.tm_dst_begin < standard_s && standard_s <= zone.tm_dst_end
                            : standard_s < zone.tm_dst_end || standard_s >= zone.tm_dst_begin;
    return is_dst ? standard_s + zone.daylight_bias * kSecondsPerMinute : standard_s;
}

} // namespace Vantor
