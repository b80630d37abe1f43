// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/CheckedMath.h>

#include <QtCore/QtGlobal>

namespace Vantor {

/// What of the time line is on view, in the coordinates of the bar.
struct TimeBarView
{
    qint64 position_s = 0;        ///< The time at the centre.
    double pixels_per_second = 1; ///< More than 0.
    double centre_x = 0;
    int width_px = 0;

    /// \brief Where \a seconds lie. Never decreases from one second to the next.
    [[nodiscard]] double XOf(qint64 seconds) const
    {
        qint64 difference = 0;
        // Only times beyond 146 billion years apart leave 64 bits.
        const double seconds_between = Nim::Base::Subtract(seconds, position_s, difference)
                                           ? double(difference)
                                           : double(seconds) - double(position_s);
        return seconds_between * pixels_per_second + centre_x;
    }
    [[nodiscard]] bool IsVisible(double x1, double x2) const { return x2 >= 0 && x1 <= width_px; }
    [[nodiscard]] static double WidthOf(double x1, double x2)
    {
        return x2 - x1 > 1.0 ? x2 - x1 : 1.0;
    }
};

/// \brief A stretch of a row: QRectF in one dimension, with its rules of comparison.
struct TimeBarSpan
{
    double x = 0;
    double width = 0;

    [[nodiscard]] double Right() const { return x + width; }
    [[nodiscard]] bool IsEmpty() const { return width <= 0; }
};

/// \brief What of \a span is to be painted after all of \a last has been; \a last then grows by it.
///
/// \a last is the area that has been painted without a gap, {0, 0} at first. A span that lies
/// within gives an empty one; one that sticks out at the right gives what sticks out; one that does
/// not touch begins a new area. Does to the bit what QRectF::intersects(), operator& and its
/// inexact operator== do in rows of one height, because a difference of rounding is one of pixels.
[[nodiscard]] TimeBarSpan CheckOverlap(TimeBarSpan &last, const TimeBarSpan &span);

inline TimeBarSpan CheckOverlap(TimeBarSpan &last, const TimeBarSpan &span)
{
    const double last_left = last.width < 0 ? last.Right() : last.x;
    const double last_right = last.width < 0 ? last.x : last.Right();
    const double right = span.Right();
    const bool is_apart =
        last_left == last_right || span.x == right || span.x >= last_right || last_left >= right;
    if (is_apart) {
        last = span;
        return span;
    }
    const double common_left = qMax(span.x, last_left);
    const double common_width = qMin(right, last_right) - common_left;
    if (qFuzzyCompare(common_left, span.x) && qFuzzyCompare(common_width, span.width))
        return {};
    const double painted_to = last.Right();
    last.width = right - last.x;
    return {painted_to, right - painted_to};
}

} // namespace Vantor
