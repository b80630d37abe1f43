// SPDX-License-Identifier: MIT
#include "export/TimeLeft.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <cmath>

namespace Client {
namespace {

constexpr qint64 kShortestNote_ms = 50; // a shorter time says little about the speed
constexpr qint64 kFirstEstimate_ms = 1000;
constexpr double kMemory_ms = 3000; // a change of speed shows after about as long
constexpr double kMostSeconds = 1e6;
constexpr int kFewSeconds = 5;
constexpr int kStep_s = 5; // seconds that count down one by one would feign precision

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TimeLeft)
};

} // namespace

void CTimeLeft::Note(qint64 elapsed_ms, double share)
{
    const qint64 step_ms = elapsed_ms - noted_ms_;
    if (step_ms < kShortestNote_ms)
        return;
    const double speed = (share - noted_share_) / static_cast<double>(step_ms);
    const double weight =
        noted_ms_ == 0 ? 1 : 1 - std::exp(-static_cast<double>(step_ms) / kMemory_ms);
    speed_ += weight * (speed - speed_);
    noted_ms_ = elapsed_ms;
    noted_share_ = share;
}

int CTimeLeft::Seconds() const
{
    if (noted_ms_ < kFirstEstimate_ms || speed_ <= 0)
        return -1;
    return static_cast<int>(std::min((1 - noted_share_) / speed_ / 1000, kMostSeconds));
}

QString TimeLeftText(int seconds)
{
    if (seconds < 0)
        return {};
    if (seconds < kFewSeconds)
        return Texts::tr("a few seconds left");
    const int rounded = (seconds + kStep_s - 1) / kStep_s * kStep_s;
    if (rounded < 60)
        return Texts::tr("about %Ln second(s) left", nullptr, rounded);
    return Texts::tr("about %Ln minute(s) left", nullptr, (seconds + 30) / 60);
}

} // namespace Client
