// SPDX-License-Identifier: MIT
#pragma once

#include "ui/TimeBarDelegate/TimeBarGeometry.h"

#include <QtGui/QColor>

#include <vector>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace Vantor {

/// \brief Stretches of a row, collected to be filled in each of its bands, however far beyond the
/// picture they reach.
///
/// On a painter that fills whole pixels, stretches of one colour that meet in a pixel column become
/// one, and those that cover no pixel's centre vanish: of a million bars on view, a few thousand
/// fills are left, of the same pixels.
class CTimeBarRuns
{
public:
    /// \param painter whose transformation and hints stay as they are while this object is used.
    explicit CTimeBarRuns(QPainter &painter);

    /// \param is_solid will be filled with opacity 1, so that painting it twice does not show.
    void Add(const TimeBarSpan &span, const QColor &colour, bool is_solid);
    /// \brief Fill what was added, in that order, from \a y down.
    void Fill(double y, double height, double opacity) const;
    void Clear() { runs_.clear(); }

    /// \brief Whether the painter fills whole pixels; bands that touch then share none.
    [[nodiscard]] bool AreWholePixels() const { return are_whole_pixels_; }

private:
    struct Run
    {
        TimeBarSpan span;
        QColor colour;
        double left_px; // on the device; the same as right_px when it is not known for certain
        double right_px;
    };

    // On pixels as they are: many rectangles of one colour cost one call.
    void FillPixels(int y, int height) const;
    bool MergeIntoLast(double left_px, double right_px, const QColor &colour, bool is_solid);

    QPainter &painter_;
    std::vector<Run> runs_;
    double farthest_left_ = 0; // beyond these, no device shows anything
    double farthest_right_ = 0;
    bool are_whole_pixels_ = false;
    double scale_ = 1;
    double shift_px_ = 0;
    bool are_pixels_ = false; // the painter's coordinates are pixels, but for a whole shift
};

} // namespace Vantor
