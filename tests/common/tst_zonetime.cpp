// SPDX-License-Identifier: MIT
#include "support/Test.h"

#include <BusinessCommon/IsoTime.h>
#include <BusinessCommon/ZoneYear.h>
#include <common/TimeZoneRecords.h>
#include <common/ZoneTime.h>

#include <QtCore/QTimeZone>

#include <ctime>

namespace {

using Vantor::TimeZoneParam;

constexpr qint64 kHour = 3600;
constexpr qint64 kDay = 24 * kHour;
constexpr int kFirstYear = 1970;
constexpr int kLastYear = 2100;

QDateTime YearStart(int year)
{
    return {QDate(year, 1, 1), QTime(0, 0), Qt::UTC};
}

// The whole way of a wall-clock time into the time line.
qint64 SecondsOf(const TimeZoneParam &zone, const QDateTime &wall_clock)
{
    return Vantor::CorrectForDst(
        zone, BusinessCommon::IsoTextToSeconds(Vantor::IsoTextOfWallClock(zone, wall_clock)));
}

// A change of the clocks at `at`, of any zone.
struct Change
{
    qint64 at = 0;
    int before_s = 0; // offsets, east positive
    int after_s = 0;
};

// One change as the border of a period of 90 days.
TimeZoneParam ZoneOf(const Change &change)
{
    const bool is_spring = change.after_s > change.before_s;
    const int standard_s = std::min(change.before_s, change.after_s);
    const qint64 far = change.at + (is_spring ? 90 : -90) * kDay;
    TimeZoneParam zone;
    zone.tm_dst_begin = std::min(change.at, far);
    zone.tm_dst_end = std::max(change.at, far);
    zone.utc_bias = -standard_s / 60;
    zone.daylight_bias = -std::abs(change.after_s - change.before_s) / 60;
    zone.b_dst = true;
    return zone;
}

// The instant that setting the wall clock of `s` gives: the later one of two, but the earlier one
// of the very first second that comes twice.
qint64 ExpectedInverse(const Change &change, qint64 s)
{
    const qint64 wall_clock = s + (s < change.at ? change.before_s : change.after_s);
    const qint64 earlier = wall_clock - change.before_s;
    const qint64 later = wall_clock - change.after_s;
    const bool is_twice = earlier < change.at && later >= change.at;
    return !is_twice ? s : later == change.at ? earlier : later;
}

// Empty when all hours of the days before and after a change are right.
QString FaultAround(const QTimeZone &system_zone, const Change &change)
{
    const TimeZoneParam zone = ZoneOf(change);
    std::vector<qint64> seconds = {change.at - 1, change.at + 1};
    for (qint64 hour = -24; hour <= 24; ++hour)
        seconds.push_back(change.at + hour * kHour);
    for (const qint64 s : seconds) {
        const int offset_s = system_zone.offsetFromUtc(QDateTime::fromSecsSinceEpoch(s, Qt::UTC));
        const QDateTime expected = QDateTime::fromSecsSinceEpoch(s + offset_s, Qt::UTC);
        const QDateTime shown = Vantor::WallClockOf(zone, s);
        if (shown != expected || Vantor::DateTimeInZone(zone, s).offsetFromUtc() != offset_s)
            return QStringLiteral("shown %1, not %2")
                .arg(shown.toString(Qt::ISODate), expected.toString(Qt::ISODate));
        if (SecondsOf(zone, expected) != ExpectedInverse(change, s))
            return QStringLiteral("set to %1, not %2: %3")
                .arg(SecondsOf(zone, expected))
                .arg(ExpectedInverse(change, s))
                .arg(expected.toString(Qt::ISODate));
    }
    return {};
}

constexpr TimeZoneParam kBerlin{1711846800, 1729990800, -60, -60, true};  // 2024
constexpr TimeZoneParam kSydney{1728144000, 1712419200, -600, -60, true}; // 2024, wraps
constexpr TimeZoneParam kBogota{0, 0, 300, 0, false};

// corrected: seconds read as standard time
using BoundRow = Row<TimeZoneParam, qint64, bool, qint64>; // zone, seconds, is_period, corrected

QDateTime Utc(int year, int month, int day, int hour, int minute = 0, int second = 0)
{
    return QDateTime({year, month, day}, {hour, minute, second}, Qt::UTC);
}

// daylight_bias, hours
const Rows<int, int> kMovedRows = {
    {"an hour", -60, 1},    {"no daylight saving", 0, 0}, {"half an hour, truncated", -30, 0},
    {"two hours", -120, 2}, {"backwards", 60, -1},
};

const TimeZoneParam kEast{0, 0, -480, 0, false};

// zone, seconds, wall_clock
const Rows<TimeZoneParam, qint64, QDateTime> kFarRows = {
    {"a fresh bar in the east", kEast, 0, Utc(1970, 1, 1, 8)},
    {"below 32 bits", kBogota, -(qint64(1) << 31) - 1, Utc(1901, 12, 13, 15, 45, 51)},
    {"above 32 bits", kEast, qint64(1) << 32, Utc(2106, 2, 7, 14, 28, 16)},
    {"a year of five digits", kBogota, 253402318800, Utc(10000, 1, 1, 0)},
    {"before our era", kEast, Utc(-44, 3, 14, 16).toSecsSinceEpoch(), Utc(-44, 3, 15, 0)},
};

} // namespace

