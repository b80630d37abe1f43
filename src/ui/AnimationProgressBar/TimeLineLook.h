// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

#include <algorithm>

namespace Vantor {

// The upper band carries the ruler, the lower one the bars (CTimeBarDelegate); below stands the
// label with the time.
constexpr int kUpperBandPx = 22;
constexpr int kLowerBandPx = 20;
constexpr int kLabelTopPx = kUpperBandPx + kLowerBandPx + 4;
constexpr int kTipTopPx = kUpperBandPx + 2; // on the first row of bars
constexpr double kLeastLabelPx = 90.0;      // from label to label of the ruler

// What sliding, panning and zooming reach: the years 1 to 9999.
constexpr qint64 kFirstMs = -62135596800000;
constexpr qint64 kLastMs = 253402300799999;

inline qint64 HeldToCalendar(double position_ms)
{
    return qint64(std::clamp(position_ms, double(kFirstMs), double(kLastMs)));
}

} // namespace Vantor
