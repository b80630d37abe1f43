// SPDX-License-Identifier: MIT
#include "ui/AnimationProgressBar/LineMotion.h"

#include "ui/AnimationProgressBar/Ruler.h"
#include "ui/AnimationProgressBar/TimeLineMeasures.h"

#include <Nim/Base/TimeUnits.h>

#include <cmath>

namespace Vantor {
namespace {

using Nim::Base::kMillisecondsPerSecond;

constexpr double kMostPixelsPerSecond = 10.0;
constexpr double kLeastPixelsPerSecond = 1.0 / 2629746; // a pixel a month

} // namespace

double LineView::MillisecondsAt(double from_centre_px) const
{
    return double(position_ms) + from_centre_px / PixelsPerSecond() * kMillisecondsPerSecond;
}

qint64 LineSlide::PositionAt(double share) const
{
    if (share >= 1.0)
        return to_ms;
    const double way = double(to_ms) - double(from_ms);
    return qint64(std::llround(double(from_ms) + way * share));
}

LineView LineZoom::ViewAt(double share) const
{
    // Equal steps of the ratio look even; the last one ends exactly.
    const double scale = share >= 1.0 ? to : from * std::pow(to / from, share);
    LineView view;
    view.time_length_s = double(ChooseRulerStep(scale, kLeastLabelPx).major_s);
    view.scale_length_px = view.time_length_s * scale;
    view.position_ms =
        HeldToCalendar(anchor_ms - anchor_px / view.PixelsPerSecond() * kMillisecondsPerSecond);
    return view;
}

double LineMotion::ShareAt(qint64 elapsed_ms) const
{
    if (elapsed_ms >= duration_ms)
        return 1.0;
    return QEasingCurve(easing).valueForProgress(double(elapsed_ms) / duration_ms);
}

double HeldScale(double pixels_per_second)
{
    return std::clamp(pixels_per_second, kLeastPixelsPerSecond, kMostPixelsPerSecond);
}

} // namespace Vantor
