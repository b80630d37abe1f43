// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"

#include <BusinessCommon/IsoTime.h>
#include <BusinessCommon/ZoneYear.h>
#include <common/TimeZoneRecords.h>
#include <common/ZoneTime.h>

#include <QtCore/QRandomGenerator>
#include <QtCore/QTimeZone>
#include <QtTest/QTest>

#include <ctime>
#include <limits>
#include <set>
#include <tuple>

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

} // namespace

Q_DECLARE_METATYPE(Vantor::TimeZoneParam)

class TestZoneTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard_.Begin(); }

    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

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

        QVERIFY2(
            seen.size() > 2000 && left_out < 5,
            qPrintable(QStringLiteral("%1 changes, %2 left out").arg(seen.size()).arg(left_out)));
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

        QVERIFY2(irregular * 50 < years,
                 qPrintable(QStringLiteral("%1 of %2").arg(irregular).arg(years)));
    }

    void theTestsForDaylightSavingDifferAtTheirBounds_data()
    {
        QTest::addColumn<TimeZoneParam>("zone");
        QTest::addColumn<qint64>("seconds");
        QTest::addColumn<bool>("is_period");
        QTest::addColumn<qint64>("corrected"); // seconds read as standard time
        const qint64 begin = kBerlin.tm_dst_begin;
        const qint64 end = kBerlin.tm_dst_end;
        QTest::newRow("begins") << kBerlin << begin << true << begin;
        QTest::newRow("has begun") << kBerlin << begin + 1 << true << begin + 1 - kHour;
        QTest::newRow("ends") << kBerlin << end << false << end - kHour;
        QTest::newRow("is over") << kBerlin << end + 1 << false << end + 1;
        QTest::newRow("wraps: its last second")
            << kSydney << kSydney.tm_dst_end - 1 << true << kSydney.tm_dst_end - 1 - kHour;
        QTest::newRow("wraps: ends")
            << kSydney << kSydney.tm_dst_end << false << kSydney.tm_dst_end;
        QTest::newRow("wraps: begins")
            << kSydney << kSydney.tm_dst_begin << true << kSydney.tm_dst_begin - kHour;
        TimeZoneParam unused = kBerlin;
        unused.b_dst = false;
        QTest::newRow("in the period, without daylight saving")
            << unused << begin + 1 << true << begin + 1;
        QTest::newRow("a fresh record") << TimeZoneParam() << qint64(-1) << true << qint64(-1);
        QTest::newRow("beyond 32 bits")
            << kBerlin << (qint64(1) << 32) + begin << false << (qint64(1) << 32) + begin;
    }

    void theTestsForDaylightSavingDifferAtTheirBounds()
    {
        QFETCH(TimeZoneParam, zone);
        QFETCH(qint64, seconds);
        QFETCH(bool, is_period);
        QFETCH(qint64, corrected);

        QCOMPARE(Vantor::IsInDstPeriod(zone, seconds), is_period);
        QCOMPARE(Vantor::WallClockOffset(zone, seconds),
                 qint64(-60)
                     * (zone.utc_bias + (zone.b_dst && is_period ? zone.daylight_bias : 0)));
        QCOMPARE(Vantor::CorrectForDst(zone, seconds), corrected);
    }

    void farTimesDoNotWrap_data()
    {
        QTest::addColumn<TimeZoneParam>("zone");
        QTest::addColumn<qint64>("seconds");
        QTest::addColumn<QDateTime>("wall_clock");
        const auto utc = [](int year, int month, int day, int hour, int minute, int second) {
            return QDateTime({year, month, day}, {hour, minute, second}, Qt::UTC);
        };
        const TimeZoneParam east{0, 0, -480, 0, false};
        QTest::newRow("a fresh bar in the east") << east << qint64(0) << utc(1970, 1, 1, 8, 0, 0);
        QTest::newRow("a fresh bar in the west")
            << kBogota << qint64(0) << utc(1969, 12, 31, 19, 0, 0);
        QTest::newRow("below 32 bits")
            << kBogota << -(qint64(1) << 31) - 1 << utc(1901, 12, 13, 15, 45, 51);
        QTest::newRow("above 32 bits") << east << (qint64(1) << 32) << utc(2106, 2, 7, 14, 28, 16);
        QTest::newRow("a year of five digits")
            << kBogota << qint64(253402318799 + 1)
            << utc(10000, 1, 1, 0, 0, 0).addSecs(-12 * kHour + 43200);
        QTest::newRow("before our era")
            << east << utc(-44, 3, 14, 16, 0, 0).toSecsSinceEpoch() << utc(-44, 3, 15, 0, 0, 0);
    }

    void farTimesDoNotWrap()
    {
        QFETCH(TimeZoneParam, zone);
        QFETCH(qint64, seconds);
        QFETCH(QDateTime, wall_clock);

        QCOMPARE(Vantor::WallClockOf(zone, seconds), wall_clock);
        QCOMPARE(SecondsOf(zone, wall_clock), seconds);
    }

    // Wherever the wall clock names one instant only, setting what is shown changes nothing.
    void shownTimesCanBeSet()
    {
        QRandomGenerator random(20240501);
        for (int i = 0; i < 20000; ++i) {
            TimeZoneParam zone;
            zone.utc_bias = random.bounded(-840, 721);
            zone.daylight_bias = -random.bounded(0, 121);
            zone.b_dst = random.bounded(2) == 1;
            zone.tm_dst_begin = -qint64(random.bounded(4000000000.0));
            zone.tm_dst_end = zone.tm_dst_begin + qint64(random.bounded(8000000000.0)) - 4000000000;
            const qint64 s = qint64(random.bounded(1e11)) - qint64(5e10);
            const qint64 daylight_s = -zone.daylight_bias * qint64(60);
            if (zone.b_dst
                && (std::llabs(s - zone.tm_dst_end) <= daylight_s
                    || std::llabs(s - zone.tm_dst_begin) <= daylight_s))
                continue; // twice, or left out

            const qint64 set = SecondsOf(zone, Vantor::WallClockOf(zone, s));

            QVERIFY2(set == s, qPrintable(QStringLiteral("%1 became %2").arg(s).arg(set)));
        }
    }

    void fixedZonesKeepTheInstant_data()
    {
        QTest::addColumn<TimeZoneParam>("zone");
        QTest::addColumn<qint64>("seconds");
        QTest::addColumn<int>("offset"); // of DateTimeInZone
        QTest::addColumn<int>("mirrored");
        const qint64 summer = kBerlin.tm_dst_begin;
        QTest::newRow("summer") << kBerlin << summer << 7200 << 0;
        QTest::newRow("winter") << kBerlin << summer - 1 << 3600 << -3600;
        TimeZoneParam unused = kBerlin;
        unused.b_dst = false;
        QTest::newRow("only the mirrored one forgets b_dst") << unused << summer << 3600 << 0;
        QTest::newRow("a fresh record") << TimeZoneParam() << qint64(0) << 0 << 0;
    }

    void fixedZonesKeepTheInstant()
    {
        QFETCH(TimeZoneParam, zone);
        QFETCH(qint64, seconds);
        QFETCH(int, offset);
        QFETCH(int, mirrored);

        const QDateTime right = Vantor::DateTimeInZone(zone, seconds);
        const QDateTime west = Vantor::DateTimeByBias(zone, seconds);

        QCOMPARE(right.toSecsSinceEpoch(), seconds);
        QCOMPARE(right.timeSpec(), Qt::TimeZone);
        QCOMPARE(right.offsetFromUtc(), offset);
        QCOMPARE(west.toSecsSinceEpoch(), seconds);
        QCOMPARE(west.timeSpec(), Qt::TimeZone);
        QCOMPARE(west.offsetFromUtc(), mirrored);
    }

    void absurdZonesDoNotOverflow()
    {
        constexpr int kLeast = std::numeric_limits<int>::min();
        const TimeZoneParam zone{0, 0, kLeast, kLeast, true};

        QVERIFY(!Vantor::DateTimeInZone(zone, 0).isValid());
        QVERIFY(!Vantor::DateTimeByBias(zone, std::numeric_limits<qint64>::max()).isValid());
        QCOMPARE(Vantor::WallClockOffset(zone, 0), qint64(kLeast) * -120);
        QCOMPARE(Vantor::IsoTextOfWallClock(zone, YearStart(2024)),
                 std::string("2024-01-01T00:00:00+35791394:08"));
    }

    void isoTextCarriesTheStandardOffset_data()
    {
        QTest::addColumn<int>("utc_bias");
        QTest::addColumn<QDateTime>("wall_clock");
        QTest::addColumn<QByteArray>("text");
        const QDateTime utc({2024, 5, 1}, {10, 0, 9}, Qt::UTC);
        QTest::newRow("UTC takes the minus") << 0 << utc << QByteArray("2024-05-01T10:00:09-0:00");
        QTest::newRow("east") << -330 << utc << QByteArray("2024-05-01T10:00:09+5:30");
        QTest::newRow("west") << 210 << utc << QByteArray("2024-05-01T10:00:09-3:30");
        QTest::newRow("less than an hour west")
            << 5 << utc << QByteArray("2024-05-01T10:00:09-0:05");
        QTest::newRow("another offset of the date-time does not show")
            << -480 << utc.toOffsetFromUtc(7200) << QByteArray("2024-05-01T12:00:09+8:00");
        QTest::newRow("no date") << -480 << QDateTime({}, QTime(1, 2), Qt::UTC) << QByteArray();
        QTest::newRow("null") << -480 << QDateTime() << QByteArray();
    }

    void isoTextCarriesTheStandardOffset()
    {
        QFETCH(int, utc_bias);
        QFETCH(QDateTime, wall_clock);
        QFETCH(QByteArray, text);

        QCOMPARE(QByteArray::fromStdString(
                     Vantor::IsoTextOfWallClock({0, 0, utc_bias, -60, false}, wall_clock)),
                 text);
    }

    // Runs once more in each of several zones of the client, see CMakeLists.txt: whether a local
    // time exists is for the system's C library to say.
    void hoursThatTheClientsClocksLeaveOutAreMoved_data()
    {
        QTest::addColumn<int>("daylight_bias");
        QTest::addColumn<int>("hours");
        QTest::newRow("an hour") << -60 << 1;
        QTest::newRow("no daylight saving") << 0 << 0;
        QTest::newRow("half an hour, truncated") << -30 << 0;
        QTest::newRow("two hours") << -120 << 2;
        QTest::newRow("backwards") << 60 << -1;
    }

    void hoursThatTheClientsClocksLeaveOutAreMoved()
    {
        QFETCH(int, daylight_bias);
        QFETCH(int, hours);
        int moved = 0;
        for (QDateTime fields = YearStart(2011); fields < YearStart(2012);
             fields = fields.addSecs(kHour / 2)) {
            std::tm local{};
            local.tm_year = fields.date().year() - 1900;
            local.tm_mon = fields.date().month() - 1;
            local.tm_mday = fields.date().day();
            local.tm_hour = fields.time().hour();
            local.tm_min = fields.time().minute();
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

private:
    CTestGuard guard_;
};

QTEST_GUILESS_MAIN(TestZoneTime)
#include "tst_zonetime.moc"
