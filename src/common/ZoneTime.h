// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QDateTime>

#include <string>

QT_BEGIN_NAMESPACE
class QLocale;
QT_END_NAMESPACE

// The arithmetic between seconds since 1970 UTC and the wall clock of a zone, as the time lines use
// it. No widget, no state; 64 bits throughout, correct before 1970 and after 2106.
//
// The tests for daylight saving differ on purpose at their bounds and in whether they consult
// b_dst; each function says which test it uses.

namespace Vantor {

struct TimeZoneParam;

/// \brief Whether \a seconds are in the zone's period of daylight saving; b_dst is not consulted.
///
/// From tm_dst_begin to before tm_dst_end; where begin is not before end, before end and from begin
/// on.
[[nodiscard]] VANTOR_EXPORT bool IsInDstPeriod(const TimeZoneParam &zone, qint64 seconds);

/// \brief Offset of the zone's wall clock at \a seconds, east positive: of daylight saving when
/// b_dst is set and IsInDstPeriod().
[[nodiscard]] VANTOR_EXPORT qint64 WallClockOffset(const TimeZoneParam &zone, qint64 seconds);

/// \brief The wall clock at \a seconds, as the fields of a UTC date-time.
/// \return an invalid date-time for seconds beyond about 146 million years.
[[nodiscard]] VANTOR_EXPORT QDateTime WallClockOf(const TimeZoneParam &zone, qint64 seconds);

/// \brief The instant \a seconds, with WallClockOffset() as its fixed offset.
/// \return an invalid date-time when the offset is above 14 hours.
[[nodiscard]] VANTOR_EXPORT QDateTime DateTimeInZone(const TimeZoneParam &zone, qint64 seconds);

/// \brief The instant \a seconds, with the biases themselves as its fixed offset: west is positive,
/// b_dst is not consulted. The instant is right, its fields and offset are mirrored; kept for hosts
/// that turn the sign round themselves.
/// \return as above.
[[nodiscard]] VANTOR_EXPORT QDateTime DateTimeByBias(const TimeZoneParam &zone, qint64 seconds);

/// \brief The fields of \a wall_clock as ISO 8601 text with the offset of the zone's *standard*
/// time, whose hours are not padded: "2024-05-01T18:00:00+8:00", "-0:00" for UTC.
///
/// A date-time that does not exist (of local time, in the hour that the client's own clocks leave
/// out) is moved by -daylight_bias / 60 whole hours. Years outside 0 to 9999 are written as they
/// are, the year before year 1 as 0.
/// \return an empty text when \a wall_clock has no date.
[[nodiscard]] VANTOR_EXPORT std::string IsoTextOfWallClock(const TimeZoneParam &zone,
                                                           const QDateTime &wall_clock);

/// \brief From seconds that were read as the zone's standard time to the true ones.
///
/// When b_dst is set and \a standard_s is in the period, here from *after* tm_dst_begin to
/// tm_dst_end inclusive (wrapping: before end and from begin on), the daylight bias is added. For a
/// wall-clock time that comes twice this gives the later instant, but the earlier one for its first
/// second, and always the earlier one where the daylight bias is positive (Dublin, whose winter is
/// the exception). In Casablanca, El Aaiun and Windhoek some seconds near a change are an hour off.
[[nodiscard]] VANTOR_EXPORT qint64 CorrectForDst(const TimeZoneParam &zone, qint64 standard_s);

/// \brief An offset for the user, as "UTC", "UTC+5:30" or "UTC−3".
[[nodiscard]] VANTOR_EXPORT QString OffsetText(qint64 offset_s, const QLocale &locale);

/// \brief Date, time and offset of \a seconds for the user; a dash beyond all dates.
[[nodiscard]] VANTOR_EXPORT QString WallClockText(const TimeZoneParam &zone, qint64 seconds,
                                                  const QLocale &locale);

} // namespace Vantor
