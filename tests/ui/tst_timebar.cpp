// SPDX-License-Identifier: MIT
#include "support/Test.h"
#include "ui/AnimationProgressBar/Ruler.h"

#include <Vantor/CAnimationProgressBar>
#include <Vantor/CTimeBarDelegate>
#include <Vantor/CTimeBarParam>
#include <common/ZoneTime.h>

#include <letter/TimeBarLetter.h>

#include <QtCore/QLocale>
#include <QtGui/QPainter>

using namespace Vantor;

namespace {

constexpr int kSeeds = 1000;
constexpr qint64 kNow = 1700000000;
const QList<int> kTypes{22, 0, 500, 13};

class CProbe : public CTimeBarDelegate
{
public:
    using CTimeBarDelegate::CTimeBarDelegate;
    using CTimeBarDelegate::Paint;
};

CTimeBarParam Bar(int type, qint64 start, qint64 end, const QColor &colour = Qt::red)
{
    return CTimeBarParam(Vantor::TimeBarParam{type, 0, start, end, {}, {}, colour});
}

using Random = std::mt19937;

qint64 Between(Random &random, qint64 least, qint64 most)
{
    return std::uniform_int_distribution<qint64>(least, most)(random);
}

// A set of bars whose character the seed chooses: dense or sparse, islands, nested, touching,
// zero and negative lengths, some far outside.
QVector<CTimeBarParam> RandomBars(Random &random, int most, double pixels_per_second)
{
    const auto seconds_of_px = [&](double px) { return qint64(px / pixels_per_second); };
    const qint64 reach = seconds_of_px(double(Between(random, 1, 4000)));
    const qint64 longest = seconds_of_px(double(Between(random, 0, 600)));
    const int islands = int(Between(random, 1, 12));
    const int colours = int(Between(random, 1, 5));
    QVector<CTimeBarParam> bars;
    const auto count = Between(random, 0, most);
    qint64 touching = kNow;
    for (qint64 i = 0; i < count; ++i) {
        qint64 start = kNow + Between(random, -reach, reach);
        if (i % 3 == 0) // in islands
            start -= (start - kNow) % std::max<qint64>(1, reach / islands);
        if (i % 7 == 0)
            start = touching;
        qint64 length = Between(random, 0, 9) == 0 ? Between(random, -longest, longest)
                                                   : Between(random, 0, longest);
        if (i % 17 == 0)
            length = seconds_of_px(1.0);
        const int type = int(Between(random, 0, 5));
        QColor colour(int(Between(random, 0, colours)) * 50, type * 40, 160);
        if (i % 29 == 0)
            colour.setAlpha(90);
        if (i % 31 == 0)
            colour = QColor(); // paints black
        bars.append(Bar(type < 4 ? kTypes.at(type) : type, start, start + length, colour));
        touching = start + length;
    }
    return bars;
}

QImage Painted(QSize size, const std::function<void(QPainter &)> &prepare,
               const std::function<void(QPainter &)> &paint)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    prepare(painter);
    paint(painter);
    return image;
}

bool Covers(const CTimeBarParam &bar, qint64 seconds)
{
    const qint64 start = bar.Read().dtStart;
    return start == seconds || (start < seconds && seconds < bar.Read().dtEnd);
}

// Compares the answers of the index about a second with a look at each bar; empty when they agree.
QString FaultAt(const CTimeBarDelegate &ours, Letter::TimeBars &plain, qint64 seconds)
{
    std::optional<qint64> before;
    std::optional<qint64> after;
    int top = -1; // place of the topmost type that covers the second
    for (const CTimeBarParam &bar : qAsConst(plain.bars)) { // sorted by start
        if (!plain.visible[bar.Read().iTimeType])
            continue;
        const qint64 start = bar.Read().dtStart;
        if (start < seconds)
            before = start;
        if (start > seconds && !after)
            after = start;
        if (Covers(bar, seconds))
            top = std::max(top, kTypes.indexOf(bar.Read().iTimeType));
    }
    if (ours.FindStart(seconds, false) != before || ours.FindStart(seconds, true) != after)
        return "another start";
    const auto found = ours.FindTimeBarAt(seconds);
    const int found_top = found ? kTypes.indexOf(found->Read().iTimeType) : -1;
    return found_top != top || (found && !Covers(*found, seconds)) ? "another bar" : "";
}

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

