// SPDX-License-Identifier: MIT
#include "support/Test.h"

#include <BusinessCommon/IsoTime.h>
#include <BusinessCommon/TimeZoneManager.h>

namespace {

using namespace BusinessCommon;

template <class Manager> Manager &The()
{
    return Nim::Base::CSingleton<Manager>::Instance();
}

struct DstDate
{
    std::tm begin{};
    qint64 begin_s = 7;
    std::tm end{};
    qint64 end_s = 7;
    bool is_known = false;
};

DstDate Ask(int year, const std::shared_ptr<CTimeZoneInfor> &infor)
{
    DstDate date;
    date.is_known = The<CTimeZoneManager>().GetDstDate(date.begin, date.begin_s, date.end,
                                                       date.end_s, year - 1900, infor);
    return date;
}

std::shared_ptr<CTimeZoneInfor> Infor(int utc_bias, bool has_dst, int daylight_bias)
{
    return std::make_shared<CTimeZoneInfor>(
        BusinessCommon::TimeZoneInfor{utc_bias, has_dst, daylight_bias});
}

bool IsClientDst(qint64 seconds)
{
    const std::time_t time = seconds;
    std::tm local{};
    return localtime_r(&time, &local)->tm_isdst > 0;
}

class CHostZones : public BusinessCommon::ITimeZoneService
{
public:
    explicit CHostZones(bool is_broken) : is_broken_(is_broken) {}

    qint64 ISOTimeToTimeT(const std::string &text) override
    {
        return is_broken_ ? throw std::runtime_error("no zones") : qint64(text.size());
    }
    bool GetDstDate(std::tm & /*begin*/, qint64 &begin_s, std::tm & /*end*/, qint64 &end_s,
                    int years_since_1900, const std::shared_ptr<CTimeZoneInfor> &infor) override
    {
        begin_s = years_since_1900;
        end_s = infor->GetVal_utc_bias();
        return is_broken_ ? throw std::runtime_error("no zones") : true;
    }
    void GetClientTimeZoneInfor(std::shared_ptr<CTimeZoneInfor> &infor) override
    {
        infor = is_broken_ ? nullptr : Infor(-345, false, 0);
    }

private:
    bool is_broken_;
};

// utc_bias, daylight_bias, year, begin, end
const Rows<int, int, int, qint64, qint64> kDstRows = {
    {"Berlin", -60, -60, 2024, 1711846800, 1729990800},
    {"New York", 300, -60, 2024, 1710054000, 1730613600},
    {"Sydney wraps", -600, -60, 2024, 1728144000, 1712419200},
    {"Lord Howe, half an hour", -630, -30, 2024, 1728142200, 1712415600},
    {"the rule of most, not Cairo's", -120, -60, 2024, 1711846800, 1729990800},
    {"far away", -60, -60, 2100, 4109878800, 4128627600},
};

constexpr qint64 kTen = 1714557600;

// text, seconds
const Rows<QByteArray, qint64> kTextRows = {
    {"east", "2024-05-01T18:00:00+8:00", kTen},
    {"the minus of an offset without hours", "2024-05-01T09:30:00-0:30", kTen},
    {"an offset before Z is not read", "2024-05-01T10:00:00-5:00Z", kTen},
    {"a fraction hides the offset", "2024-05-01T10:00:00.5+8:00", kTen},
    {"blanks before numbers", " 2024- 05-\t01T10:00:00", kTen},
    {"a sign before the year", "+2024-05-01T10:00:00", kTen},
    {"a year alone: month 0, day 0", "2024", 1701302400}, // 2023-11-30
    {"an offset alone is the year", "+8:00", -61917523200},
    {"ends at NUL", QByteArray("2024-05-01T10:00:00\0+8:00", 25), kTen},
    {"the last second that 32 bits hold", "2106-02-07T06:28:15Z", 4294967295},
    {"nine digits", "-999999999-01-01T00:00:00Z", -31557014135596800},
    {"ten digits", "2024-05-01T10:00:0000000000Z", -1},
    {"a sign and no number", "-", -1},
    {"empty", "", -1},
};

} // namespace

class TestTimeZone : public CGuardedTest
{
    Q_OBJECT

