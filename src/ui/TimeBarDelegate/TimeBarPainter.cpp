// SPDX-License-Identifier: MIT
#include "ui/TimeBarDelegate/TimeBarPainter.h"

#include "ui/AnimationProgressBar/TimeLineMeasures.h"

#include <QtGui/QImage>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

#include <algorithm>

namespace Vantor {
namespace {

// Farther than any paint device reaches, and far less than where Qt's fills overflow.
constexpr double kFarthestPx = 1 << 17;
constexpr double kFaintOpacity = 0.2;
constexpr size_t kManyRuns = 32;

bool FillsWholePixels(const QPainter &painter)
{
    const QPaintEngine *const engine = painter.paintEngine();
    const QTransform &device = painter.deviceTransform();
    return engine && engine->type() == QPaintEngine::Raster
           && !painter.testRenderHint(QPainter::Antialiasing)
           && painter.compositionMode() == QPainter::CompositionMode_SourceOver
           && device.type() <= QTransform::TxScale && device.m11() > 0 && device.m22() > 0;
}

} // namespace

CTimeBarPainter::CTimeBarPainter(QPainter &painter, const TimeBarView &view)
    : painter_(painter), view_(view), device_(painter.deviceTransform()),
      fills_whole_pixels_(FillsWholePixels(painter))
{
    const QRectF shown = device_.inverted().mapRect(
        QRectF(-kFarthestPx, -kFarthestPx, 2 * kFarthestPx, 2 * kFarthestPx));
    farthest_left_ = shown.left();
    farthest_right_ = shown.right();
    painter_.setPen(Qt::NoPen);
}

void CTimeBarPainter::PaintMainRow(const CTimeBarIndex &index, double lower_height_px)
{
    const Band upper{0, kUpperBandPx, kFaintOpacity};
    const Band lower{kUpperBandPx, lower_height_px, 1.0};
    // Bands that share a row of pixels are painted bar by bar, so that the order stays.
    const bool as_runs =
        fills_whole_pixels_ && DeviceRect(upper).bottom() < DeviceRect(lower).top();
    TimeBarSpan last_span;
    index.ForEachVisible(view_, [&](double x, double width, const TimeBarEntry &entry) {
        const TimeBarSpan span = CheckOverlap(last_span, {x, width});
        if (span.IsEmpty())
            return true;
        if (as_runs) {
            if (!IsAtRunEnd(span))
                AddRun(span, entry.colour, false);
            return true;
        }
        FillSpan(upper, span, entry.colour);
        FillSpan(lower, span, entry.colour);
        return true;
    });
    FillRuns(upper);
    FillRuns(lower);
    runs_.clear();
}

void CTimeBarPainter::PaintSyncRow(const CTimeBarIndex &index)
{
    const Band band{kSyncTopPx, kSyncRowPx, 1.0};
    TimeBarSpan last_span;
    index.ForEachVisible(view_, [&](double x, double width, const TimeBarEntry &entry) {
        // The check only decides: hosts know this row with whole bars.
        if (CheckOverlap(last_span, {x, width}).IsEmpty())
            return true;
        if (fills_whole_pixels_)
            AddRun({x, width}, entry.colour, entry.colour.isOpaque());
        else
            FillSpan(band, {x, width}, entry.colour);
        return true;
    });
    FillRuns(band);
    runs_.clear();
}

QRect CTimeBarPainter::DeviceRect(const Band &band) const
{
    return device_.mapRect(QRectF(0, band.y, 1, band.height)).toRect();
}

void CTimeBarPainter::AddRun(const TimeBarSpan &span, QRgba64 colour, bool may_overlap)
{
    // mapRect() and toRect() in one dimension.
    const double edge = device_.m11() * span.x + device_.dx();
    const double other_edge = edge + device_.m11() * span.width;
    const int left = qRound(std::clamp(edge, -kFarthestPx, kFarthestPx));
    const int right = qRound(std::clamp(other_edge, -kFarthestPx, kFarthestPx));
    if (left >= right)
        return;
    if (!runs_.empty()) {
        Run &last = runs_.back();
        const bool joins = left == last.right || (may_overlap && left < last.right);
        if (joins && colour == last.colour) {
            last.right = std::max(last.right, right);
            run_end_ = last.right;
            return;
        }
    }
    runs_.push_back({left, right, colour});
    run_end_ = right;
}

void CTimeBarPainter::FillRuns(const Band &band)
{
    if (runs_.empty())
        return;
    const QRect rows = DeviceRect(band);
    const QTransform world = painter_.worldTransform();
    painter_.setWorldTransform(device_.inverted(), true); // count device pixels
    if (!BlendRow(band, rows)) {
        painter_.setOpacity(band.opacity);
        DrawRuns(painter_, rows.top(), rows.height());
    }
    painter_.setWorldTransform(world);
}

void CTimeBarPainter::DrawRuns(QPainter &painter, int top, int height) const
{
    std::vector<QRect> rects;
    for (size_t i = 0; i < runs_.size(); ++i) {
        const Run &run = runs_[i];
        rects.emplace_back(run.left, top, run.right - run.left, height);
        if (i + 1 < runs_.size() && runs_[i + 1].colour == run.colour)
            continue;
        painter.setBrush(QColor::fromRgba64(run.colour));
        painter.drawRects(rects.data(), int(rects.size()));
        rects.clear();
    }
}

// Equal to the bit to drawing the runs, where the target has the format in which Qt blends.
bool CTimeBarPainter::BlendRow(const Band &band, const QRect &rows)
{
    const QPaintDevice *const device = painter_.paintEngine()->paintDevice();
    if (band.opacity == 1.0 || runs_.size() < kManyRuns || !device
        || device->devType() != QInternal::Image)
        return false;
    const auto &target = static_cast<const QImage &>(*device);
    const bool overlap =
        std::adjacent_find(runs_.begin(), runs_.end(),
                           [](const Run &a, const Run &b) { return b.left < a.right; })
        != runs_.end();
    const int left = std::max(runs_.front().left, 0);
    const int width = std::min(runs_.back().right, target.width()) - left;
    const bool is_blended_alike = target.format() == QImage::Format_RGB32
                                  || target.format() == QImage::Format_ARGB32_Premultiplied;
    if (overlap || width <= 0 || !is_blended_alike)
        return false;
    QImage row(width, 1, QImage::Format_ARGB32_Premultiplied);
    row.fill(Qt::transparent);
    QPainter painter(&row);
    painter.setPen(Qt::NoPen);
    painter.setOpacity(band.opacity);
    painter.translate(-left, 0);
    DrawRuns(painter, 0, 1);
    painter.end();
    painter_.setOpacity(1.0);
    painter_.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter_.drawImage(QRect(left, rows.top(), width, rows.height()), row);
    return true;
}

void CTimeBarPainter::FillSpan(const Band &band, const TimeBarSpan &span, QRgba64 colour)
{
    TimeBarSpan shown = span;
    if (span.x < farthest_left_ || span.Right() > farthest_right_) {
        shown.x = std::max(span.x, farthest_left_);
        shown.width = std::min(span.Right(), farthest_right_) - shown.x;
        if (shown.IsEmpty())
            return;
    }
    painter_.setOpacity(band.opacity);
    painter_.fillRect(QRectF(shown.x, band.y, shown.width, band.height),
                      QColor::fromRgba64(colour));
}

} // namespace Vantor
