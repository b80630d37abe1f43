// SPDX-License-Identifier: MIT
#include "support/Widgets.h"

#include <BusinessCommon/TimeZoneManager.h>
#include <ResourceManager/WorkStationManager.h>
#include <Vantor/CAnimationProgressBar>
#include <Vantor/CBaseFileProgressBar>
#include <Vantor/COneDayTimeBox>
#include <Vantor/CTimeBarDelegate>
#include <Vantor/CTimeZoneParam>

#include <QtGui/QAccessible>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>

using namespace Vantor;

namespace {

constexpr qint64 kNoon = 1711713600; // 2024-03-29 12:00 UTC
constexpr qint64 kHour = 3600;
constexpr int kWidth = 600;
const QDateTime kNewYear({2024, 1, 1}, {0, 0}, Qt::UTC);

class CBar : public CBaseFileProgressBar
{
public:
    using CBaseFileProgressBar::TipAtCursorLine;
};

// 60 pixels an hour, at noon.
std::unique_ptr<CBar> NewBar(int animation_ms = 0)
{
    auto bar = std::make_unique<CBar>();
    bar->resize(kWidth, 72);
    bar->SetAnimationDuration(animation_ms);
    bar->SetPosition(kNoon * 1000);
    bar->show();
    return bar;
}

std::shared_ptr<TimeSliderFile> NewFile(qint64 begin, qint64 end, int record_type = 0, int type = 0)
{
    auto file = std::make_shared<TimeSliderFile>(7, "gate <1>.mp4", begin, end,
                                                 TimeSliderFileType(type), "cam");
    file->SetRecordFileType(record_type);
    return file;
}

// Unlike those of QTest, the widget may be deleted by them, and before them.
void Send(QWidget *widget, QEvent &&event)
{
    if (widget)
        QApplication::sendEvent(widget, &event);
}

void Turn(QWidget *widget, int x, int turned_x, int turned_y)
{
    Send(widget, QWheelEvent(QPointF(x, 10), QPointF(x, 10), {}, {turned_x, turned_y}, Qt::NoButton,
                             {}, Qt::NoScrollPhase, false));
}

void Key(QWidget *widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    Send(widget, QKeyEvent(QEvent::KeyPress, key, modifiers));
}

void Mouse(QWidget *widget, QEvent::Type type, int x)
{
    const bool is_held = type != QEvent::MouseButtonRelease;
    Send(widget, QMouseEvent(type, QPointF(x, 30),
                             type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                             is_held ? Qt::LeftButton : Qt::NoButton, {}));
}

void Drag(QWidget *target, int from_x, int to_x, bool is_released = true)
{
    const QPointer<QWidget> widget(target);
    Mouse(widget, QEvent::MouseButtonPress, from_x);
    Mouse(widget, QEvent::MouseMove, to_x);
    if (is_released)
        Mouse(widget, QEvent::MouseButtonRelease, to_x);
}

void Hide(QWidget *widget)
{
    if (widget)
        widget->hide();
}

class CLayer : public CAbstractDelegate
{
public:
    explicit CLayer(std::function<void()> paint = {}) : CAbstractDelegate(9, nullptr), paint_(paint)
    {}

    bool event(QEvent *event) override
    {
        events_ += event->type() == QEvent::MouseButtonPress;
        return CAbstractDelegate::event(event) || events_ > 0;
    }

    int events_ = 0;

protected:
    bool ShouldRespondAtPos(QPoint /*pos*/) override { return !paint_; }
    void Paint(QPainter *painter) override
    {
        painter->setOpacity(0.1);
        if (paint_)
            paint_();
    }

private:
    const std::function<void()> paint_;
};

// What the host knows of a bar, from its signals and its own calls.
struct Host
{
    explicit Host(CBar &bar)
    {
        QObject::connect(&bar, &CBar::SignalPositionChanged, &bar,
                         [&](qint64 position_ms) { shown_ms = position_ms; });
        QObject::connect(&bar, &CBar::SignalStopAtTime, &bar, [&](const QDateTime &time) {
            is_true = is_true && (is_setting || time == bar.GetCurrentDateTime());
            known_s = bar.GetCurrentUTCTime();
        });
    }

