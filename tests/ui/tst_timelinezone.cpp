// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"

#include <BusinessCommon/TimeZoneManager.h>
#include <ResourceManager/WorkStationManager.h>
#include <Vantor/CAnimationProgressBar>
#include <Vantor/CBaseFileProgressBar>
#include <Vantor/COneDayTimeBox>
#include <Vantor/CTimeZoneParam>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <limits>
#include <type_traits>

namespace {

using BusinessCommon::CTimeZoneInfor;
using Vantor::CAnimationProgressBar;
using Vantor::CBaseFileProgressBar;
using Vantor::CTimeZoneParam;

template <class Expected, class Actual> constexpr bool IsSame(Actual)
{
    return std::is_same<Expected, Actual>::value;
}

// Names are interface, see tst_names.
using Bar = CAnimationProgressBar;
static_assert(IsSame<void (Bar::*)(const CTimeZoneParam &)>(&Bar::SetTimeZoneInfor));
static_assert(IsSame<qint64 (Bar::*)() const>(&Bar::GetCurrentUTCTime));
static_assert(IsSame<QDateTime (Bar::*)() const>(&Bar::GetCurrentDateTime));
static_assert(IsSame<QDateTime (Bar::*)()>(&Bar::GetCurrentDateTimeByTimeZone));
static_assert(IsSame<QDateTime (Bar::*)(float)>(&Bar::TimeTConvertToDateTime));
static_assert(IsSame<void (Bar::*)(const QDateTime &, bool, int, Bar::AnimationType)>(
    &Bar::SetCurrentDateTime));
using FileBar = CBaseFileProgressBar;
static_assert(IsSame<void (FileBar::*)(const std::shared_ptr<CTimeZoneInfor> &)>(
    &FileBar::SetDeviceTimeZoneInfor));
static_assert(IsSame<const CTimeZoneInfor &(FileBar::*)() const>(&FileBar::GetDeviceTimeZoneInfor));
static_assert(IsSame<qint64 (FileBar::*)(std::string)>(&FileBar::ISOTimeToTimeT));

CTimeZoneParam Berlin()
{
    return CTimeZoneParam(Vantor::TimeZoneParam{1711846800, 1729990800, -60, -60, true}); // 2024
}

QDateTime Fields(int month, int day, int hour, int minute = 0)
{
    return QDateTime({2024, month, day}, {hour, minute}, Qt::UTC);
}

// Answers every text with the same seconds, or is not asked at all.
class CConstantTime : public BusinessCommon::ITimeZoneService
{
public:
    explicit CConstantTime(qint64 seconds) : seconds_(seconds) {}

    qint64 ISOTimeToTimeT(const std::string & /*text*/) override { return seconds_; }
    bool GetDstDate(std::tm & /*begin*/, qint64 & /*begin_s*/, std::tm & /*end*/,
                    qint64 & /*end_s*/, int /*year*/,
                    const std::shared_ptr<CTimeZoneInfor> & /*infor*/) override
    {
        return false;
    }
    void GetClientTimeZoneInfor(std::shared_ptr<CTimeZoneInfor> & /*infor*/) override {}

private:
    qint64 seconds_;
};

} // namespace

