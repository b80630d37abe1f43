// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"

#include <Vantor/CBaseFileProgressBar>
#include <Vantor/CTimeBarDelegate>
#include <Vantor/CTimeZoneParam>

#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtGui/QWheelEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QToolTip>

#include <cmath>
#include <memory>

using Vantor::CAnimationProgressBar;
using Vantor::CBaseFileProgressBar;
using Vantor::TimeSliderFile;

namespace {

constexpr qint64 kNoon = 1711713600; // 2024-03-29 12:00 UTC
constexpr qint64 kHour = 3600;
constexpr int kWidth = 600;

// 60 pixels an hour, at noon, without animations.
template <class Bar> std::unique_ptr<Bar> NewBar()
{
    auto bar = std::make_unique<Bar>();
    bar->resize(kWidth, 72);
    bar->SetAnimationDuration(0);
    bar->SetPosition(kNoon * 1000);
    bar->show();
    return bar;
}

std::shared_ptr<TimeSliderFile> NewFile(qint64 begin, qint64 end, int record_type = 0, int type = 0)
{
    auto file = std::make_shared<TimeSliderFile>(
        7, "gate <1>.mp4", begin, end, static_cast<Vantor::TimeSliderFileType>(type), "cam");
    file->SetRecordFileType(record_type);
    return file;
}

void Turn(QWidget &widget, QPointF at, QPoint angle, Qt::KeyboardModifiers modifiers = {})
{
    QWheelEvent event(at, widget.mapToGlobal(at.toPoint()), {}, angle, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

class CLayer : public Vantor::CAbstractDelegate
{
public:
    CLayer(QObject *parent, bool responds) : CAbstractDelegate(9, parent), responds_(responds) {}

    bool event(QEvent *event) override
    {
        events_ += event->type() == QEvent::MouseButtonPress
                   || event->type() == QEvent::MouseButtonRelease;
        return CAbstractDelegate::event(event) || events_ > 0;
    }

    int events_ = 0;

protected:
    bool ShouldRespondAtPos(QPoint /*pos*/) override { return responds_; }

private:
    const bool responds_;
};

} // namespace

class TestTimeLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard_.Begin(); }
    void cleanup()
    {
        QToolTip::hideText();
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void theWheelZoomsAboutThePointer()
    {
        const auto bar = NewBar<CAnimationProgressBar>();
        const qint64 under_pointer = bar->UTCSecondsAtXPos(480);
        const double before = bar->PixelsPerSecond();

        Turn(*bar, {480, 10}, {0, 240});

        QVERIFY(bar->PixelsPerSecond() > before * 1.5);
        QVERIFY(std::abs(bar->UTCSecondsAtXPos(480) - under_pointer) <= 1);
        QVERIFY(bar->Position() != kNoon * 1000);
        for (int i = 0; i < 200; ++i)
            Turn(*bar, {480, 10}, {0, -960});
        QVERIFY(bar->PixelsPerSecond() > 0 && bar->UnitTimeLength() > 0);
        Turn(*bar, {480, 10}, {120, 0}); // sideways pans: the picture follows the hand
        QVERIFY(bar->UTCSecondsAtXPos(480) < under_pointer);
    }

    void draggingPansAndEscapeTakesItBack()
    {
        const auto bar = NewBar<CAnimationProgressBar>();
        QSignalSpy stopped(bar.get(), &CAnimationProgressBar::SignalStopAtTime);

        QTest::mousePress(bar.get(), Qt::LeftButton, {}, {300, 30});
        QTest::mouseMove(bar.get(), {240, 30});
        QMouseEvent move(QEvent::MouseMove, QPointF(240, 30), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(bar.get(), &move);
        QVERIFY(bar->IsPressed() && bar->IsMoving());
        QCOMPARE(bar->GetCurrentUTCTime(), kNoon + kHour);
        bar->SetCurrentDateTime(QDateTime({2000, 1, 1}, {0, 0}, Qt::UTC)); // ignored meanwhile
        QCOMPARE(bar->GetCurrentUTCTime(), kNoon + kHour);
        QTest::mouseRelease(bar.get(), Qt::LeftButton, {}, {240, 30});

        QVERIFY(!bar->IsPressed() && !bar->IsMoving());
        QCOMPARE(stopped.count(), 1);
        QCOMPARE(stopped.at(0).at(0).toDateTime(), bar->GetCurrentDateTime());

        QTest::mousePress(bar.get(), Qt::LeftButton, {}, {300, 30});
        QApplication::sendEvent(bar.get(), &move);
        QTest::keyClick(bar.get(), Qt::Key_Escape);
        QCOMPARE(bar->GetCurrentUTCTime(), kNoon + kHour);
        QVERIFY(!bar->IsPressed());
    }

    void aClickSlidesThere()
    {
        const auto bar = NewBar<CAnimationProgressBar>();
        bar->SetAnimationDuration(80);
        QSignalSpy steps(bar.get(), &CAnimationProgressBar::SignalPositionChanged);

        QTest::mouseClick(bar.get(), Qt::LeftButton, {}, {420, 30});

        QVERIFY(bar->IsSliding());
        QCOMPARE(bar->GetCurrentUTCTime(), kNoon + 2 * kHour); // stored before the slide
        QTRY_VERIFY(!bar->IsSliding());
        QCOMPARE(bar->Position(), (kNoon + 2 * kHour) * 1000);
        QCOMPARE(steps.last().at(0).toLongLong(), bar->Position());
        QVERIFY(steps.first().at(0).toLongLong() < bar->Position());
    }

    void keysDoWhatTheMouseDoes_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<qint64>("moved");
        const auto none = int(Qt::NoModifier);
        // The ruler has a label each 2 hours and a mark each 30 minutes.
        QTest::newRow("a mark on") << int(Qt::Key_Right) << none << kHour / 2;
        QTest::newRow("a label back") << int(Qt::Key_Left) << int(Qt::ShiftModifier) << -2 * kHour;
        QTest::newRow("a width on") << int(Qt::Key_PageDown) << none << 10 * kHour;
        QTest::newRow("next file") << int(Qt::Key_Right) << int(Qt::ControlModifier) << qint64(90);
        QTest::newRow("file before")
            << int(Qt::Key_Left) << int(Qt::ControlModifier) << qint64(-500);
        QTest::newRow("first file") << int(Qt::Key_Home) << none << qint64(-9000);
        QTest::newRow("last file") << int(Qt::Key_End) << none << qint64(90);
    }

    void keysDoWhatTheMouseDoes()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(qint64, moved);
        const auto bar = NewBar<CBaseFileProgressBar>();
        bar->SetFiles({NewFile(kNoon - 9000, kNoon - 8000), NewFile(kNoon - 500, kNoon),
                       NewFile(kNoon, kNoon + 5), NewFile(kNoon + 90, kNoon + 95),
                       NewFile(kNoon + 50, kNoon + 60, 1)}, // a type that is not drawn
                      true);

        QTest::keyClick(bar.get(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));

        QCOMPARE(bar->GetCurrentUTCTime() - kNoon, moved);
    }

