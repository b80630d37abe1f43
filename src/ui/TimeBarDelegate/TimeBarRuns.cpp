// SPDX-License-Identifier: MIT
#include "ui/TimeBarDelegate/TimeBarRuns.h"

#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace Vantor {
namespace {

// Farther than any paint device reaches, and far less than where Qt's fills overflow.
constexpr double kFarthestPx = 1 << 17;
// Edges so close to a pixel's centre are left to the engine, whose rounding may differ.
constexpr double kRoundingPx = 1.0 / 32;

// The pixel that an edge is rounded to. Numbers are small here, and a call of floor() is not free.
struct Pixel
{
    explicit Pixel(double edge)
    {
        const double above = edge + 0.5;
        const auto cut = qint64(above);
        number = double(above < double(cut) ? cut - 1 : cut);
        is_certain = above - number >= kRoundingPx && above - number <= 1 - kRoundingPx;
    }

    double number;
    bool is_certain;
};

} // namespace

CTimeBarRuns::CTimeBarRuns(QPainter &painter) : painter_(painter)
{
    const QTransform &device = painter.deviceTransform();
    const QRectF shown = device.inverted().mapRect(
        QRectF(-kFarthestPx, -kFarthestPx, 2 * kFarthestPx, 2 * kFarthestPx));
    farthest_left_ = shown.left();
    farthest_right_ = shown.right();
    are_whole_pixels_ = painter.paintEngine()
                        && painter.paintEngine()->type() == QPaintEngine::Raster
                        && !painter.testRenderHint(QPainter::Antialiasing)
                        && device.type() <= QTransform::TxScale && device.m11() > 0;
    are_pixels_ = are_whole_pixels_ && device.type() <= QTransform::TxTranslate
                  && device.dx() == std::floor(device.dx())
                  && device.dy() == std::floor(device.dy());
    scale_ = device.m11();
    shift_px_ = device.dx();
}

void CTimeBarRuns::Add(const TimeBarSpan &span, const QColor &colour, bool is_solid)
{
    TimeBarSpan shown = span;
    if (span.x < farthest_left_ || span.Right() > farthest_right_) {
        shown.x = std::max(span.x, farthest_left_);
        shown.width = std::min(span.Right(), farthest_right_) - shown.x;
        if (shown.IsEmpty())
            return;
    }
    const double left = shown.x * scale_ + shift_px_;
    const double right = shown.Right() * scale_ + shift_px_;
    const Pixel from(left);
    const Pixel to(right);
    if (!are_whole_pixels_ || !from.is_certain || !to.is_certain)
        runs_.push_back({shown, colour, 0, 0});
    else if (from.number < to.number && !MergeIntoLast(from.number, to.number, colour, is_solid))
        runs_.push_back({shown, colour, from.number, to.number});
}

bool CTimeBarRuns::MergeIntoLast(double left_px, double right_px, const QColor &colour,
                                 bool is_solid)
{
    if (runs_.empty())
        return false;
    Run &last = runs_.back();
    const bool meets = left_px == last.right_px;
    const bool overlaps = left_px >= last.left_px && left_px < last.right_px;
    if (last.left_px == last.right_px || colour != last.colour
        || !(meets || (overlaps && is_solid && colour.alpha() == 255)))
        return false;
    last.right_px = std::max(last.right_px, right_px);
    last.span.x = (last.left_px - shift_px_) / scale_;
    last.span.width = (last.right_px - last.left_px) / scale_;
    return true;
}

void CTimeBarRuns::Fill(double y, double height, double opacity) const
{
    if (runs_.empty())
        return;
    painter_.setOpacity(opacity);
    if (are_pixels_ && y == std::floor(y) && height == std::floor(height)) {
        FillPixels(int(y), int(height));
        return;
    }
    for (const Run &run : runs_)
        painter_.fillRect(QRectF(run.span.x, y, run.span.width, height), run.colour);
}

void CTimeBarRuns::FillPixels(int y, int height) const
{
    std::vector<QRect> rects;
    rects.reserve(runs_.size());
    const auto draw = [&](const QColor &colour) {
        if (rects.empty())
            return;
        painter_.setBrush(colour);
        painter_.drawRects(rects.data(), int(rects.size()));
        rects.clear();
    };
    painter_.setPen(Qt::NoPen);
    for (size_t i = 0; i < runs_.size(); ++i) {
        const Run &run = runs_[i];
        const bool is_certain = run.left_px < run.right_px;
        if (is_certain)
            rects.emplace_back(int(run.left_px - shift_px_), y, int(run.right_px - run.left_px),
                               height);
        if (!is_certain || i + 1 == runs_.size() || runs_[i + 1].colour != run.colour)
            draw(run.colour);
        if (!is_certain)
            painter_.fillRect(QRectF(run.span.x, y, run.span.width, height), run.colour);
    }
}

} // namespace Vantor
