// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"
#include "ui/AnimationProgressBar/Ruler.h"

#include <QtCore/QDateTime>
#include <QtCore/QLocale>
#include <QtTest/QTest>

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

} // namespace

Q_DECLARE_METATYPE(TimeZoneParam)
Q_DECLARE_METATYPE(RulerStep)

class TestRuler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard_.Begin(); }
    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void marksStandAtRoundTimesOfTheWallClock_data()
    {
        QTest::addColumn<TimeZoneParam>("zone");
        QTest::addColumn<RulerStep>("step");
        QTest::addColumn<QString>("from");
        QTest::addColumn<qint64>("length");
        QTest::addColumn<QStringList>("labels");
        const RulerStep hour{kHour, kHour / 2, 0, 0, RulerLabel::Minute};
        const RulerStep two_hours{2 * kHour, kHour, 0, 0, RulerLabel::Minute};
        const RulerStep day{kDay, 6 * kHour, 0, 0, RulerLabel::Day};
        const RulerStep week{7 * kDay, kDay, 0, 0, RulerLabel::Day};
        const RulerStep quarter{kYear / 4, kYear / 12, 3, 1, RulerLabel::Month};
        QTest::newRow("UTC before 1970") << kUtc << hour << "1969-12-31T22:00:00" << 3 * kHour
                                         << QStringList{"22:00", "23:00", "1 Jan", "01:00"};
        QTest::newRow("half hours of offset") << kIndia << hour << "2024-01-01T17:29:59"
                                              << 2 * kHour << QStringList{"23:00", "2 Jan"};
        QTest::newRow("the hour that spring skips")
            << kBerlin << hour << "2024-03-30T23:00:00" << 4 * kHour
            << QStringList{"31 Mar", "01:00", "03:00", "04:00", "05:00"};
        QTest::newRow("every second hour, over the skipped one")
            << kBerlin << two_hours << "2024-03-30T23:00:00" << 4 * kHour
            << QStringList{"31 Mar", "04:00"};
        QTest::newRow("the hour that comes twice in autumn")
            << kBerlin << hour << "2024-10-26T23:00:00" << 3 * kHour
            << QStringList{"01:00", "02:00", "02:00", "03:00"};
        QTest::newRow("days of 23 and of 24 hours")
            << kBerlin << day << "2024-03-29T22:00:00" << 3 * kDay
            << QStringList{"30 Mar", "31 Mar", "1 Apr", "2 Apr"};
        QTest::newRow("half an hour back in the south")
            << kLordHowe << hour << "2024-04-06T13:00:00" << 3 * kHour
            << QStringList{"7 Apr", "01:00", "02:00"};
        QTest::newRow("weeks begin on Monday")
            << kUtc << week << "2024-02-20T00:00:00" << 14 * kDay << QStringList{"26 Feb", "4 Mar"};
        QTest::newRow("months over the turn of the year")
            << kBerlin << quarter << "2023-12-31T22:59:00" << kYear / 3
            << QStringList{"Jan 2024", "Apr 2024"};
        QTest::newRow("before there were years")
            << kUtc << quarter << "0001-01-01T00:00:00" << qint64(0) << QStringList{"Jan 0001"};
    }

    void marksStandAtRoundTimesOfTheWallClock()
    {
        QFETCH(TimeZoneParam, zone);
        QFETCH(RulerStep, step);
        QFETCH(QString, from);
        QFETCH(qint64, length);
        const qint64 from_s = Utc(qPrintable(from));
        QFETCH(QStringList, labels);
        QStringList shown;
        qint64 previous = from_s - 1;

        for (const auto &mark : Vantor::RulerMarks(zone, from_s, from_s + length, step)) {
            QVERIFY(mark.seconds > previous && mark.seconds <= from_s + length);
            previous = mark.seconds;
            if (mark.is_major)
                shown.append(Vantor::RulerText(zone, mark.seconds, step.label, QLocale::c()));
        }

        QCOMPARE(shown, labels);
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
        const QLocale english(QLocale::English);
        QCOMPARE(Vantor::OffsetText(0, english), QString("UTC"));
        QCOMPARE(Vantor::OffsetText(19800, english), QString("\u202AUTC+5:30\u202C"));
        QCOMPARE(Vantor::OffsetText(-12600, english), QString("\u202AUTC\u22123:30\u202C"));
    }

private:
    CTestGuard guard_;
};

QTEST_GUILESS_MAIN(TestRuler)
#include "tst_ruler.moc"
