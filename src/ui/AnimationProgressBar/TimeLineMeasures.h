// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

#include <algorithm>

// The measures of a time line, for the line itself, for the bars on it and for its tips.

namespace Vantor {

// From the top: the ruler with a faint picture of the bars, the bars, the label with the time.
constexpr int kUpperBandPx = 22;
constexpr int kLowerBandPx = 20;
constexpr double kSimpleShare = 0.25; // of the height, for the bars of a line without labels
constexpr int kLabelTopPx = kUpperBandPx + kLowerBandPx + 4;
constexpr int kTipTopPx = kUpperBandPx + 2; // on the first row of bars
constexpr double kLeastLabelPx = 90.0;      // from label to label of the ruler

// With two rows of bars both are thinner.
constexpr int kSyncRowPx = 9;
constexpr int kSyncTopPx = kUpperBandPx + kSyncRowPx + 2;

// No widget is wider.
constexpr double kFarPx = 1 << 24;

// Sliding, panning and zooming stay within the years 1 to 9999.
constexpr qint64 kFirstMs = -62135596800000;
constexpr qint64 kLastMs = 253402300799999;

inline qint64 HeldToCalendar(double position_ms)
{
    return qint64(std::clamp(position_ms, double(kFirstMs), double(kLastMs)));
}

} // namespace Vantor
