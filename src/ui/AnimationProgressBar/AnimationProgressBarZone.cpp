// SPDX-License-Identifier: MIT
#include "common/LogMacro.h"
#include "common/ZoneTime.h"
#include "ui/AnimationProgressBar/AnimationProgressBar.h"
#include "ui/AnimationProgressBar/AnimationProgressBar_p.h"

#include <BusinessCommon/IsoTime.h>
#include <BusinessCommon/TimeZoneManager.h>
#include <Nim/Base/TimeUnits.h>

#include <limits>

namespace Vantor {
namespace {

using Nim::Base::kMillisecondsPerSecond;
using Nim::Base::kSecondsPerMinute;

constexpr qint64 kUnreadable = -1; // of the service; also the second before 1970

// Leaves room for any bias.
bool IsPosition(qint64 seconds)
{
    constexpr qint64 kMost = std::numeric_limits<qint64>::max() / kMillisecondsPerSecond / 2;
    return -kMost <= seconds && seconds <= kMost;
}

} // namespace

void CAnimationProgressBar::SetTimeZoneInfor(const CTimeZoneParam &zone)
{
    d_ptr_->zone_ = zone; // shares its structure
    RecalculateDSTSeconds();
    RecalculateTimeSpecOffset();
    update();
    RefreshTexts();
}

int CAnimationProgressBar::TimeSpecOffset() const
{
    return d_ptr_->time_spec_offset_s_;
}

// Hosts set the bounds of daylight saving with the zone; nothing is computed here.
void CAnimationProgressBar::RecalculateDSTSeconds() {}

void CAnimationProgressBar::RecalculateTimeSpecOffset()
{
    constexpr qint64 kMost = std::numeric_limits<int>::max();
    const qint64 offset_s = -qint64(d_ptr_->zone_.Read().utc_bias) * kSecondsPerMinute;
    d_ptr_->time_spec_offset_s_ = static_cast<int>(qBound(-kMost, offset_s, kMost));
}

bool CAnimationProgressBar::IsWithinDST(unsigned int seconds) const
{
    return IsInDstPeriod(d_ptr_->zone_.Read(), seconds);
}

QDateTime CAnimationProgressBar::GetCurrentDateTime() const
{
    return WallClockOf(d_ptr_->zone_.Read(), GetCurrentUTCTime());
}

QDateTime CAnimationProgressBar::GetCurrentDateTimeByTimeZone()
{
    return DateTimeByBias(d_ptr_->zone_.Read(), GetCurrentUTCTime());
}

QDateTime CAnimationProgressBar::TimeTConvertToDateTime(float x)
{
    return DateTimeInZone(d_ptr_->zone_.Read(), UTCSecondsAtXPos(double(x)));
}

void CAnimationProgressBar::SetCurrentDateTime(const QDateTime &date_time, bool animate,
                                               int duration_ms, AnimationType type)
{
    static constexpr char kFunction[] = "Vantor::CAnimationProgressBar::SetCurrentDateTime";
    if (IsPressed() || IsMoving())
        return;
    const TimeZoneParam zone =
        d_ptr_->zone_.Read(); // a copy: the service or a slot may set another
    const std::string text = IsoTextOfWallClock(zone, date_time);
    if (text.empty()) {
        VANTOR_LOG(kFunction, 4, VANTOR_LOG_WARNING, "The date-time has no date.");
        return;
    }
    const QPointer<CAnimationProgressBar> self(this);
    const qint64 standard_s =
        Nim::Base::CSingleton<BusinessCommon::CTimeZoneManager>::Instance().ISOTimeToTimeT(text);
    if (!self)
        return;
    if (standard_s == kUnreadable && BusinessCommon::IsoTextToSeconds(text) != kUnreadable) {
        VANTOR_LOG(kFunction, 4, VANTOR_LOG_WARNING, "The time-zone service cannot read %s.",
                   text.c_str());
        return;
    }
    if (!IsPosition(standard_s)) {
        VANTOR_LOG(kFunction, 4, VANTOR_LOG_WARNING, "%s is beyond all positions.", text.c_str());
        return;
    }
    const qint64 wall_clock_s = standard_s - zone.utc_bias * kSecondsPerMinute;
    const qint64 position_s = CorrectForDst(zone, standard_s);
    Q_EMIT SignalStopAtTime(QDateTime::fromSecsSinceEpoch(wall_clock_s, Qt::UTC));
    if (self)
        MoveTo(position_s * kMillisecondsPerSecond, animate, duration_ms, type);
}

} // namespace Vantor
