// SPDX-License-Identifier: MIT
#include "BusinessCommon/TimeZoneManager.h"

#include "BusinessCommon/IsoTime.h"
#include "BusinessCommon/ZoneYear.h"
#include "Nim/Base/Log.h"
#include "Nim/Base/Replaceable.h"

#include <Nim/Base/TimeUnits.h>

#include <QtCore/QDateTime>
#include <QtCore/QTimeZone>

#include <algorithm>
#include <exception>

template class Nim::Base::CSingleton<BusinessCommon::CTimeZoneManager>;

namespace BusinessCommon {
namespace {

constexpr char kCategory[] = "ClientWarningAndMore";
constexpr char kGetDstDate[] = "BusinessCommon::CTimeZoneManager::GetDstDate";
constexpr int kTmYearBase = 1900;

std::tm ToTm(qint64 seconds)
{
    const QDateTime utc = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
    std::tm result{};
    result.tm_year = utc.date().year() - kTmYearBase;
    result.tm_mon = utc.date().month() - 1;
    result.tm_mday = utc.date().day();
    result.tm_hour = utc.time().hour();
    result.tm_min = utc.time().minute();
    result.tm_sec = utc.time().second();
    result.tm_wday = utc.date().dayOfWeek() % 7; // Sunday is 0 there, 7 here
    result.tm_yday = utc.date().dayOfYear() - 1;
    return result;
}

class CSystemZones : public ITimeZoneService
{
public:
    qint64 ISOTimeToTimeT(const std::string &text) override { return IsoTextToSeconds(text); }

    bool GetDstDate(std::tm &begin, qint64 &begin_s, std::tm &end, qint64 &end_s,
                    int years_since_1900, const std::shared_ptr<CTimeZoneInfor> &infor) override
    {
        if (!infor->GetVal_b_dst())
            return true;                // 0/0
        constexpr int kNoYear = 100000; // beyond all that are known
        const auto found =
            FindZoneYear(infor->Read(), std::min(years_since_1900, kNoYear) + kTmYearBase);
        if (!found) {
            Nim::Base::Log::WriteFramed(
                kGetDstDate, __FILE__, __LINE__, Nim::Base::Log::kWarning, kCategory,
                "No zone of the system has utc_bias %d and daylight_bias %d in that year.",
                infor->GetVal_utc_bias(), infor->GetVal_daylight_bias());
            return false;
        }
        begin_s = found->dst_begin_s;
        end_s = found->dst_end_s;
        begin = ToTm(begin_s);
        end = ToTm(end_s);
        return true;
    }

    void GetClientTimeZoneInfor(std::shared_ptr<CTimeZoneInfor> &infor) override
    {
        const QDateTime now = QDateTime::currentDateTimeUtc();
        const QTimeZone zone = QTimeZone::systemTimeZone();
        constexpr int kMinute_s = Nim::Base::kSecondsPerMinute;
        TimeZoneInfor client;
        if (const auto year = ZoneYearOf(zone, now.date().year())) {
            client = year->infor;
        } else if (zone.isValid()) { // an irregular year: what holds now
            client.utc_bias = -zone.standardTimeOffset(now) / kMinute_s;
            client.daylight_bias = -zone.daylightTimeOffset(now) / kMinute_s;
            client.b_dst = client.daylight_bias != 0;
        } else {
            client.utc_bias = -now.toLocalTime().offsetFromUtc() / kMinute_s;
        }
        *infor = CTimeZoneInfor(client);
    }
};

using Service = std::shared_ptr<ITimeZoneService>;

Nim::Base::CReplaceable<Service()> &CurrentService()
{
    static auto *const service = new Nim::Base::CReplaceable<Service()>(
        [zones = std::make_shared<CSystemZones>()]() -> Service { return zones; });
    return *service;
}

// Runs `ask` with the service of the moment; false when it throws.
template <class Ask> bool AskService(const char *function, Ask &&ask)
{
    const Service service = (*CurrentService().Get())();
    try {
        ask(*service);
        return true;
    } catch (const std::exception &failure) {
        Nim::Base::Log::WriteFramed(function, __FILE__, __LINE__, Nim::Base::Log::kError, kCategory,
                                    "Stopped by an exception: %s", failure.what());
    } catch (...) {
        Nim::Base::Log::WriteFramed(function, __FILE__, __LINE__, Nim::Base::Log::kError, kCategory,
                                    "Stopped by an unknown exception.");
    }
    return false;
}

} // namespace

ITimeZoneService::~ITimeZoneService() = default;

qint64 CTimeZoneManager::ISOTimeToTimeT(const std::string &text)
{
    qint64 seconds = -1;
    AskService("BusinessCommon::CTimeZoneManager::ISOTimeToTimeT",
               [&](ITimeZoneService &service) { seconds = service.ISOTimeToTimeT(text); });
    return seconds;
}

bool CTimeZoneManager::GetDstDate(std::tm &begin, qint64 &begin_s, std::tm &end, qint64 &end_s,
                                  int years_since_1900,
                                  const std::shared_ptr<CTimeZoneInfor> &infor)
{
    const auto clear = [&] {
        begin = end = std::tm{};
        begin_s = end_s = 0;
    };
    clear();
    bool is_known = false;
    if (infor) {
        AskService(kGetDstDate, [&](ITimeZoneService &service) {
            is_known = service.GetDstDate(begin, begin_s, end, end_s, years_since_1900, infor);
        });
    }
    if (!is_known)
        clear();
    return is_known;
}

void CTimeZoneManager::GetClientTimeZoneInfor(std::shared_ptr<CTimeZoneInfor> &infor)
{
    if (!infor)
        infor = std::make_shared<CTimeZoneInfor>();
    AskService("BusinessCommon::CTimeZoneManager::GetClientTimeZoneInfor",
               [&](ITimeZoneService &service) { service.GetClientTimeZoneInfor(infor); });
    if (!infor) // the service's doing
        infor = std::make_shared<CTimeZoneInfor>();
}

void CTimeZoneManager::SetService(std::unique_ptr<ITimeZoneService> service)
{
    if (!service) {
        CurrentService().Set(nullptr);
        return;
    }
    CurrentService().Set([shared = Service(std::move(service))] { return shared; });
}

} // namespace BusinessCommon
