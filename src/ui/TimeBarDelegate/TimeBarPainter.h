// SPDX-License-Identifier: MIT
#pragma once

#include "ui/TimeBarDelegate/TimeBarGeometry.h"
#include "ui/TimeBarDelegate/TimeBarIndex.h"

#include <QtCore/QRect>
#include <QtGui/QTransform>

#include <vector>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace Vantor {

/// \brief Paints the bars of one type after another.
///
/// Usually a painter fills whole pixels: a rectangle r covers exactly the device pixels of
/// deviceTransform().mapRect(r).toRect(). Then
///  1. each visible bar gives a stretch: what CheckOverlap() leaves of it;
///  2. a stretch becomes columns of device pixels, by the rounding above; many get no column;
///  3. columns that continue the run before them in its colour join it;
///  4. the runs are filled as integer rectangles, band by band;
///  5. but the rows of the translucent band are alike: with many runs, one row is painted and then
///     blended over all of them, because a blend costs most by its number of rows.
/// So a million bars become a few thousand fills of the same pixels. With antialiasing, rotation,
/// mirroring, on printers and in other composition modes each stretch is filled by itself.
///
/// The area that has been painted belongs to a pass over one type and one row; each pass begins
/// with an empty one.
class CTimeBarPainter
{
public:
    /// \param painter keeps its transformation and hints while this object is used; the caller saves
    /// and restores it.
    CTimeBarPainter(QPainter &painter, const TimeBarView &view);

    /// \brief The main row: each stretch in a faint upper band and in a lower one.
    void PaintMainRow(const CTimeBarIndex &index, double lower_height_px);
    /// \brief The second row: bars that are not wholly painted over already, each as a whole.
    void PaintSyncRow(const CTimeBarIndex &index);

private:
    struct Run
    {
        int left; // columns of the device, up to before right
        int right;
        QRgba64 colour;
    };
    struct Band
    {
        double y;
        double height;
        double opacity;
    };

    [[nodiscard]] QRect DeviceRect(const Band &band) const;
    // Both edges are rounded to the column at which the last run ends, so there is nothing to add.
    [[nodiscard]] bool IsAtRunEnd(const TimeBarSpan &span) const
    {
        const double edge = device_.m11() * span.x + device_.dx();
        return edge > run_end_ - 0.49 && edge + device_.m11() * span.width < run_end_ + 0.49;
    }
    void AddRun(const TimeBarSpan &span, QRgba64 colour, bool may_overlap);
    void FillRuns(const Band &band);
    void DrawRuns(QPainter &painter, int top, int height) const;
    [[nodiscard]] bool BlendRow(const Band &band, const QRect &rows);
    void FillSpan(const Band &band, const TimeBarSpan &span, QRgba64 colour);

    QPainter &painter_;
    const TimeBarView view_;
    const QTransform device_;
    double farthest_left_ = 0; // no device shows anything beyond these
    double farthest_right_ = 0;
    bool fills_whole_pixels_ = false;
    std::vector<Run> runs_;
    double run_end_ = 0; // of the last run, also of an earlier pass
};

} // namespace Vantor
