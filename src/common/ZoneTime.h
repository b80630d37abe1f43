// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QDateTime>

#include <string>

// The arithmetic between seconds since 1970 UTC and the wall clock of a zone, as the time lines use
// it. No widget, no state; 64 bits throughout, right before 1970 and far beyond 2106.
//
// The tests for daylight saving differ on purpose at their bounds and in whether they heed b_dst;
// each function says which it is.

namespace Vantor {

struct TimeZoneParam;

/// \brief Whether \a seconds lie in the zone's period of daylight saving, b_dst not heeded.
///
/// From tm_dst_begin to before tm_dst_end; where begin is not before end, before end and from begin
/// on.
[[nodiscard]] VANTOR_EXPORT bool IsInDstPeriod(const TimeZoneParam &zone, qint64 seconds);

/// \brief Offset of the zone's wall clock at \a seconds, east positive: of daylight saving when
/// b_dst is set and IsInDstPeriod().
[[nodiscard]] VANTOR_EXPORT qint64 WallClockOffset(const TimeZoneParam &zone, qint64 seconds);

/// \brief The wall clock at \a seconds, as the fields of a UTC date-time.
[[nodiscard]] VANTOR_EXPORT QDateTime WallClockOf(const TimeZoneParam &zone, qint64 seconds);

/// \brief The instant \a seconds, with WallClockOffset() as its fixed offset.
/// \return an invalid date-time when the offset is above 14 hours.
[[nodiscard]] VANTOR_EXPORT QDateTime DateTimeInZone(const TimeZoneParam &zone, qint64 seconds);

/// \brief The instant \a seconds, with the biases themselves as its fixed offset: west is positive,
/// b_dst is not heeded. The instant is right, its fields and offset are mirrored; kept for hosts
/// that take the sign back.
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
/// When b_dst is set and \a standard_s lies in the period, here from *after* tm_dst_begin to
/// tm_dst_end inclusive (wrapping: before end and from begin on), the daylight bias is added. Of a
/// wall-clock time that comes twice in autumn this gives the later instant, of its first second the
/// earlier.
[[nodiscard]] VANTOR_EXPORT qint64 CorrectForDst(const TimeZoneParam &zone, qint64 standard_s);

} // namespace Vantor
