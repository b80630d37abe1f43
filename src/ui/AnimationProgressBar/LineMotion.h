// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QEasingCurve>

#include <variant>

namespace Vantor {

/// \brief What a time line shows of time: no widget, no signals.
struct LineView
{
    qint64 position_ms = 0; ///< at the cursor line
    double scale_length_px = 60.0;
    double time_length_s = 3600.0;

    [[nodiscard]] double PixelsPerSecond() const { return scale_length_px / time_length_s; }
    /// \param from_centre_px the distance from the cursor line.
    [[nodiscard]] double MillisecondsAt(double from_centre_px) const;
};

/// A way to another time, in milliseconds since 1970.
struct LineSlide
{
    qint64 from_ms;
    qint64 to_ms;

    /// \param share of the way, 0 to 1.
    [[nodiscard]] qint64 PositionAt(double share) const;
};

/// \brief A way to another scale, in pixels a second, that keeps the time \a anchor_ms at
/// \a anchor_px from the cursor line.
struct LineZoom
{
    double from;
    double to;
    double anchor_px;
    double anchor_ms;

    [[nodiscard]] LineView ViewAt(double share) const;
};

/// \brief The one movement that a time line makes by itself.
struct LineMotion
{
    std::variant<std::monostate, LineSlide, LineZoom> way;
    int duration_ms = 0;
    QEasingCurve::Type easing = QEasingCurve::Linear;

    [[nodiscard]] bool IsNone() const { return std::holds_alternative<std::monostate>(way); }
    [[nodiscard]] const LineSlide *Slide() const { return std::get_if<LineSlide>(&way); }
    [[nodiscard]] LineZoom *Zoom() { return std::get_if<LineZoom>(&way); }
    /// \brief The share of the way that is behind after \a elapsed_ms.
    [[nodiscard]] double ShareAt(qint64 elapsed_ms) const;
};

/// The scale is held between 10 pixels a second and a pixel a month.
[[nodiscard]] double HeldScale(double pixels_per_second);

} // namespace Vantor