    qint64 shown_ms = kNoon * 1000;
    qint64 known_s = kNoon;
    bool is_true = true;
    bool is_setting = false;
};

using BusinessCommon::CTimeZoneInfor;

const CTimeZoneParam kBerlin(TimeZoneParam{1711846800, 1729990800, -60, -60, true}); // 2024

QDateTime Fields(int month, int day, int hour, int minute = 0)
{
    return QDateTime({2024, month, day}, {hour, minute}, Qt::UTC);
}

// Answers every text alike, or throws.
class CConstantTime : public BusinessCommon::ITimeZoneService
{
public:
    explicit CConstantTime(std::optional<qint64> seconds) : seconds_(seconds) {}

    qint64 ISOTimeToTimeT(const std::string &) override
    {
        return seconds_ ? *seconds_ : throw std::runtime_error("no zones");
    }
    bool GetDstDate(std::tm &, qint64 &, std::tm &, qint64 &, int,
                    const std::shared_ptr<CTimeZoneInfor> &) override
    {
        return false;
    }
    void GetClientTimeZoneInfor(std::shared_ptr<CTimeZoneInfor> &) override {}

private:
    const std::optional<qint64> seconds_;
};

const qint64 kPassedMs = 90700; // 0.7 s behind the start of a file

// key, modifiers, from_ms (after noon), to_ms
const Rows<Qt::Key, Qt::KeyboardModifiers, qint64, qint64> kKeyRows = {
    // The ruler has a label each 2 hours and a mark each 30 minutes.
    {"a mark on", Qt::Key_Right, {}, 0, kHour * 500},
    {"a label back", Qt::Key_Left, Qt::ShiftModifier, 0, -kHour * 2000},
    {"a width on", Qt::Key_PageDown, {}, 0, kHour * 10000},
    {"next file", Qt::Key_Right, Qt::ControlModifier, 0, 90000},
    {"file before", Qt::Key_Left, Qt::ControlModifier, 0, -500000},
    {"the start just passed", Qt::Key_Left, Qt::ControlModifier, kPassedMs, 90000},
    {"no file behind the last", Qt::Key_Right, Qt::ControlModifier, kPassedMs, kPassedMs},
    {"first file", Qt::Key_Home, {}, 0, -9000000},
    {"last file", Qt::Key_End, {}, 0, 90000},
};

} // namespace

class TestTimeLine : public CGuardedTest
{
    Q_OBJECT