    void TearDown() override { CTimeZoneManager::SetService(nullptr); }

private Q_SLOTS:
    void isoTextIsReadAsFarAsItFits_data() { AddRows(kTextRows); }

    void isoTextIsReadAsFarAsItFits()
    {
        const auto &[name, text, seconds] = FetchRow(kTextRows);
        QCOMPARE(The<CTimeZoneManager>().ISOTimeToTimeT(text.toStdString()), seconds);
    }

    void dstDatesComeFromTheSystemsZones_data() { AddRows(kDstRows); }

    void dstDatesComeFromTheSystemsZones()
    {
        const auto &[name, utc_bias, daylight_bias, year, begin, end] = FetchRow(kDstRows);

        const DstDate date = Ask(year, Infor(utc_bias, true, daylight_bias));

        QVERIFY(date.is_known);
        QCOMPARE(date.begin_s, begin);
        QCOMPARE(date.end_s, end);
        std::tm copy = date.begin;
        QCOMPARE(qint64(timegm(&copy)), begin); // which fills in the days
        QCOMPARE(date.begin.tm_wday, copy.tm_wday);
        QCOMPARE(date.begin.tm_yday, copy.tm_yday);
        copy = date.end;
        QCOMPARE(qint64(timegm(&copy)), end);
    }

    void noDaylightSavingIsKnownAndUnknownIsNot()
    {
        guard_.AnnounceLogLines();

        QVERIFY(Ask(2024, Infor(-480, false, 0)).is_known);
        for (const DstDate &unknown :
             {Ask(2024, Infor(-480, true, -17)), Ask(2024, nullptr),
              Ask(std::numeric_limits<int>::max(), Infor(-60, true, -60))}) {
            QVERIFY(!unknown.is_known);
            QCOMPARE(unknown.begin_s + unknown.end_s, qint64(0));
        }
        QCOMPARE(guard_.LogLines().filter("No zone of the system").size(), 2);
    }

    // Runs once more in Beirut, whose rule is not that of most, see CMakeLists.txt.
    void theClientsOwnZoneComesFirst()
    {
        std::shared_ptr<CTimeZoneInfor> client;
        The<CTimeZoneManager>().GetClientTimeZoneInfor(client);
        const int year = QDate::currentDate().year();

        const DstDate date = Ask(year, client);

        QVERIFY(date.is_known);
        const bool has_dst = client->GetVal_b_dst();
        QCOMPARE(has_dst, qEnvironmentVariableIsSet("EXPECTED_DST"));
        QCOMPARE(client->GetVal_utc_bias(), has_dst ? -120 : 0);
        QCOMPARE(IsClientDst(date.begin_s), has_dst);
        QVERIFY(!IsClientDst(date.begin_s - 1));
        QCOMPARE(IsClientDst(date.end_s - 1), has_dst);
        QVERIFY(!IsClientDst(date.end_s));
    }

    void aHostsServiceAnswersAndItsFaultsStayInside()
    {
        CTimeZoneManager::SetService(std::make_unique<CHostZones>(false));

        QCOMPARE(The<CTimeZoneManager>().ISOTimeToTimeT("four"), qint64(4));
        const DstDate date = Ask(2024, Infor(-60, true, 0));
        QVERIFY(date.is_known);
        QCOMPARE(date.begin_s, qint64(124));
        QCOMPARE(date.end_s, qint64(-60));
        std::shared_ptr<CTimeZoneInfor> client;
        The<CTimeZoneManager>().GetClientTimeZoneInfor(client);
        QCOMPARE(client->GetVal_utc_bias(), -345);

        guard_.AnnounceLogLines();
        CTimeZoneManager::SetService(std::make_unique<CHostZones>(true));

        QCOMPARE(The<CTimeZoneManager>().ISOTimeToTimeT("four"), qint64(-1));
        QVERIFY(!Ask(2024, Infor(-60, true, 0)).is_known);
        QCOMPARE(Ask(2024, Infor(-60, true, 0)).begin_s, qint64(0));
        The<CTimeZoneManager>().GetClientTimeZoneInfor(client);
        QVERIFY(client);
        QCOMPARE(guard_.LogLines().filter("no zones").size(), 3);
    }
};

QTEST_GUILESS_MAIN(TestTimeZone)
#include "tst_timezone.moc"