    void zoomingByKeysKeepsTheTimeAtTheCursorLine()
    {
        const auto bar = NewBar<CAnimationProgressBar>();
        bar->SetAnimationDuration(50);
        const double before = bar->PixelsPerSecond();

        QTest::keyClick(bar.get(), Qt::Key_Plus);
        QTest::keyClick(bar.get(), Qt::Key_Equal);
        QTRY_VERIFY(qFuzzyCompare(bar->PixelsPerSecond(), before * 1.5 * 1.5));
        QCOMPARE(bar->GetCurrentUTCTime(), kNoon);
        QTest::keyClick(bar.get(), Qt::Key_0);
        QTRY_VERIFY(qFuzzyCompare(bar->PixelsPerSecond(), before));
        bar->SetUnitScale(0, 5); // refused
        bar->SetUnitScale(5, qQNaN());
        QVERIFY(qFuzzyCompare(bar->PixelsPerSecond(), before));
    }

    void hoveringTellsFileStartAndEnd()
    {
        const auto bar = NewBar<CBaseFileProgressBar>();
        Vantor::TimeZoneParam zone;
        zone.utc_bias = -90;
        bar->SetTimeZoneInfor(Vantor::CTimeZoneParam(zone));
        bar->SetFiles({NewFile(kNoon, kNoon + kHour)}, true);

        bar->ShowTip();
        const QString tip = QToolTip::text();
        QVERIFY2(tip.contains("gate &lt;1&gt;.mp4") && tip.contains("13:30:00 \u202AUTC+1:30")
                     && tip.contains("14:30:00"),
                 qPrintable(tip));
        QHelpEvent help(QEvent::ToolTip, {100, 30}, bar->mapToGlobal({100, 30}));
        QApplication::sendEvent(bar.get(), &help);
        QVERIFY(!QToolTip::text().contains("gate"));

        QAccessibleInterface *const access = QAccessible::queryAccessibleInterface(bar.get());
        QCOMPARE(access->role(), QAccessible::Slider);
        QVERIFY(access->text(QAccessible::Value).contains("13:30:00"));
        access->valueInterface()->setCurrentValue(kNoon + 1);
        QCOMPARE(bar->GetCurrentUTCTime(), kNoon + 1);
    }

