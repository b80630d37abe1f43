// SPDX-License-Identifier: MIT
#pragma once

#include "ui/TimeBarDelegate/TimeBarGeometry.h"

QT_BEGIN_NAMESPACE
class QColor;
class QPainter;
QT_END_NAMESPACE

namespace Vantor {

/// \brief Fills stretches of rows, however far beyond the picture they reach.
class CTimeBarFiller
{
public:
    /// \param painter whose transformation stays as it is while this object is used.
    explicit CTimeBarFiller(QPainter &painter);

    void Fill(const TimeBarSpan &span, double y, double height, const QColor &colour,
              double opacity);

    /// \brief Whether \a span certainly covers no pixel's centre on a painter that fills whole
    /// pixels, so that filling it changes nothing. False where that is not known.
    ///
    /// With a million bars on view nearly all are such slivers.
    [[nodiscard]] bool IsBetweenPixels(const TimeBarSpan &span) const;

private:
    QPainter &painter_;
    double left_px_; // what lies beyond left and right shows on no device
    double right_px_;
    bool fills_pixels_; // no part of one
    double scale_;
    double shift_;
};

} // namespace Vantor