    void TearDown() override
    {
        QToolTip::hideText();
        BusinessCommon::CTimeZoneManager::SetService(nullptr);
    }

private Q_SLOTS:
    // Position, label, tip, picture and the reported stop agree whatever the user and the host do.
    void theControlAgreesWithItself()
    {
        std::mt19937 random(7); // NOLINT(cert-msc51-cpp)
        const auto any = [&](int most) { return int(random() % unsigned(most)); };
        const auto bar = NewBar(30);
        Host host(*bar);
        QAccessibleInterface *const access = QAccessible::queryAccessibleInterface(bar.get());
        QLabel *const label = bar->findChild<QLabel *>("CalendarLabel");
        const Qt::Key keys[] = {Qt::Key_Left,  Qt::Key_Right, Qt::Key_PageUp, Qt::Key_PageDown,
                                Qt::Key_Home,  Qt::Key_End,   Qt::Key_Plus,   Qt::Key_Minus,
                                Qt::Key_Space, Qt::Key_0,     Qt::Key_Escape};
        CBaseFileProgressBar::Files files;
        CTimeZoneParam zone;
        for (int step = 0; step < 1500; ++step) {
            const int action = any(17);
            const qint64 target_ms = (kNoon + any(400000) - 200000) * 1000 + any(1000);
            if (action < 4) {
                Key(bar.get(), keys[any(11)], any(3) == 0 ? Qt::ControlModifier : Qt::NoModifier);
            } else if (action < 7) {
                Turn(bar.get(), any(kWidth), any(3) == 0 ? 120 - any(240) : 0, 120 - any(240));
            } else if (action == 7) {
                Drag(bar.get(), any(kWidth), any(kWidth), any(4) != 0);
            } else if (action == 8) {
                Mouse(bar.get(), QEvent::MouseButtonRelease, any(kWidth));
                bar->setEnabled(any(4) != 0);
            } else if (action == 9) {
                bar->SetPosition(target_ms);
                host.known_s = bar->GetCurrentUTCTime();
            } else if (action == 10) {
                host.is_setting = true;
                bar->SetCurrentDateTime(QDateTime::fromMSecsSinceEpoch(target_ms, Qt::UTC),
                                        any(2) == 0, 30);
                host.is_setting = false;
                if (!bar->IsPressed() && !bar->IsMoving())
                    host.known_s = bar->GetCurrentUTCTime();
            } else if (action == 11) {
                bar->SlideTo(target_ms, 30);
                host.known_s = bar->GetCurrentUTCTime();
                bar->SetUnitScale(1 + any(90), 1 + any(7200)); // before the first step
                bar->SetTimeZoneInfor(zone);
                if (any(3) == 0) {
                    bar->StopSlide();
                    host.known_s = bar->GetCurrentUTCTime();
                }
            } else if (action == 16) {
                access->valueInterface()->setCurrentValue(target_ms / 1000);
                bar->resize(kWidth + any(9), 72);
            } else if (action == 12) {
                zone = CTimeZoneParam(TimeZoneParam{kNoon - kHour, kNoon + kHour * any(99),
                                                    30 - any(60), -60, any(2) == 0});
                bar->SetTimeZoneInfor(zone);
            } else if (action == 13) {
                files.append(NewFile(target_ms / 1000, target_ms / 1000 + any(9000)));
                bar->SetFiles(files, true);
            } else if (action == 14) {
                bar->SetSimplifyMode(any(2) == 0);
                bar->setVisible(any(3) != 0);
            } else {
                QTest::qWait(any(40));
            }
            QCoreApplication::sendPostedEvents(bar.get()); // the first step of a slide

            const QString time = bar->GetCurrentDateTime().toString("HH:mm:ss");
            QVERIFY2(label->text().contains(time), qPrintable(QString::number(step)));
            QCOMPARE(host.shown_ms, bar->Position());
            QVERIFY2(host.is_true, qPrintable(QString::number(step)));
            if (QToolTip::isVisible() && !QToolTip::text().isEmpty() && bar->isVisible())
                QCOMPARE(QToolTip::text(), bar->TipAtCursorLine());
            if (step % 50 != 49)
                continue;
            bar->setEnabled(true);
            Mouse(bar.get(), QEvent::MouseButtonRelease, any(kWidth));
            QTRY_COMPARE(host.known_s, bar->GetCurrentUTCTime());
            QTest::qWait(60); // a zoom about the cursor line reports no stop
            const auto fresh = NewBar();
            fresh->resize(bar->size());
            fresh->SetTimeZoneInfor(zone);
            fresh->SetFiles(files, true);
            fresh->SetSimplifyMode(bar->IsSimplifyMode());
            fresh->SetUnitScale(bar->UnitScaleLength(), bar->UnitTimeLength());
            fresh->SetPosition(bar->Position());
            bar->clearFocus();
            fresh->clearFocus();
            QCOMPARE(bar->grab().toImage(), fresh->grab().toImage());
        }
    }

    void aSlotMayDeleteTheBarInEverySignal()
    {
        using Bar = QPointer<CBar>;
        // The signals: P position, C scale, S stop.
        const std::pair<const char *, std::function<void(const Bar &)>> actions[] = {
            {"PS", [](const Bar &bar) { Key(bar, Qt::Key_Right); }},
            {"C", [](const Bar &bar) { Key(bar, Qt::Key_Plus); }},
            {"PCS", [](const Bar &bar) { Turn(bar, 500, 0, 120); }},
            {"PS", [](const Bar &bar) { Turn(bar, 500, 120, 0); }},
            {"PS", [](const Bar &bar) { Drag(bar, 300, 200); }},
            {"PS", [](const Bar &bar) { Drag(bar, 200, 200); }},
            {"P", [](const Bar &bar) { bar->SetPosition(5); }},
            {"C", [](const Bar &bar) { bar->SetUnitScale(7, 9); }},
            {"PS", [](const Bar &bar) { bar->SetCurrentDateTime(kNewYear, true); }},
            {"PS",
             [](const Bar &bar) {
                 Drag(bar, 300, 200, false);
                 Key(bar, Qt::Key_Escape);
             }},
            {"PCS",
             [](const Bar &bar) {
                 bar->ZoomBy(2, 500);
                 Hide(bar);
             }},
            {"PS", [](const Bar &bar) {
                 QAccessible::queryAccessibleInterface(bar)->valueInterface()->setCurrentValue(5);
             }}};
        for (const auto &[emitted, act] : actions) {
            for (const char signal : std::string_view(emitted)) {
                for (const int animation_ms : {0, 20}) {
                    const Bar bar = NewBar(animation_ms).release();
                    const auto end = [bar] { delete bar; };
                    if (signal == 'P')
                        connect(bar, &CBar::SignalPositionChanged, bar, end);
                    else if (signal == 'C')
                        connect(bar, &CBar::SignalScaleChanged, bar, end);
                    else
                        connect(bar, &CBar::SignalStopAtTime, bar, end);

                    act(bar);

                    QTRY_VERIFY(!bar);
                }
            }
        }
    }