    void filesBecomeBarsAsTheTableSays_data()
    {
        QTest::addColumn<int>("file_type");
        QTest::addColumn<int>("record_type");
        QTest::addColumn<bool>("by_type");
        QTest::addColumn<int>("bar_type");
        QTest::addColumn<QColor>("colour");
        const QColor blue(33, 150, 243);
        const QColor orange(255, 104, 66);
        QTest::newRow("types not told apart") << 4 << 7 << false << 1 << blue;
        QTest::newRow("0, 0") << 0 << 0 << true << 0 << blue;
        QTest::newRow("0, 1") << 0 << 1 << true << 1 << QColor("#836abb");
        QTest::newRow("0, 2") << 0 << 2 << true << 2 << QColor("#b25959");
        QTest::newRow("0, 13") << 0 << 13 << true << 13 << orange;
        QTest::newRow("0, 22") << 0 << 22 << true << 22 << QColor("#666666");
        QTest::newRow("0, 500") << 0 << 500 << true << 500 << QColor(21, 184, 155);
        QTest::newRow("0, 501") << 0 << 501 << true << 501 << QColor("#519f8f");
        QTest::newRow("0, unknown") << 0 << 7 << true << -1 << QColor();
        QTest::newRow("1") << 1 << 500 << true << 13 << orange;
        QTest::newRow("2") << 2 << 0 << true << -1 << QColor();
        QTest::newRow("3") << 3 << 0 << true << 13 << orange;
        QTest::newRow("4") << 4 << 22 << true << 0 << blue;
        QTest::newRow("5") << 5 << 0 << true << 13 << orange;
        QTest::newRow("6") << 6 << 0 << true << -1 << QColor();
    }

    void filesBecomeBarsAsTheTableSays()
    {
        QFETCH(int, file_type);
        QFETCH(int, record_type);
        QFETCH(bool, by_type);
        QFETCH(int, bar_type);
        QFETCH(QColor, colour);

        const auto bar = CBaseFileProgressBar::NewATimeBarParam(
            NewFile(10, 20, record_type, file_type), [](qint64 s) { return s + 100; }, by_type);

        QCOMPARE(bar.GetVal_iTimeType(), bar_type);
        QCOMPARE(bar.GetVal_barColor(), colour);
        QCOMPARE(bar.GetVal_dtStart(), qint64(110));
        QCOMPARE(bar.GetVal_dtEnd(), qint64(120));
        QVERIFY(bar.GetVal_strFileName().isEmpty());
    }

    void theFileBarMakesOneDelegateAtTheBottom()
    {
        CBaseFileProgressBar bar;
        CLayer layer(&bar, false);
        bar.AppendDelegate(&layer);

        Vantor::CTimeBarDelegate *const delegate = bar.TimeBarDelegate();

        QCOMPARE(bar.TimeBarDelegate(), delegate);
        QCOMPARE(delegate->parent(), &bar);
        QCOMPARE(bar.Delegates().constFirst(), delegate);
        QCOMPARE(delegate->Types(), QList<int>({22, 0, 500, 13}));
        bar.SetTimeBarTypes({1});
        QVERIFY(delegate->IsTimeBarVisible(1) && !delegate->IsTimeBarVisible(22));
        static_cast<void>(CBaseFileProgressBar::NewATimeBarParam(nullptr, {}, true));
    }

    void delegatesComeGoAndTakeTheMouse()
    {
        const auto bar = NewBar<CAnimationProgressBar>();
        CAnimationProgressBar other;
        CLayer quiet(nullptr, false);
        const QPointer<CLayer> keen = new CLayer(nullptr, true);
        bar->AppendDelegate(keen);
        bar->AppendDelegate(&quiet);

        QTest::mouseClick(bar.get(), Qt::LeftButton, {}, {420, 30});
        QCOMPARE(keen->events_, 2);
        QCOMPARE(quiet.events_, 0);
        QCOMPARE(bar->GetCurrentUTCTime(), kNoon);

        delete keen;
        other.InsertDelegate(-5, &quiet);
        QVERIFY(bar->Delegates().isEmpty());
        QCOMPARE(quiet.AnimationProgressBar(), &other);
        QTest::mouseClick(bar.get(), Qt::LeftButton, {}, {360, 30});
        QCOMPARE(bar->GetCurrentUTCTime(), kNoon + kHour);
    }

    void aSlideThatNobodySeesIsOver()
    {
        const auto bar = NewBar<CAnimationProgressBar>();
        bar->SlideTo((kNoon + 5) * 1000, 60000);
        QTRY_VERIFY(bar->Position() != (kNoon + 5) * 1000);
        bar->hide();
        QVERIFY(!bar->IsSliding());
        QCOMPARE(bar->GetCurrentUTCTime(), kNoon + 5);
    }

private:
    CTestGuard guard_;
};

QTEST_MAIN(TestTimeLine)
#include "tst_timeline.moc"