// zone, step, from, length, labels
const Rows<TimeZoneParam, RulerStep, const char *, qint64, QString> kMarkRows = {
    {"UTC before 1970", kUtc, kHours, "1969-12-31T22:00:00", 3 * kHour, "22:00,23:00,1 Jan,01:00"},
    {"half hours of offset", kIndia, kHours, "2024-01-01T17:29:59", 2 * kHour, "23:00,2 Jan"},
    {"the hour that spring skips", kBerlin, kHours, "2024-03-30T23:00:00", 4 * kHour,
     "31 Mar,01:00,03:00,04:00,05:00"},
    {"every second hour, over the skipped one", kBerlin, kTwoHours, "2024-03-30T23:00:00",
     4 * kHour, "31 Mar,04:00"},
    {"the hour that comes twice in autumn", kBerlin, kHours, "2024-10-26T23:00:00", 3 * kHour,
     "01:00,02:00,02:00,03:00"},
    {"days of 23 hours", kBerlin, kDays, "2024-03-29T22:00:00", 3 * kDay,
     "30 Mar,31 Mar,1 Apr,2 Apr"},
    {"half an hour back", kLordHowe, kHours, "2024-04-06T13:00:00", 3 * kHour, "7 Apr,01:00,02:00"},
    {"weeks begin on Monday", kUtc, kWeeks, "2024-02-20T00:00:00", 14 * kDay, "26 Feb,4 Mar"},
    {"months over the turn of the year", kBerlin, kQuarters, "2023-12-31T22:59:00", kYear / 3,
     "Jan 2024,Apr 2024"},
    {"before there were years", kUtc, kQuarters, "0001-01-01T00:00:00", 0, "Jan 0001"},
};

using Limits = std::numeric_limits<qint64>;

// start, end, has_left, has_right
const Rows<qint64, qint64, bool, bool> kFarRows = {
    {"from 1970 to ten seconds on", 0, kNow + 10, true, false},
    {"since the year 1", -62135596800, kNow + 5, true, false},
    {"for ever", kNow, Limits::max(), false, true},
    {"always", Limits::min(), Limits::max(), true, true},
    {"ends before it begins", Limits::max(), Limits::min(), false, false},
    {"has no end yet", kNow - 100, 0, false, false},
};

} // namespace