    void theWheelKeepsTheTimeUnderThePointerAndReportsOneStop()
    {
        const auto bar = NewBar();
        const QSignalSpy stops(bar.get(), &CBar::SignalStopAtTime);
        const qint64 under_pointer = bar->UTCSecondsAtXPos(480);

        for (int i = 0; i < 3; ++i)
            Turn(bar.get(), 480, 0, 240);

        QVERIFY(std::abs(bar->UTCSecondsAtXPos(480) - under_pointer) <= 1);
        Turn(bar.get(), 480, 120, 0); // sideways pans: the picture follows the hand
        QVERIFY(bar->UTCSecondsAtXPos(480) < under_pointer);
        QTRY_COMPARE(stops.size(), 1);
        for (int i = 0; i < 200; ++i)
            Turn(bar.get(), 480, 0, -960);
        QVERIFY(bar->PixelsPerSecond() > 0 && bar->UnitTimeLength() > 0);
    }

    void keysMoveTheLine_data() { AddRows(kKeyRows); }

    void keysMoveTheLine()
    {
        const auto &[name, key, modifiers, from_ms, to_ms] = FetchRow(kKeyRows);
        const auto bar = NewBar();
        bar->SetFiles({NewFile(kNoon - 9000, kNoon - 8000), NewFile(kNoon - 500, kNoon), nullptr,
                       NewFile(kNoon, kNoon + 5), NewFile(kNoon + 90, kNoon + 95),
                       NewFile(kNoon + 50, kNoon + 60, 1)}, // a type that is not drawn
                      true);
        bar->SetPosition(kNoon * 1000 + from_ms);
        const QSignalSpy stops(bar.get(), &CBar::SignalStopAtTime);

        Key(bar.get(), key, modifiers);

        QCOMPARE(bar->Position() - kNoon * 1000, to_ms);
        QCOMPARE(stops.size(), from_ms == to_ms ? 0 : 1);
    }

    void aKeyThatIsHeldDownRunsAheadOfTheSlide()
    {
        const auto bar = NewBar(300);
        QSignalSpy steps(bar.get(), &CBar::SignalPositionChanged);
        Key(bar.get(), Qt::Key_PageDown);
        QVERIFY(steps.wait());
        Key(bar.get(), Qt::Key_PageDown);
        QTRY_COMPARE(bar->GetCurrentUTCTime(), kNoon + 20 * kHour);
    }

    void draggingPansAndEscapeTakesItBack()
    {
        const auto bar = NewBar();

        Drag(bar.get(), 300, 240, false);
        QVERIFY(bar->IsPressed() && bar->IsMoving());
        QCOMPARE(bar->GetCurrentUTCTime(), kNoon + kHour);
        bar->SetCurrentDateTime(kNewYear); // ignored meanwhile
        QCOMPARE(bar->GetCurrentUTCTime(), kNoon + kHour);
        Key(bar.get(), Qt::Key_Escape);

        QCOMPARE(bar->GetCurrentUTCTime(), kNoon);
        QVERIFY(!bar->IsPressed() && !bar->IsMoving());
        Drag(bar.get(), 300, 240, false);
        const QSignalSpy stops(bar.get(), &CBar::SignalStopAtTime);
        bar->hide();
        QTRY_VERIFY(!bar->IsPressed());
        bar->show();
        bar->hide();
        QCoreApplication::processEvents();
        QCOMPARE(stops.size(), 1); // where it was let go, once
    }

    void aTipIsTrueAtOddWidthsAndForEndlessFiles()
    {
        const auto bar = NewBar();
        bar->resize(kWidth + 1, 72);
        bar->SetUnitScale(1, 60);
        bar->SetTimeZoneInfor(CTimeZoneParam(TimeZoneParam{0, 0, -90, 0, false}));
        bar->SetFiles({NewFile(kNoon, std::numeric_limits<qint64>::max())}, true);

        bar->ShowTip();

        const QString tip = QToolTip::text();
        QVERIFY2(tip.contains("gate &lt;1&gt;.mp4") && tip.contains("13:30:00 \u202AUTC+1:30")
                     && tip.contains("End: –"),
                 qPrintable(tip));
        Key(bar.get(), Qt::Key_PageUp);
        QVERIFY(!QToolTip::text().contains("gate"));
        QAccessibleInterface *const access = QAccessible::queryAccessibleInterface(bar.get());
        QCOMPARE(access->role(), QAccessible::Slider);
        access->valueInterface()->setCurrentValue(kNoon + 1);
        QVERIFY(access->text(QAccessible::Value).contains("13:30:01"));
    }