class TestTimeLineZone : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard_.Begin(); }

    void cleanup()
    {
        BusinessCommon::CTimeZoneManager::SetService(nullptr);
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void aFreshBarShowsTheEpochInItsZone()
    {
        CAnimationProgressBar bar;
        QCOMPARE(bar.GetCurrentDateTime(), QDateTime({1970, 1, 1}, {0, 0}, Qt::UTC));
        QCOMPARE(bar.GetCurrentDateTimeByTimeZone().offsetFromUtc(), 0);
        CTimeZoneParam west;
        west.SetVal_utc_bias(300);

        bar.SetTimeZoneInfor(west);

        QCOMPARE(bar.GetCurrentDateTime(), QDateTime({1969, 12, 31}, {19, 0}, Qt::UTC));
        QCOMPARE(bar.TimeSpecOffset(), -18000);
    }

    void aZoneIsSharedButItsOffsetTakenWhenSet()
    {
        CAnimationProgressBar bar;
        CTimeZoneParam zone;
        bar.SetTimeZoneInfor(zone);

        zone.SetVal_utc_bias(-60);

        QCOMPARE(bar.GetCurrentDateTime().time(), QTime(1, 0));
        QCOMPARE(bar.TimeSpecOffset(), 0);
        bar.SetTimeZoneInfor(zone);
        QCOMPARE(bar.TimeSpecOffset(), 3600);
    }

    void aWallClockTimeIsSet_data()
    {
        QTest::addColumn<QDateTime>("wall_clock");
        QTest::addColumn<qint64>("seconds");
        QTest::addColumn<QDateTime>("stop"); // at standard time
        QTest::addColumn<QDateTime>("shown");
        const auto row = [](const char *name, const QDateTime &wall_clock, qint64 seconds,
                            const QDateTime &shown) {
            QTest::newRow(name) << wall_clock << seconds << wall_clock << shown;
        };
        row("winter", Fields(1, 2, 12), 1704193200, Fields(1, 2, 12));
        row("summer", Fields(7, 1, 12), 1719828000, Fields(7, 1, 12));
        row("left out in spring, its first second", Fields(3, 31, 2), 1711846800, Fields(3, 31, 3));
        row("left out in spring, later", Fields(3, 31, 2, 30), 1711845000, Fields(3, 31, 1, 30));
        row("twice in autumn, its first second", Fields(10, 27, 2), 1729987200, Fields(10, 27, 2));
        row("twice in autumn, later", Fields(10, 27, 2, 30), 1729992600, Fields(10, 27, 2, 30));
        QTest::newRow("another zone of the date-time itself does not count")
            << QDateTime({2024, 7, 1}, {12, 0}, Qt::OffsetFromUTC, -7200) << qint64(1719828000)
            << Fields(7, 1, 12) << Fields(7, 1, 12);
    }

    void aWallClockTimeIsSet()
    {
        QFETCH(QDateTime, wall_clock);
        QFETCH(qint64, seconds);
        QFETCH(QDateTime, stop);
        QFETCH(QDateTime, shown);
        CAnimationProgressBar bar;
        bar.SetTimeZoneInfor(Berlin());
        qint64 position_at_signal = -1;
        connect(&bar, &CAnimationProgressBar::SignalStopAtTime, &bar,
                [&] { position_at_signal = bar.Position(); });
        const QSignalSpy stops(&bar, &CAnimationProgressBar::SignalStopAtTime);

        bar.SetCurrentDateTime(wall_clock, false, 0, CAnimationProgressBar::LinearAnimation);

        QCOMPARE(bar.GetCurrentUTCTime(), seconds);
        QCOMPARE(bar.GetCurrentDateTime(), shown);
        QCOMPARE(stops.size(), 1);
        QCOMPARE(stops.at(0).at(0).toDateTime(), stop);
        QCOMPARE(stops.at(0).at(0).toDateTime().timeSpec(), Qt::UTC);
        QCOMPARE(position_at_signal, qint64(0)); // told before it moves
    }

    void whatCannotBeSetChangesNothing()
    {
        guard_.AnnounceLogLines();
        CAnimationProgressBar bar;
        const QSignalSpy stops(&bar, &CAnimationProgressBar::SignalStopAtTime);

        bar.SetCurrentDateTime(QDateTime());
        for (const qint64 seconds :
             {std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::min()}) {
            BusinessCommon::CTimeZoneManager::SetService(std::make_unique<CConstantTime>(seconds));
            bar.SetCurrentDateTime(Fields(7, 1, 12));
        }

        QCOMPARE(guard_.LogLines().size(), 3);
        QVERIFY(guard_.LogLines().constFirst().startsWith(
            "4 ClientWarningAndMore [Vantor::CAnimationProgressBar::SetCurrentDateTime]"));
        QCOMPARE(bar.Position(), qint64(0));
        QVERIFY(stops.isEmpty());
    }

    void aHeldBarIsLeftAlone()
    {
        CAnimationProgressBar bar;
        const QSignalSpy stops(&bar, &CAnimationProgressBar::SignalStopAtTime);

        bar.SetPressed(true);
        bar.SetCurrentDateTime(Fields(7, 1, 12));
        bar.SetPressed(false);
        bar.StartMovingX();
        bar.SetCurrentDateTime(Fields(7, 1, 12));

        QCOMPARE(bar.Position(), qint64(0));
        QVERIFY(stops.isEmpty());
        bar.StopMovingX();
        bar.SetCurrentDateTime(Fields(7, 1, 12));
        QCOMPARE(bar.GetCurrentDateTime(), Fields(7, 1, 12));
    }

    void aSlotMaySetAnotherTimeOrDeleteTheBar()
    {
        auto bar = std::make_unique<CAnimationProgressBar>();
        int calls = 0;
        connect(bar.get(), &CAnimationProgressBar::SignalStopAtTime, this, [&] {
            if (++calls == 1) {
                bar->SetTimeZoneInfor(Berlin());
                bar->SetCurrentDateTime(Fields(1, 2, 12));
            } else if (calls == 3) {
                bar.reset();
            }
        });

        bar->SetCurrentDateTime(Fields(7, 1, 12));
        QCOMPARE(bar->GetCurrentUTCTime(), Fields(7, 1, 12).toSecsSinceEpoch()); // as in UTC
        bar->SetCurrentDateTime(Fields(7, 1, 12));

        QCOMPARE(calls, 3);
        QVERIFY(!bar);
    }

    void positionsHaveFixedZones()
    {
        CAnimationProgressBar bar;
        bar.resize(200, 60);
        bar.SetTimeZoneInfor(Berlin());
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
        const auto berlin =
            std::make_shared<CTimeZoneInfor>(BusinessCommon::TimeZoneInfor{-60, true, -60});

        bar.SetDeviceTimeZoneInfor(berlin);
        berlin->SetVal_utc_bias(-120);

        QCOMPARE(bar.GetCurrentDateTime(), Fields(7, 1, 12));
        QCOMPARE(bar.GetDeviceTimeZoneInfor().GetVal_utc_bias(), -60);
        bar.SetDeviceTimeZoneInfor(nullptr);
        bar.SetDeviceTimeZoneInfor(
            std::make_shared<CTimeZoneInfor>(BusinessCommon::TimeZoneInfor{-480, true, -17}));
        QCOMPARE(bar.GetCurrentDateTime(), Fields(7, 1, 12));
        QCOMPARE(bar.TimeSpecOffset(), 3600);
        QCOMPARE(bar.GetDeviceTimeZoneInfor().GetVal_utc_bias(), -480);
        bar.SetDeviceTimeZoneInfor(
            std::make_shared<CTimeZoneInfor>(BusinessCommon::TimeZoneInfor{-480, false, -60}));
        QCOMPARE(bar.GetCurrentDateTime(), Fields(7, 1, 18));
        QCOMPARE(bar.ISOTimeToTimeT("2024-07-01T18:00:00+8:00"), bar.GetCurrentUTCTime());
    }

    void aRemoteSiteIsThatOfAKnownWorkstation()
    {
        auto &workstations =
            Nim::Base::CSingleton<ResourceManager::CWorkStationManager>::Instance();
        workstations.SetWorkStations({ResourceManager::CWorkStation(7, -5)});
        Vantor::COneDayTimeBox box;
        QCOMPARE(box.RemoteSiteOffset(), qint64(0));

        QVERIFY(box.SetRemoteSite(7));
        QVERIFY(!box.SetRemoteSite(8));

        QCOMPARE(box.RemoteSiteOffset(), qint64(-18000));
        workstations.SetWorkStations({});
    }

private:
    CTestGuard guard_;
};

QTEST_MAIN(TestTimeLineZone)
#include "tst_timelinezone.moc"
