// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>
#include <BusinessCommon/TimeZoneInfor.h>
#include <Nim/Base/Singleton.h>

#include <QtCore/QtGlobal>

#include <ctime>
#include <memory>
#include <string>

namespace BusinessCommon {

class CTimeZoneManager;

} // namespace BusinessCommon

extern template class VANTOR_BASE_EXPORT Nim::Base::CSingleton<BusinessCommon::CTimeZoneManager>;

namespace BusinessCommon {

/// \brief The operations behind CTimeZoneManager, described there. Called on any thread; an
/// exception counts as failure.
class VANTOR_BASE_EXPORT ITimeZoneService
{
public:
    virtual ~ITimeZoneService();

    /// \return seconds since 1970 UTC, or -1 for a text that cannot be read.
    virtual qint64 ISOTimeToTimeT(const std::string &text) = 0;
    /// \param infor never null.
    virtual bool GetDstDate(std::tm &begin, qint64 &begin_s, std::tm &end, qint64 &end_s,
                            int years_since_1900, const std::shared_ptr<CTimeZoneInfor> &infor) = 0;
    /// \param infor never null; to be filled.
    virtual void GetClientTimeZoneInfor(std::shared_ptr<CTimeZoneInfor> &infor) = 0;
};

/// \brief Zones of devices and of the client, reached through
/// Nim::Base::CSingleton<CTimeZoneManager>::Instance(). Any thread.
class VANTOR_BASE_EXPORT CTimeZoneManager : public Nim::Base::CSingleton<CTimeZoneManager>
{
    friend class Nim::Base::CSingleton<CTimeZoneManager>;
    CTimeZoneManager() = default;

public:
    /// \brief Seconds since 1970 UTC of an ISO 8601 text with an offset, which may lack leading
    /// zeros ("2024-05-01T18:00:00+8:00"); by default as IsoTextToSeconds() reads it.
    /// \return -1 when the text cannot be read.
    static qint64 ISOTimeToTimeT(const std::string &text);

    /// \brief The start and the end of daylight saving in a year, in UTC.
    ///
    /// By default, a zone without daylight saving gives true and 0/0, and one with it what
    /// FindZoneYear() finds: never true and 0/0, but false and a log line of level 4.
    /// \return false, with the results all 0, when \a infor is null or no period is known.
    static bool GetDstDate(std::tm &begin, qint64 &begin_s, std::tm &end, qint64 &end_s,
                           int years_since_1900, const std::shared_ptr<CTimeZoneInfor> &infor);

    /// \brief Fill \a infor, made when null, with the client's zone in the present year.
    static void GetClientTimeZoneInfor(std::shared_ptr<CTimeZoneInfor> &infor);

    /// \brief Let \a service answer from now on; null restores the default, which reads the
    /// system's zone database. A call that is under way ends in the service it began with.
    static void SetService(std::unique_ptr<ITimeZoneService> service);
};

} // namespace BusinessCommon