    void filesBecomeBarsAsTheTableSays()
    {
        QString looks;
        const auto look = [&](int file_type, int record_type, bool by_type) {
            const auto bar = CBaseFileProgressBar::NewATimeBarParam(
                NewFile(10, 20, record_type, file_type), [](qint64 s) { return s + 100; }, by_type);
            QCOMPARE(bar.GetVal_dtStart() + bar.GetVal_dtEnd(), qint64(230));
            const QColor colour = bar.GetVal_barColor();
            looks += QString(" %1").arg(bar.GetVal_iTimeType())
                     + (colour.isValid() ? colour.name() : "");
        };
        look(4, 7, false);
        for (const int record_type : {0, 1, 2, 13, 22, 500, 501, 7})
            look(0, record_type, true);
        for (const int file_type : {1, 2, 3, 4, 5, 6})
            look(file_type, 22, true);

        QCOMPARE(looks,
                 QString(" 1#2196f3 0#2196f3 1#836abb 2#b25959 13#ff6842 22#666666 500#15b89b"
                         " 501#519f8f -1 13#ff6842 -1 13#ff6842 0#2196f3 13#ff6842 -1"));
    }

    void delegatesComeGoAndTakeTheMouse()
    {
        guard_.AnnounceLogLines(); // of those that throw
        const auto bar = NewBar();
        CAnimationProgressBar other;
        auto keen = std::make_unique<CLayer>();
        std::vector<std::unique_ptr<CLayer>> added;
        const QImage before = bar->grab().toImage();
        CLayer growing([&] { // while it is painted
            added.push_back(std::make_unique<CLayer>([] { throw 5; }));
            bar->AppendDelegate(added.back().get());
        });
        bar->AppendDelegate(keen.get());
        bar->AppendDelegate(&growing);

        Drag(bar.get(), 420, 420);
        QCOMPARE(keen->events_, 1);
        QCOMPARE(bar->GetCurrentUTCTime(), kNoon);
        QCOMPARE(bar->grab().toImage(), before); // no opacity leaks into the ruler
        QCOMPARE(bar->Delegates().size(), 3);

        keen.reset();
        added.clear();
        QCOMPARE(bar->Delegates(), QList<CAbstractDelegate *>{&growing});
        other.InsertDelegate(-5, &growing);
        QVERIFY(bar->Delegates().isEmpty());
        QCOMPARE(growing.AnimationProgressBar(), &other);
        Drag(bar.get(), 360, 360);
        QCOMPARE(bar->GetCurrentUTCTime(), kNoon + kHour);
        QCOMPARE(bar->TimeBarDelegate()->Types(), QList<int>({22, 0, 500, 13}));
        bar->SetTimeBarTypes({1});
        QVERIFY(!bar->TimeBarDelegate()->IsTimeBarVisible(22));
    }

    void aWallClockTimeIsSet()
    {
        const QDateTime twice = Fields(10, 27, 2, 30);
        CAnimationProgressBar bar;
        bar.SetTimeZoneInfor(kBerlin);
        qint64 position_at_signal = -1;
        connect(&bar, &CAnimationProgressBar::SignalStopAtTime, &bar,
                [&] { position_at_signal = bar.Position(); });
        const QSignalSpy stops(&bar, &CAnimationProgressBar::SignalStopAtTime);

        // The zone of the date-time itself is ignored.
        bar.SetCurrentDateTime(QDateTime(twice.date(), twice.time(), Qt::OffsetFromUTC, -7200),
                               false, 0);

        QCOMPARE(bar.GetCurrentUTCTime(), qint64(1729992600)); // the later of the two
        QCOMPARE(bar.GetCurrentDateTime(), twice);
        QCOMPARE(stops.size(), 1);
        QCOMPARE(stops.at(0).at(0).toDateTime(), twice);
        QCOMPARE(position_at_signal, qint64(0)); // emitted before the line moves
    }

