// SPDX-License-Identifier: MIT
#include "BusinessCommon/ZoneYear.h"

#include <Nim/Base/TimeUnits.h>

#include <QtCore/QDateTime>
#include <QtCore/QTimeZone>

#include <map>

namespace BusinessCommon {
namespace {

using Nim::Base::kSecondsPerMinute;

constexpr int kFirstYear = 1;
constexpr int kLastYear = 9999;

bool HasBiases(const ZoneYear &candidate, const TimeZoneInfor &infor)
{
    return candidate.infor.b_dst && candidate.infor.utc_bias == infor.utc_bias
           && candidate.infor.daylight_bias == infor.daylight_bias;
}

QDateTime StartOf(int year)
{
    return {QDate(year, 1, 1), QTime(0, 0), Qt::UTC};
}

// Qt (5.15) takes the first entry of a zone's tables for all time before it, also where the zone
// had another offset then.
bool IsBeforeTables(const QTimeZone &zone, const QDateTime &at)
{
    const QDateTime first = zone.nextTransition(StartOf(kFirstYear)).atUtc;
    return first.isValid() && at < first;
}

} // namespace

// Behind the end of its tables, often in 2038, Qt (5.15) goes on by the zone's rule, but finds
// nothing directly after their very last entry; so does QTimeZone::transitions().
QTimeZone::OffsetData NextTransition(const QTimeZone &zone, const QDateTime &after)
{
    const QTimeZone::OffsetData next = zone.nextTransition(after);
    return next.atUtc.isValid() ? next : zone.nextTransition(after.addMSecs(1));
}

std::optional<ZoneYear> ZoneYearOf(const QTimeZone &zone, int year)
{
    const QDateTime start = StartOf(year);
    if (!zone.isValid() || year < kFirstYear || year > kLastYear || IsBeforeTables(zone, start))
        return std::nullopt;
    const int standard_s = zone.standardTimeOffset(start);
    int offset_s = zone.offsetFromUtc(start);
    int daylight_s = offset_s - standard_s; // 0: not known yet
    int starts = 0;
    int ends = 0;
    ZoneYear result;
    const QDateTime end = StartOf(year + 1);
    for (auto data = NextTransition(zone, start.addMSecs(-1));
         data.atUtc.isValid() && data.atUtc < end; data = NextTransition(zone, data.atUtc)) {
        if (data.standardTimeOffset != standard_s)
            return std::nullopt;
        if (data.offsetFromUtc == offset_s) // another name for the same time
            continue;
        offset_s = data.offsetFromUtc;
        if (offset_s == standard_s) {
            ++ends;
            result.dst_end_s = data.atUtc.toSecsSinceEpoch();
            continue;
        }
        if (daylight_s != 0 && daylight_s != offset_s - standard_s)
            return std::nullopt;
        daylight_s = offset_s - standard_s;
        ++starts;
        result.dst_begin_s = data.atUtc.toSecsSinceEpoch();
    }
    const bool has_period = starts == 1 && ends == 1;
    const bool is_without = starts == 0 && ends == 0 && daylight_s == 0;
    if (!(has_period || is_without) || standard_s % kSecondsPerMinute != 0
        || daylight_s % kSecondsPerMinute != 0)
        return std::nullopt;
    result.infor = {int(-standard_s / kSecondsPerMinute), has_period,
                    int(-daylight_s / kSecondsPerMinute)};
    return result;
}

std::optional<ZoneYear> FindZoneYear(const TimeZoneInfor &infor, int year)
{
    if (!infor.b_dst)
        return ZoneYear{infor, 0, 0};
    const auto own = ZoneYearOf(QTimeZone::systemTimeZone(), year);
    if (own && HasBiases(*own, infor))
        return own;

    std::map<std::pair<qint64, qint64>, int> zones_by_period;
    std::optional<ZoneYear> best;
    int most = 0;
    const auto ids = QTimeZone::availableTimeZoneIds();
    for (const QByteArray &id : ids) {
        const auto candidate = ZoneYearOf(QTimeZone(id), year);
        if (!candidate || !HasBiases(*candidate, infor))
            continue;
        const int zones = ++zones_by_period[{candidate->dst_begin_s, candidate->dst_end_s}];
        if (zones > most) {
            most = zones;
            best = candidate;
        }
    }
    return best;
}

} // namespace BusinessCommon
