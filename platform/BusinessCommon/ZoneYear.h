// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>
#include <BusinessCommon/TimeZoneInfor.h>

#include <QtCore/QTimeZone>

#include <optional>

namespace BusinessCommon {

/// \brief What the clocks of a zone do in one calendar year.
struct ZoneYear
{
    TimeZoneInfor infor;    ///< the biases of the year
    qint64 dst_begin_s = 0; ///< start of daylight saving, seconds since 1970 UTC; 0 without
    qint64 dst_end_s = 0;   ///< its end; before dst_begin_s south of the equator
};

/// \brief \a zone in \a year of UTC, 1 to 9999, by the system's zone database.
/// \return nothing when biases and one period of daylight saving cannot express the year: the
///         standard time changes in it, daylight saving has other than one start and one end, or
///         the offset is not in whole minutes. Nothing also for a year that begins before the first
///         change that the database has for the zone, because Qt does not know the offset there.
[[nodiscard]] VANTOR_BASE_EXPORT std::optional<ZoneYear> ZoneYearOf(const QTimeZone &zone,
                                                                    int year);

/// \brief Daylight saving in \a year for a zone of which only the biases are known.
///
/// Biases alone do not determine the rule. The client's own zone decides when it has these biases
/// in that year; else the rule that most zones of the system's database with these biases follow. A
/// zone without daylight saving gives a year without it. The first call reads the whole database,
/// about 50 ms. Any thread.
/// \return nothing when no zone has these biases.
[[nodiscard]] VANTOR_BASE_EXPORT std::optional<ZoneYear> FindZoneYear(const TimeZoneInfor &infor,
                                                                      int year);

/// \brief The next entry of \a zone after \a after; its time is invalid after the last entry.
/// Unlike QTimeZone::nextTransition() it finds the one behind the end of the zone's tables.
[[nodiscard]] VANTOR_BASE_EXPORT QTimeZone::OffsetData NextTransition(const QTimeZone &zone,
                                                                      const QDateTime &after);

} // namespace BusinessCommon
