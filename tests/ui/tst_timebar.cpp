// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"

#include <Vantor/CAnimationProgressBar>
#include <Vantor/CTimeBarDelegate>
#include <Vantor/CTimeBarParam>

#include <letter/TimeBarLetter.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QTest>

#include <functional>
#include <limits>
#include <random>

using Vantor::CAnimationProgressBar;
using Vantor::CTimeBarDelegate;
using Vantor::CTimeBarParam;

namespace {

constexpr int kSeeds = 1000;
constexpr qint64 kNow = 1700000000;
const QList<int> kTypes{22, 0, 500, 13};

class CProbe : public CTimeBarDelegate
{
public:
    using CTimeBarDelegate::CTimeBarDelegate;
    using CTimeBarDelegate::Paint;
    using CTimeBarDelegate::ShouldRespondAtPos;
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

} // namespace

class TestTimeBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard_.Begin(); }
    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

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
                    painter.scale(1.25, 1.25);
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
        }
    }

    void farTimesPaintWhatIsInTheMiddle_data()
    {
        QTest::addColumn<qint64>("start");
        QTest::addColumn<qint64>("end");
        QTest::addColumn<bool>("left");
        QTest::addColumn<bool>("right");
        using Limits = std::numeric_limits<qint64>;
        QTest::newRow("from 1970 to ten seconds on") << qint64(0) << kNow + 10 << true << false;
        QTest::newRow("since the year 1") << qint64(-62135596800) << kNow + 5 << true << false;
        QTest::newRow("for ever") << kNow << Limits::max() << false << true;
        QTest::newRow("always") << Limits::min() << Limits::max() << true << true;
        QTest::newRow("ends before it begins") << Limits::max() << Limits::min() << false << false;
        QTest::newRow("has no end yet") << kNow - 100 << qint64(0) << false << false;
    }

    void farTimesPaintWhatIsInTheMiddle()
    {
        QFETCH(qint64, start);
        QFETCH(qint64, end);
        QFETCH(bool, left);
        QFETCH(bool, right);
        CAnimationProgressBar line;
        line.resize(200, 50);
        line.SetUnitScale(1, 1);
        line.SetPosition(kNow * 1000);
        CProbe delegate(&line);
        line.AppendDelegate(&delegate);
        delegate.InitTypes({1});

        delegate.AppendTimeBar({Bar(1, start, end)});

        const QImage image = Painted(
            {200, 50}, [](QPainter &) {}, [&](QPainter &p) { delegate.Paint(&p); });
        QCOMPARE(image.pixelColor(0, 30) == QColor(Qt::red), left);
        QCOMPARE(image.pixelColor(199, 30) == QColor(Qt::red), right);
        CTimeBarParam found;
        QCOMPARE(delegate.FindTimeBar({20, 30}, found), left);
    }

    void rowsStaySortedHoweverTheyGrow()
    {
        CTimeBarDelegate delegate(nullptr);
        const QVector<CTimeBarParam> first{Bar(1, 30, 31), Bar(1, 10, 11), Bar(2, 20, 21)};

        delegate.AppendTimeBar(first);
        delegate.AppendTimeBar({Bar(1, 5, 6), Bar(2, 25, 26), Bar(1, 40, 41)});
        delegate.AppendTimeBar(delegate.GetTimeBar()); // its own row

        QVector<qint64> starts;
        for (const CTimeBarParam &bar : delegate.GetTimeBar())
            starts.append(bar.Read().dtStart);
        QCOMPARE(starts, QVector<qint64>({5, 5, 10, 10, 20, 20, 25, 25, 30, 30, 40, 40}));
        QCOMPARE(first.at(0).GetVal_dtStart(), qint64(30)); // the caller's list is as it was
    }

    void onlyKnownTypesAreShownAndHidden()
    {
        CTimeBarDelegate delegate(nullptr);
        QVERIFY(!delegate.IsTimeBarVisible(22));
        delegate.InitTypes({22, 0});
        delegate.SetTimeBarVisible(7, true);
        QVERIFY(!delegate.IsTimeBarVisible(7));
        delegate.SetUnvisibleTypes({22, 7});
        QVERIFY(!delegate.IsTimeBarVisible(22) && delegate.IsTimeBarVisible(0));
        delegate.SetUnvisibleTypes({0}); // shows what is not in the list
        QVERIFY(delegate.IsTimeBarVisible(22) && !delegate.IsTimeBarVisible(0));
        delegate.InitTypes({0});
        QVERIFY(!delegate.IsTimeBarVisible(22) && delegate.IsTimeBarVisible(0));
    }

    void clearingEmptiesTheRowsItIsAskedTo()
    {
        CTimeBarDelegate delegate(nullptr);
        const auto fill = [&delegate] {
            delegate.AppendTimeBar({Bar(1, 1, 2)});
            delegate.AppendSyncTimeBar({Bar(1, 1, 2)});
        };
        fill();
        delegate.Clear(false);
        QVERIFY(delegate.GetTimeBar().isEmpty() && delegate.GetSyncTimeBar().size() == 1);
        fill();
        delegate.ClearSyncTimeBar();
        QVERIFY(delegate.GetTimeBar().size() == 1 && delegate.GetSyncTimeBar().isEmpty());
        fill();
        static_cast<Vantor::CAbstractDelegate &>(delegate).Clear();
        QVERIFY(delegate.GetTimeBar().isEmpty() && delegate.GetSyncTimeBar().isEmpty());
    }

    void theBarThatIsSeenIsFound_data()
    {
        QTest::addColumn<QPointF>("pos");
        QTest::addColumn<bool>("sync");
        QTest::addColumn<qint64>("start");
        QTest::newRow("the one on top") << QPointF(105, 30) << false << kNow;
        QTest::newRow("the first of those that overlap") << QPointF(70, 5) << false << kNow - 50;
        QTest::newRow("what sticks out of it") << QPointF(85, 30) << false << kNow - 40;
        QTest::newRow("a pixel for no length") << QPointF(150.5, 30) << false << kNow + 50;
        QTest::newRow("nothing behind that pixel") << QPointF(151.5, 30) << false << qint64(0);
        QTest::newRow("a hidden type") << QPointF(180, 30) << false << qint64(0);
        QTest::newRow("below the row") << QPointF(105, 42) << false << qint64(0);
        QTest::newRow("between two rows") << QPointF(105, 32) << true << qint64(0);
        QTest::newRow("the second row") << QPointF(160, 35) << true << kNow + 55;
    }

    void theBarThatIsSeenIsFound()
    {
        QFETCH(QPointF, pos);
        QFETCH(bool, sync);
        QFETCH(qint64, start);
        CAnimationProgressBar line;
        line.resize(200, 70);
        line.SetUnitScale(1, 1);
        line.SetPosition(kNow * 1000);
        CTimeBarDelegate delegate(&line);
        line.AppendDelegate(&delegate);
        delegate.InitTypes({1, 2, 3});
        delegate.SetTimeBarVisible(3, false);
        delegate.SetSyncFlag(sync);
        delegate.AppendTimeBar({Bar(1, kNow - 50, kNow - 20), Bar(1, kNow - 40, kNow - 5),
                                Bar(1, kNow - 2, kNow + 20), Bar(2, kNow, kNow + 10),
                                Bar(1, kNow + 50, kNow + 50), Bar(3, kNow + 70, kNow + 90)});
        delegate.AppendSyncTimeBar({Bar(1, kNow + 55, kNow + 70)});
        CTimeBarParam found;

        const bool is_found = delegate.FindTimeBar(pos, found);

        QCOMPARE(is_found, start != 0);
        QCOMPARE(found.GetVal_dtStart(), start);
    }

private:
    CTestGuard guard_;
};

QTEST_MAIN(TestTimeBar)
#include "tst_timebar.moc"
