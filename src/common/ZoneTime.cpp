// SPDX-License-Identifier: MIT
#include "common/ZoneTime.h"

#include "common/DateText.h"
#include "common/TimeZoneRecords.h"

#include <Nim/Base/TimeUnits.h>

#include <QtCore/QLocale>
#include <QtCore/QTimeZone>

#include <cstdlib>
#include <limits>

namespace Vantor {
namespace {

using Nim::Base::kMillisecondsPerSecond;
using Nim::Base::kMinutesPerHour;
using Nim::Base::kSecondsPerHour;
using Nim::Base::kSecondsPerMinute;

// QTimeZone takes an int and refuses more than 14 hours; an offset beyond int must not wrap into
// that range.
QTimeZone FixedZone(qint64 offset_s)
{
    constexpr qint64 kRefused = std::numeric_limits<int>::max();
    return QTimeZone(static_cast<int>(qBound(-kRefused, offset_s, kRefused)));
}

// Leaves room for any offset.
bool HasDateTime(qint64 seconds)
{
    constexpr qint64 kMost = std::numeric_limits<qint64>::max() / kMillisecondsPerSecond / 2;
    return -kMost <= seconds && seconds <= kMost;
}

QDateTime InZone(qint64 seconds, qint64 offset_s)
{
    return HasDateTime(seconds) ? QDateTime::fromSecsSinceEpoch(seconds, FixedZone(offset_s))
                                : QDateTime();
}

std::string IsoOffset(int utc_bias)
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
    if (!HasDateTime(seconds))
        return {};
    return QDateTime::fromSecsSinceEpoch(seconds + WallClockOffset(zone, seconds), Qt::UTC);
}

QString OffsetText(qint64 offset_s, const QLocale &locale)
{
    QString text = QStringLiteral("UTC");
    if (offset_s == 0)
        return text;
    const qint64 minutes = std::llabs(offset_s) / kSecondsPerMinute;
    text += (offset_s < 0 ? QChar(0x2212) : QChar(u'+')) + locale.toString(minutes / 60);
    if (minutes % 60 != 0)
        text +=
            QLatin1Char(':') + locale.toString(minutes % 60).rightJustified(2, locale.zeroDigit());
    // Embedded from left to right, so that right-to-left text around it does not reorder it.
    return QChar(0x202A) + text + QChar(0x202C);
}

QString WallClockText(const TimeZoneParam &zone, qint64 seconds, const QLocale &locale)
{
    const QDateTime wall = WallClockOf(zone, seconds);
    if (!wall.isValid())
        return QStringLiteral("–");
    return DateText(locale, wall.date(), DateParts::DayMonthYear) + QLatin1Char(' ')
           + locale.toString(wall.time(), QStringLiteral("HH:mm:ss")) + QLatin1Char(' ')
           + OffsetText(WallClockOffset(zone, seconds), locale);
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
           + IsoOffset(zone.utc_bias);
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