class TestZoneTime : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyChangeOfEverySystemZoneIsRight()
    {
        std::set<std::tuple<qint64, int, int>> seen; // most zones share theirs
        int left_out = 0;
        const auto ids = QTimeZone::availableTimeZoneIds();
        for (const QByteArray &id : ids) {
            const QTimeZone zone(id);
            int offset_s = zone.offsetFromUtc(YearStart(kFirstYear));
            qint64 last = 0;
            // Qt (5.15) stops at the end of the zone's tables, in January 2038.
            const auto transitions =
                zone.transitions(YearStart(kFirstYear), YearStart(2038))
                + zone.transitions(YearStart(2038).addDays(31), YearStart(kLastYear + 1));
            for (const auto &data : transitions) {
                const Change change{data.atUtc.toSecsSinceEpoch(), offset_s, data.offsetFromUtc};
                const bool is_alone = change.at - last > 2 * kDay;
                last = change.at;
                offset_s = change.after_s;
                if (change.before_s == change.after_s
                    || !seen.emplace(change.at, change.before_s, change.after_s).second)
                    continue;
                if (!is_alone || change.before_s % 60 != 0 || change.after_s % 60 != 0) {
                    ++left_out; // biases are minutes
                    continue;
                }
                const QString fault = FaultAround(zone, change);
                QVERIFY2(fault.isEmpty(), qPrintable(QString::fromUtf8(id) + ": " + fault));
            }
        }

        // How many there are depends on the system's tables.
        QVERIFY(seen.size() > 1000 && size_t(left_out) * 100 < seen.size());
    }

    // What the default service makes of the system's zones holds all through the year.
    void everyYearOfEverySystemZoneIsRight()
    {
        int years = 0;
        int irregular = 0;
        const auto ids = QTimeZone::availableTimeZoneIds();
        for (const QByteArray &id : ids) {
            const QTimeZone zone(id);
            for (int year = kFirstYear; year <= kLastYear; ++year) {
                ++years;
                const auto told = BusinessCommon::ZoneYearOf(zone, year);
                if (!told) {
                    ++irregular;
                    continue;
                }
                const TimeZoneParam param{told->dst_begin_s, told->dst_end_s, told->infor.utc_bias,
                                          told->infor.daylight_bias, told->infor.b_dst};
                std::vector<qint64> seconds;
                if (told->infor.b_dst)
                    seconds = {told->dst_begin_s - 1, told->dst_begin_s, told->dst_end_s - 1,
                               told->dst_end_s};
                for (int month = 1; month <= 12; month += 3)
                    seconds.push_back(
                        QDateTime({year, month, 2}, {0, 0}, Qt::UTC).toSecsSinceEpoch());
                for (const qint64 s : seconds) {
                    const QDateTime at = QDateTime::fromSecsSinceEpoch(s, Qt::UTC);
                    QVERIFY2(Vantor::WallClockOffset(param, s) == zone.offsetFromUtc(at),
                             qPrintable(QString::fromUtf8(id) + at.toString(Qt::ISODate)));
                }
            }
        }

        QVERIFY2(irregular * 50 < years, qPrintable(QString::number(irregular)));
        // Years before the tables are not guessed.
        QVERIFY(!BusinessCommon::ZoneYearOf(QTimeZone("Antarctica/Rothera"), 1974));
        QVERIFY(BusinessCommon::ZoneYearOf(QTimeZone("Antarctica/Rothera"), 1978));
        QVERIFY(!BusinessCommon::ZoneYearOf(QTimeZone("America/Inuvik"), 1950));
        QVERIFY(BusinessCommon::ZoneYearOf(QTimeZone("UTC"), 1950));
    }

    void theTestsForDaylightSavingDifferAtTheirBounds_data()
    {
        const qint64 begin = kBerlin.tm_dst_begin;
        const qint64 end = kBerlin.tm_dst_end;
        const qint64 south_end = kSydney.tm_dst_end;
        TimeZoneParam unused = kBerlin;
        unused.b_dst = false;
        const qint64 far = (qint64(1) << 32) + begin;
        AddRows<BoundRow>({
            {"begins", kBerlin, begin, true, begin},
            {"ends", kBerlin, end, false, end - kHour},
            {"wraps: ends", kSydney, south_end, false, south_end},
            {"wraps: begins", kSydney, kSydney.tm_dst_begin, true, kSydney.tm_dst_begin - kHour},
            {"in the period, without daylight saving", unused, begin + 1, true, begin + 1},
            {"a fresh record", {}, -1, true, -1},
            {"beyond 32 bits", kBerlin, far, false, far},
        });
    }

    void theTestsForDaylightSavingDifferAtTheirBounds()
    {
        const auto &[name, zone, seconds, is_period, corrected] = FetchRow<BoundRow>();
        const int daylight_min = zone.b_dst && is_period ? zone.daylight_bias : 0;

        QCOMPARE(Vantor::IsInDstPeriod(zone, seconds), is_period);
        QCOMPARE(Vantor::WallClockOffset(zone, seconds),
                 qint64(-60) * (zone.utc_bias + daylight_min));
        QCOMPARE(Vantor::CorrectForDst(zone, seconds), corrected);
    }

    void farTimesDoNotWrap_data() { AddRows(kFarRows); }

    void farTimesDoNotWrap()
    {
        const auto &[name, zone, seconds, wall_clock] = FetchRow(kFarRows);
        QCOMPARE(Vantor::WallClockOf(zone, seconds), wall_clock);
        QCOMPARE(SecondsOf(zone, wall_clock), seconds);
    }

    void absurdZonesDoNotOverflow()
    {
        using Limits = std::numeric_limits<qint64>;
        constexpr int kLeast = std::numeric_limits<int>::min();
        const TimeZoneParam zone{0, 0, kLeast, kLeast, true};

        QVERIFY(!Vantor::DateTimeInZone(zone, 0).isValid());
        for (const qint64 seconds : {Limits::max(), Limits::min()}) {
            QVERIFY(!Vantor::DateTimeByBias(zone, seconds).isValid());
            QCOMPARE(Vantor::WallClockText(zone, seconds, QLocale::c()), QString("–"));
        }
        QCOMPARE(Vantor::WallClockOffset(zone, 0), qint64(kLeast) * -120);
        QCOMPARE(Vantor::IsoTextOfWallClock(zone, QDateTime({}, {1, 2}, Qt::UTC)), std::string());
        QCOMPARE(Vantor::IsoTextOfWallClock(zone, YearStart(2024)),
                 std::string("2024-01-01T00:00:00+35791394:08"));
    }

    // Runs once more in each of several zones of the client, see CMakeLists.txt: whether a local
    // time exists is for the system's C library to say.
    void hoursThatTheClientsClocksLeaveOutAreMoved_data() { AddRows(kMovedRows); }

    void hoursThatTheClientsClocksLeaveOutAreMoved()
    {
        const auto &[name, daylight_bias, hours] = FetchRow(kMovedRows);
        int moved = 0;
        for (QDateTime fields = YearStart(2011); fields < YearStart(2012);
             fields = fields.addSecs(kHour / 2)) {
            std::tm local{};
            strptime(qPrintable(fields.toString("yyyy MM dd hh mm")), "%Y %m %d %H %M", &local);
            local.tm_isdst = -1;
            const std::tm asked = local;
            static_cast<void>(std::mktime(&local));
            const bool exists = local.tm_hour == asked.tm_hour && local.tm_min == asked.tm_min
                                && local.tm_mday == asked.tm_mday;
            moved += exists ? 0 : 1;
            const QDateTime expected = exists ? fields : fields.addSecs(hours * kHour);

            const std::string text = Vantor::IsoTextOfWallClock(
                {0, 0, -480, daylight_bias, true}, QDateTime(fields.date(), fields.time()));

            QCOMPARE(QString::fromStdString(text),
                     expected.toString("yyyy-MM-ddThh:mm:ss") + "+8:00");
        }

        QCOMPARE(moved, qEnvironmentVariableIntValue("EXPECTED_MISSING_HALF_HOURS"));
    }
};

QTEST_GUILESS_MAIN(TestZoneTime)
#include "tst_zonetime.moc"
