// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

namespace Vantor {

/// The visible part of the time line, in the coordinates of the bar.
struct TimeBarView
{
    qint64 position_s = 0;        ///< The time at the centre.
    double pixels_per_second = 1; ///< More than 0.
    double centre_x = 0;
    int width_px = 0;

    /// \brief The place of \a seconds, which are at most kFarSeconds from 1970. Never decreases
    /// from one second to the next.
    [[nodiscard]] double XOf(qint64 seconds) const
    {
        return double(seconds - position_s) * pixels_per_second + centre_x;
    }
    [[nodiscard]] bool IsVisible(double x1, double x2) const { return x2 >= 0 && x1 <= width_px; }
    [[nodiscard]] static double WidthOf(double x1, double x2)
    {
        return x2 - x1 > 1.0 ? x2 - x1 : 1.0;
    }
};

/// 146 billion years; the difference to any position fits into 64 bits.
constexpr qint64 kFarSeconds = qint64(1) << 62;

/// \brief A stretch of a row: QRectF in one dimension, with its rules of comparison.
struct TimeBarSpan
{
    double x = 0;
    double width = 0;

    [[nodiscard]] double Right() const { return x + width; }
    [[nodiscard]] bool IsEmpty() const { return width <= 0; }
};

/// \brief The part of \a span that is still to be painted after all of \a last; \a last then grows
/// by it.
///
/// \a last is the area that has been painted without a gap, {0, 0} at first. A span inside it gives
/// an empty one; one that sticks out at the right gives the part that sticks out; one that does not
/// touch it begins a new area. Equals to the bit what QRectF::intersects(), operator& and its
/// inexact operator== give in rows of one height, because a difference of rounding is one of
/// pixels.
[[nodiscard]] inline TimeBarSpan CheckOverlap(TimeBarSpan &last, const TimeBarSpan &span)
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
    const bool is_nearly_whole = common_width > 0.999 * span.width; // saves the costly comparisons
    if (is_nearly_whole && qFuzzyCompare(common_width, span.width)
        && qFuzzyCompare(common_left, span.x))
        return {};
    const double painted_to = last.Right();
    last.width = right - last.x;
    return {painted_to, right - painted_to};
}

} // namespace Vantor
