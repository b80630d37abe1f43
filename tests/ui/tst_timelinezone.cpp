// SPDX-License-Identifier: MIT
#include "support/Test.h"

#include <BusinessCommon/TimeZoneManager.h>
#include <ResourceManager/WorkStationManager.h>
#include <Vantor/CAnimationProgressBar>
#include <Vantor/CBaseFileProgressBar>
#include <Vantor/COneDayTimeBox>
#include <Vantor/CTimeZoneParam>

namespace {

using BusinessCommon::CTimeZoneInfor;
using Vantor::CAnimationProgressBar;
using Vantor::CBaseFileProgressBar;
using Vantor::CTimeZoneParam;

CTimeZoneParam Berlin()
{
    return CTimeZoneParam(Vantor::TimeZoneParam{1711846800, 1729990800, -60, -60, true}); // 2024
}

QDateTime Fields(int month, int day, int hour, int minute = 0)
{
    return QDateTime({2024, month, day}, {hour, minute}, Qt::UTC);
}

// Answers every text alike, or throws.
class CConstantTime : public BusinessCommon::ITimeZoneService
{
public:
    explicit CConstantTime(std::optional<qint64> seconds) : seconds_(seconds) {}

    qint64 ISOTimeToTimeT(const std::string & /*text*/) override
    {
        return seconds_ ? *seconds_ : throw std::runtime_error("no zones");
    }
    bool GetDstDate(std::tm & /*begin*/, qint64 & /*begin_s*/, std::tm & /*end*/,
                    qint64 & /*end_s*/, int /*year*/,
                    const std::shared_ptr<CTimeZoneInfor> & /*infor*/) override
    {
        return false;
    }
    void GetClientTimeZoneInfor(std::shared_ptr<CTimeZoneInfor> & /*infor*/) override {}

private:
    std::optional<qint64> seconds_;
};

} // namespace

class TestTimeLineZone : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void aWallClockTimeIsSet()
    {
        const QDateTime twice = Fields(10, 27, 2, 30);
        CAnimationProgressBar bar;
        bar.SetTimeZoneInfor(Berlin());
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
        auto &sites = Nim::Base::CSingleton<ResourceManager::CWorkStationManager>::Instance();
        sites.SetWorkStations({ResourceManager::CWorkStation(7, -5)});
        Vantor::COneDayTimeBox box;
        QVERIFY(box.SetRemoteSite(7) && !box.SetRemoteSite(8));
        QCOMPARE(box.RemoteSiteOffset(), qint64(-18000));
        sites.SetWorkStations({});
    }

protected:
    void TearDown() override { BusinessCommon::CTimeZoneManager::SetService(nullptr); }
};

QTEST_MAIN(TestTimeLineZone)
#include "tst_timelinezone.moc"