    void aTimeThatCannotBeSetChangesNothing()
    {
        guard_.AnnounceLogLines();
        CAnimationProgressBar bar;
        bar.SetPosition(77000);
        const QSignalSpy stops(&bar, &CAnimationProgressBar::SignalStopAtTime);
        const std::optional<qint64> answers[] = {std::numeric_limits<qint64>::max(),
                                                 std::numeric_limits<qint64>::min(), -1,
                                                 std::nullopt};

        bar.SetCurrentDateTime(QDateTime());
        for (const auto &answer : answers) {
            BusinessCommon::CTimeZoneManager::SetService(std::make_unique<CConstantTime>(answer));
            bar.SetCurrentDateTime(Fields(7, 1, 12));
        }

        QCOMPARE(guard_.LogLines().filter("CAnimationProgressBar::SetCurrentDateTime]").size(), 5);
        QCOMPARE(bar.Position(), qint64(77000));
        QVERIFY(stops.isEmpty());
        bar.SetCurrentDateTime(QDateTime({1969, 12, 31}, {23, 59, 59}, Qt::UTC)); // it throws
        BusinessCommon::CTimeZoneManager::SetService(nullptr);
        bar.SetCurrentDateTime(QDateTime({1969, 12, 31}, {23, 59, 59}, Qt::UTC));
        QCOMPARE(bar.GetCurrentUTCTime(), qint64(-1));
    }

    void positionsHaveFixedZones()
    {
        CAnimationProgressBar bar;
        bar.resize(200, 60);
        bar.SetTimeZoneInfor(kBerlin);
        bar.SetCurrentDateTime(Fields(3, 31, 1, 59));
        const double minute_px = bar.PixelsPerSecond() * 60;

        QCOMPARE(bar.TimeTConvertToDateTime(100).offsetFromUtc(), 3600);
        QCOMPARE(bar.TimeTConvertToDateTime(float(100 + 1.5 * minute_px)).offsetFromUtc(), 7200);
        QCOMPARE(bar.TimeTConvertToDateTime(100).toSecsSinceEpoch(), bar.GetCurrentUTCTime());
        QCOMPARE(bar.GetCurrentDateTimeByTimeZone().offsetFromUtc(), -3600); // mirrored
        QCOMPARE(bar.GetCurrentDateTimeByTimeZone().toSecsSinceEpoch(), bar.GetCurrentUTCTime());
    }

    // The year is that of the position on the client's clocks.
    void aDeviceZoneIsShownWhenItsDaylightSavingIsKnown()
    {
        guard_.AnnounceLogLines();
        CBaseFileProgressBar bar;
        QCOMPARE(bar.GetDeviceTimeZoneInfor().GetVal_utc_bias(), 0);
        bar.SetPosition(qint64(1719828000) * 1000);
        const auto zone = [](const BusinessCommon::TimeZoneInfor &infor) {
            return std::make_shared<CTimeZoneInfor>(infor);
        };
        const auto berlin = zone({-60, true, -60});

        bar.SetDeviceTimeZoneInfor(berlin);
        berlin->SetVal_utc_bias(-120);

        QCOMPARE(bar.GetCurrentDateTime(), Fields(7, 1, 12));
        QCOMPARE(bar.GetDeviceTimeZoneInfor().GetVal_utc_bias(), -60);
        bar.SetDeviceTimeZoneInfor(nullptr);
        bar.SetDeviceTimeZoneInfor(zone({-480, true, -17}));
        QCOMPARE(bar.GetCurrentDateTime(), Fields(7, 1, 12));
        QCOMPARE(bar.TimeSpecOffset(), 3600);
        QCOMPARE(bar.GetDeviceTimeZoneInfor().GetVal_utc_bias(), -480);
        bar.SetDeviceTimeZoneInfor(zone({-480, false, -60}));
        QCOMPARE(bar.GetCurrentDateTime(), Fields(7, 1, 18));
        QCOMPARE(bar.ISOTimeToTimeT("2024-07-01T18:00:00+8:00"), bar.GetCurrentUTCTime());
    }

    void aRemoteSiteIsThatOfAKnownWorkstation()
    {
        auto &sites = Nim::Base::CSingleton<ResourceManager::CWorkStationManager>::Instance();
        sites.SetWorkStations({ResourceManager::CWorkStation(7, -5)});
        Vantor::COneDayTimeBox box;
        QVERIFY(box.SetRemoteSite(7) && !box.SetRemoteSite(8));
        QCOMPARE(box.RemoteSiteOffset(), qint64(-18000));
        sites.SetWorkStations({});
    }
};

QTEST_MAIN(TestTimeLine)
#include "tst_timeline.moc"