class TestTimeBar : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyPixelIsThatOfThePlainLoop()
    {
        for (int seed = 0; seed < kSeeds; ++seed) {
            Random random{unsigned(seed)};
            const int width = int(Between(random, 3, 900));
            const int height = int(Between(random, 20, 120));
            CAnimationProgressBar line;
            line.resize(width, height);
            line.SetUnitScale(double(Between(random, 1, 400)), double(Between(random, 40, 90000)));
            line.SetSimplifyMode(Between(random, 0, 3) == 0);
            line.SetPosition(kNow * 1000 + Between(random, -1000000, 1000000));
            CProbe ours(&line);
            line.AppendDelegate(&ours);
            Letter::TimeBars plain;
            plain.types = kTypes;
            plain.has_sync = seed % 2 == 0;
            ours.InitTypes(kTypes);
            ours.SetSyncFlag(plain.has_sync);
            for (const int type : kTypes) {
                plain.visible[type] = Between(random, 0, 4) != 0;
                ours.SetTimeBarVisible(type, plain.visible[type]);
            }
            // In several parts, the later ones anywhere among the earlier.
            for (qint64 part = Between(random, 1, 3); part > 0; --part) {
                const int most = seed % 25 == 0 ? 5000 : 120;
                const auto bars = RandomBars(random, most, line.PixelsPerSecond());
                const auto sync_bars = RandomBars(random, most, line.PixelsPerSecond());
                plain.bars += bars;
                plain.sync_bars += sync_bars;
                ours.AppendTimeBar(bars);
                ours.AppendSyncTimeBar(sync_bars);
            }
            Letter::SortTimeBarsStably(plain.bars);
            Letter::SortTimeBarsStably(plain.sync_bars);
            QCOMPARE(ours.GetTimeBar().size(), plain.bars.size());
            for (int i = 0; i < plain.bars.size(); ++i)
                QCOMPARE(ours.GetTimeBar().at(i).Read().dtStart, plain.bars.at(i).Read().dtStart);

            const auto prepare = [seed](QPainter &painter) {
                painter.setRenderHint(QPainter::Antialiasing, seed % 5 == 1);
                if (seed % 7 == 2)
                    painter.translate(0.3, 0.6);
                if (seed % 7 == 3)
                    painter.scale(2, 2);
                if (seed % 7 == 4)
                    painter.scale(seed % 2 ? 1.25 : 1.5, seed % 2 ? 1.25 : 1.5);
                if (seed % 3 == 0)
                    painter.setClipRect(QRect(seed % 50, 3, 200, 30 + seed % 20));
                if (seed % 7 == 5)
                    painter.rotate(3);
                if (seed % 7 == 6)
                    painter.scale(-1, 1);
            };
            // Wider and higher than the bar: painting does not stop at its edges.
            const QSize size(width * 2 + 40, height * 2 + 60);
            const QImage expected = Painted(size, prepare, [&](QPainter &painter) {
                plain.Paint(&painter, {width, height, line.GetCurrentUTCTime(),
                                       line.PixelsPerSecond(), line.IsSimplifyMode()});
            });
            const QImage actual =
                Painted(size, prepare, [&](QPainter &painter) { ours.Paint(&painter); });
            QVERIFY2(actual == expected, qPrintable(QString("seed %1").arg(seed)));
            const QString fault =
                FaultAt(ours, plain, line.GetCurrentUTCTime() + Between(random, -500, 500));
            QVERIFY2(fault.isEmpty(), qPrintable(fault + QString(", seed %1").arg(seed)));
            if (seed % 7 > 1 || seed % 5 == 1 || seed % 3 == 0 || line.IsSimplifyMode())
                continue;
            // The bar found in a pixel is the one painted there.
            for (int x = 0; x < width; x += 7) {
                for (const int y : {5, 25, 32, 36, 43}) { // also between and below the rows
                    const auto found = ours.FindTimeBar({x + 0.5, y + 0.5});
                    if (y == 5) {
                        QCOMPARE(found.has_value(), actual.pixelColor(x, y) != Qt::white);
                        continue;
                    }
                    const QColor colour = found ? found->GetVal_barColor() : Qt::white;
                    if (colour.alpha() == 255 && colour.isValid())
                        QCOMPARE(actual.pixelColor(x, y), colour);
                }
            }
        }
    }

    void farTimesPaintWhatIsInTheMiddle_data() { AddRows(kFarRows); }

    void farTimesPaintWhatIsInTheMiddle()
    {
        const auto &[name, start, end, has_left, has_right] = FetchRow(kFarRows);
        CAnimationProgressBar line;
        line.resize(200, 50);
        line.SetUnitScale(1, 1);
        line.SetPosition(kNow * 1000);
        CProbe delegate(&line);
        line.AppendDelegate(&delegate);
        delegate.InitTypes({1});

        delegate.AppendTimeBar({Bar(1, start, end)});

        for (const bool is_antialiased : {false, true}) {
            const QImage image = Painted(
                {200, 50},
                [&](QPainter &p) { p.setRenderHint(QPainter::Antialiasing, is_antialiased); },
                [&](QPainter &p) { delegate.Paint(&p); });
            QCOMPARE(image.pixelColor(0, 30) == QColor(Qt::red), has_left);
            QCOMPARE(image.pixelColor(199, 30) == QColor(Qt::red), has_right);
        }
        QCOMPARE(delegate.FindTimeBar({20, 30}).has_value(), has_left);
        QCOMPARE(delegate.FindTimeBarAt(kNow - 80).has_value(), has_left);
    }

    void listsOfTheCallerStayAsTheyAre()
    {
        CTimeBarDelegate delegate(nullptr);
        const QVector<CTimeBarParam> first{Bar(1, 30, 31), Bar(1, 10, 11), Bar(2, 20, 21)};

        delegate.AppendTimeBar(first);
        const QVector<CTimeBarParam> early = delegate.GetTimeBar();
        delegate.AppendTimeBar(delegate.GetTimeBar()); // its own row

        QCOMPARE(delegate.GetTimeBar().size(), 6);
        QCOMPARE(first.at(0).GetVal_dtStart(), qint64(30));
        delegate.Clear(false);
        QVERIFY(delegate.GetTimeBar().isEmpty());
        QCOMPARE(early.at(0).GetVal_dtStart(), qint64(10));
    }

    void onlyKnownTypesAreShownAndHidden()
    {
        CTimeBarDelegate delegate(nullptr);
        delegate.InitTypes({22, 0});
        delegate.SetTimeBarVisible(7, true);
        QVERIFY(!delegate.IsTimeBarVisible(7));
        delegate.SetUnvisibleTypes({22, 7});
        delegate.SetUnvisibleTypes({0}); // shows a file that is not in the list
        QVERIFY(delegate.IsTimeBarVisible(22) && !delegate.IsTimeBarVisible(0));
        delegate.InitTypes({0});
        QVERIFY(!delegate.IsTimeBarVisible(22) && delegate.IsTimeBarVisible(0));
    }

    void marksAreAtRoundTimesOfTheWallClock_data() { AddRows(kMarkRows); }

    void marksAreAtRoundTimesOfTheWallClock()
    {
        const auto &[name, zone, step, from, length, labels] = FetchRow(kMarkRows);
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
        double scale = 10.0;
        for (int i = 0; i < 70; ++i, scale /= 1.3) { // down to 1e-7
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

QTEST_MAIN(TestTimeBar)
#include "tst_timebar.moc"
