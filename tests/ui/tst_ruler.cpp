// SPDX-License-Identifier: MIT
#include "support/Test.h"
#include "ui/AnimationProgressBar/Ruler.h"

#include <common/ZoneTime.h>

#include <QtCore/QDateTime>
#include <QtCore/QLocale>

using Vantor::RulerLabel;
using Vantor::RulerStep;
using Vantor::TimeZoneParam;

namespace {

constexpr qint64 kHour = 3600;
constexpr qint64 kDay = 24 * kHour;
constexpr qint64 kYear = 31556952;

qint64 Utc(const char *text)
{
    return QDateTime::fromString(QString(text) + 'Z', Qt::ISODate).toSecsSinceEpoch();
}

const TimeZoneParam kUtc;
const TimeZoneParam kIndia{0, 0, -330, 0, false};
const TimeZoneParam kBerlin{Utc("2024-03-31T01:00:00"), Utc("2024-10-27T01:00:00"), -60, -60, true};
// South of the equator, and half an hour forward.
const TimeZoneParam kLordHowe{Utc("2024-10-05T15:30:00"), Utc("2024-04-06T15:00:00"), -630, -30,
                              true};

const RulerStep kHours{kHour, kHour / 2, 0, 0, RulerLabel::Minute};
const RulerStep kTwoHours{2 * kHour, kHour, 0, 0, RulerLabel::Minute};
const RulerStep kDays{kDay, 6 * kHour, 0, 0, RulerLabel::Day};
const RulerStep kWeeks{7 * kDay, kDay, 0, 0, RulerLabel::Day};
const RulerStep kQuarters{kYear / 4, kYear / 12, 3, 1, RulerLabel::Month};

using MarkRow = Row<TimeZoneParam, RulerStep, const char *, qint64,
                    QString>; // zone, step, from, length, labels

} // namespace

class TestRuler : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void marksAreAtRoundTimesOfTheWallClock_data()
    {
        AddRows<MarkRow>({
            {"UTC before 1970", kUtc, kHours, "1969-12-31T22:00:00", 3 * kHour,
             "22:00,23:00,1 Jan,01:00"},
            {"half hours of offset", kIndia, kHours, "2024-01-01T17:29:59", 2 * kHour,
             "23:00,2 Jan"},
            {"the hour that spring skips", kBerlin, kHours, "2024-03-30T23:00:00", 4 * kHour,
             "31 Mar,01:00,03:00,04:00,05:00"},
            {"every second hour, over the skipped one", kBerlin, kTwoHours, "2024-03-30T23:00:00",
             4 * kHour, "31 Mar,04:00"},
            {"the hour that comes twice in autumn", kBerlin, kHours, "2024-10-26T23:00:00",
             3 * kHour, "01:00,02:00,02:00,03:00"},
            {"days of 23 and of 24 hours", kBerlin, kDays, "2024-03-29T22:00:00", 3 * kDay,
             "30 Mar,31 Mar,1 Apr,2 Apr"},
            {"half an hour back in the south", kLordHowe, kHours, "2024-04-06T13:00:00", 3 * kHour,
             "7 Apr,01:00,02:00"},
            {"weeks begin on Monday", kUtc, kWeeks, "2024-02-20T00:00:00", 14 * kDay,
             "26 Feb,4 Mar"},
            {"months over the turn of the year", kBerlin, kQuarters, "2023-12-31T22:59:00",
             kYear / 3, "Jan 2024,Apr 2024"},
            {"before there were years", kUtc, kQuarters, "0001-01-01T00:00:00", 0, "Jan 0001"},
        });
    }

    void marksAreAtRoundTimesOfTheWallClock()
    {
        const auto &[name, zone, step, from, length, labels] = FetchRow<MarkRow>();
        const qint64 from_s = Utc(from);
        QStringList shown;
        qint64 previous = from_s - 1;

        for (const auto &mark : Vantor::RulerMarks(zone, from_s, from_s + length, step)) {
            QVERIFY(mark.seconds > previous && mark.seconds <= from_s + length);
            previous = mark.seconds;
            if (mark.is_major)
                shown.append(Vantor::RulerText(zone, mark.seconds, step.label, QLocale::c()));
        }

        QCOMPARE(shown.join(','), labels);
    }

    void labelsAlwaysHaveRoom()
    {
        for (double scale = 10.0; scale > 1e-7; scale /= 1.3) {
            const RulerStep &step = Vantor::ChooseRulerStep(scale, 90);
            QVERIFY(double(step.major_s) * scale >= 90 || step.major_months == 1200);
            QVERIFY(step.minor_s < step.major_s);
        }
    }

    void offsetsReadFromLeftToRight()
    {
        constexpr int kLeast = std::numeric_limits<int>::min();
        const QLocale english(QLocale::English);
        QCOMPARE(Vantor::OffsetText(0, english), QString("UTC"));
        QCOMPARE(Vantor::OffsetText(19800, english), QString("\u202AUTC+5:30\u202C"));
        QCOMPARE(Vantor::OffsetText(-12600, english), QString("\u202AUTC\u22123:30\u202C"));
        static_cast<void>(Vantor::RulerMarks({0, 0, kLeast, kLeast, true}, 0, kDay, kHours));
    }
};

QTEST_GUILESS_MAIN(TestRuler)
#include "tst_ruler.moc"
