// SPDX-License-Identifier: MIT
#include "ui/TimeBarDelegate/TimeBarFiller.h"

#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace Vantor {
namespace {

// Farther than any paint device reaches, and far less than where Qt's fills overflow.
constexpr double kFarthestPx = 1 << 17;
// The engine's own rounding may be off the pixel's centre by this much.
constexpr double kRoundingPx = 1.0 / 32;

} // namespace

CTimeBarFiller::CTimeBarFiller(QPainter &painter) : painter_(painter)
{
    const QTransform device = painter.deviceTransform();
    const QRectF shown = device.inverted().mapRect(
        QRectF(-kFarthestPx, -kFarthestPx, 2 * kFarthestPx, 2 * kFarthestPx));
    left_px_ = shown.left();
    right_px_ = shown.right();
    fills_pixels_ = painter.paintEngine() && painter.paintEngine()->type() == QPaintEngine::Raster
                    && !painter.testRenderHint(QPainter::Antialiasing)
                    && device.type() <= QTransform::TxScale && device.m11() > 0;
    scale_ = device.m11();
    shift_ = device.dx();
}

void CTimeBarFiller::Fill(const TimeBarSpan &span, double y, double height, const QColor &colour,
                          double opacity)
{
    double x = span.x;
    double width = span.width;
    if (x < left_px_ || span.Right() > right_px_) {
        x = std::max(span.x, left_px_);
        width = std::min(span.Right(), right_px_) - x;
        if (width <= 0)
            return;
    }
    painter_.setOpacity(opacity);
    painter_.fillRect(QRectF(x, y, width, height), colour);
}

bool CTimeBarFiller::IsBetweenPixels(const TimeBarSpan &span) const
{
    if (!fills_pixels_)
        return false;
    const double left = span.x * scale_ + shift_;
    const double right = span.Right() * scale_ + shift_;
    return std::floor(left + 0.5 - kRoundingPx) == std::floor(right + 0.5 + kRoundingPx);
}

} // namespace Vantor
