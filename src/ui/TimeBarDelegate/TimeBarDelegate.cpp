// SPDX-License-Identifier: MIT
#include "ui/TimeBarDelegate/TimeBarDelegate.h"

#include "common/ForwardEvents.h"
#include "common/Guard.h"
#include "ui/AnimationProgressBar/AnimationProgressBar.h"
#include "ui/TimeBarDelegate/TimeBarRow.h"
#include "ui/TimeBarDelegate/TimeBarRuns.h"

#include <QtCore/QMap>
#include <QtCore/QPointF>
#include <QtGui/QPainter>

#include <optional>

namespace Vantor {
namespace {

constexpr int kDelegateType = 0;
constexpr double kUpperHeightPx = 22.0;
constexpr double kLowerHeightPx = 20.0;
constexpr double kSimplifiedShare = 0.25; // of the bar's height
constexpr double kSyncHeightPx = 9.0;
constexpr double kSyncGapPx = 2.0;
constexpr double kSyncTopPx = kUpperHeightPx + kSyncHeightPx + kSyncGapPx;
constexpr double kFaintOpacity = 0.2;

// What has been painted of the row and type at hand: one for all delegates, as they paint one after
// the other.
TimeBarSpan last_span;

} // namespace

struct CTimeBarDelegateDataPtr
{
    CTimeBarRow main_row_;
    CTimeBarRow sync_row_;
    QList<int> list_types_;
    QMap<int, bool> map_visible_;
    float opacity_ = 1.0F;
    bool b_sync_ = false;

    [[nodiscard]] bool IsShown(int type) const { return map_visible_.value(type, false); }
    void PaintMainRow(CTimeBarRuns &runs, const TimeBarView &view, int type,
                      double lower_height_px) const;
    void PaintSyncRow(CTimeBarRuns &runs, const TimeBarView &view, int type) const;
};

namespace {

TimeBarView ViewOf(const CAnimationProgressBar &bar)
{
    return {bar.GetCurrentUTCTime(), bar.UnitScaleLength() / bar.UnitTimeLength(),
            bar.width() / 2.0, bar.width()};
}

double LowerHeight(const CAnimationProgressBar &bar)
{
    return bar.IsSimplifyMode() ? bar.height() * kSimplifiedShare : kLowerHeightPx;
}

} // namespace

void CTimeBarDelegateDataPtr::PaintMainRow(CTimeBarRuns &runs, const TimeBarView &view, int type,
                                           double lower_height_px) const
{
    const CTimeBarIndex *const index = main_row_.Index(type);
    if (!index)
        return;
    const auto fill = [&] {
        runs.Fill(0, kUpperHeightPx, kFaintOpacity);
        runs.Fill(kUpperHeightPx, lower_height_px, 1.0);
        runs.Clear();
    };
    index->ForEachVisible(view, [&](double x1, double x2, const QColor &colour) {
        const TimeBarSpan span = CheckOverlap(last_span, {x1, TimeBarView::WidthOf(x1, x2)});
        if (span.IsEmpty())
            return;
        runs.Add(span, colour, false);
        if (!runs.AreWholePixels()) // the bands share a row of pixels: bar by bar, in their order
            fill();
    });
    fill();
}

void CTimeBarDelegateDataPtr::PaintSyncRow(CTimeBarRuns &runs, const TimeBarView &view,
                                           int type) const
{
    const CTimeBarIndex *const index = sync_row_.Index(type);
    if (!index)
        return;
    index->ForEachVisible(view, [&](double x1, double x2, const QColor &colour) {
        const TimeBarSpan whole{x1, TimeBarView::WidthOf(x1, x2)};
        // The check only decides: hosts know this row with whole bars.
        if (!CheckOverlap(last_span, whole).IsEmpty())
            runs.Add(whole, colour, true);
    });
    runs.Fill(kSyncTopPx, kSyncHeightPx, 1.0);
    runs.Clear();
}

CTimeBarDelegate::CTimeBarDelegate(QObject *parent)
    : CAbstractDelegate(kDelegateType, parent), d_ptr_(std::make_unique<CTimeBarDelegateDataPtr>())
{}

CTimeBarDelegate::~CTimeBarDelegate() = default;

void CTimeBarDelegate::AppendTimeBar(const QVector<CTimeBarParam> &bars)
{
    static constexpr char kFunction[] = "Vantor::CTimeBarDelegate::AppendTimeBar";
    RunGuarded(kFunction, [&] { d_ptr_->main_row_.Append(bars); });
    Redraw();
}

void CTimeBarDelegate::AppendSyncTimeBar(const QVector<CTimeBarParam> &bars)
{
    static constexpr char kFunction[] = "Vantor::CTimeBarDelegate::AppendSyncTimeBar";
    RunGuarded(kFunction, [&] { d_ptr_->sync_row_.Append(bars); });
    Redraw();
}

const QVector<CTimeBarParam> &CTimeBarDelegate::GetTimeBar() const
{
    return d_ptr_->main_row_.Bars();
}

const QVector<CTimeBarParam> &CTimeBarDelegate::GetSyncTimeBar() const
{
    return d_ptr_->sync_row_.Bars();
}

void CTimeBarDelegate::InitTypes(const QList<int> &types)
{
    d_ptr_->map_visible_.clear();
    d_ptr_->list_types_ = types;
    for (const int type : types)
        d_ptr_->map_visible_.insert(type, true);
    Redraw();
}

QList<int> CTimeBarDelegate::Types() const
{
    return d_ptr_->list_types_;
}

void CTimeBarDelegate::SetTimeBarVisible(int type, bool visible)
{
    const auto found = d_ptr_->map_visible_.find(type);
    if (found == d_ptr_->map_visible_.end())
        return;
    *found = visible;
    Redraw();
}

bool CTimeBarDelegate::IsTimeBarVisible(int type) const
{
    return d_ptr_->IsShown(type);
}

void CTimeBarDelegate::SetUnvisibleTypes(const QList<int> &types)
{
    for (auto it = d_ptr_->map_visible_.begin(); it != d_ptr_->map_visible_.end(); ++it)
        *it = !types.contains(it.key());
    Redraw();
}

void CTimeBarDelegate::SetOpacity(float opacity)
{
    d_ptr_->opacity_ = opacity;
    Redraw();
}

void CTimeBarDelegate::SetSyncFlag(bool has_sync)
{
    d_ptr_->b_sync_ = has_sync;
    Redraw();
}

bool CTimeBarDelegate::SyncFlag() const
{
    return d_ptr_->b_sync_;
}

void CTimeBarDelegate::Clear()
{
    Clear(true);
}

void CTimeBarDelegate::Clear(bool alsoSync)
{
    d_ptr_->main_row_.Clear();
    if (alsoSync)
        d_ptr_->sync_row_.Clear();
    last_span = {};
    Redraw();
}

void CTimeBarDelegate::ClearSyncTimeBar()
{
    d_ptr_->sync_row_.Clear();
    Redraw();
}

bool CTimeBarDelegate::FindTimeBar(const QPointF &pos, CTimeBarParam &bar) const
{
    const CAnimationProgressBar *const owner = AnimationProgressBar();
    if (!owner || pos.y() < 0)
        return false;
    const double main_bottom =
        kUpperHeightPx + (d_ptr_->b_sync_ ? kSyncHeightPx : LowerHeight(*owner));
    const bool is_sync = d_ptr_->b_sync_ && pos.y() >= kSyncTopPx;
    if (pos.y() >= (is_sync ? kSyncTopPx + kSyncHeightPx : main_bottom))
        return false;
    const CTimeBarRow &row = is_sync ? d_ptr_->sync_row_ : d_ptr_->main_row_;
    const TimeBarView view = ViewOf(*owner);
    const QList<int> &types = d_ptr_->list_types_;
    for (auto type = types.crbegin(); type != types.crend(); ++type) { // the last is on top
        const CTimeBarIndex *const index = d_ptr_->IsShown(*type) ? row.Index(*type) : nullptr;
        const int found = index ? index->FindAt(view, pos.x()) : -1;
        const int number = found < 0 ? -1 : row.NumberOf(*type, index->At(found));
        if (number < 0)
            continue;
        bar = row.Bars().at(number);
        return true;
    }
    return false;
}

bool CTimeBarDelegate::FindStart(qint64 seconds, bool is_after, qint64 &start_s) const
{
    std::optional<qint64> nearest;
    for (const int type : qAsConst(d_ptr_->list_types_)) {
        const CTimeBarIndex *const index =
            d_ptr_->IsShown(type) ? d_ptr_->main_row_.Index(type) : nullptr;
        if (!index)
            continue;
        const std::vector<qint64> &starts = index->Starts();
        if (is_after) {
            const auto found = std::upper_bound(starts.begin(), starts.end(), seconds);
            if (found != starts.end() && (!nearest || *found < *nearest))
                nearest = *found;
        } else {
            const auto found = std::lower_bound(starts.begin(), starts.end(), seconds);
            if (found != starts.begin() && (!nearest || *(found - 1) > *nearest))
                nearest = *(found - 1);
        }
    }
    if (nearest)
        start_s = *nearest;
    return nearest.has_value();
}

VANTOR_FORWARD_EVENTS(CTimeBarDelegate, CAbstractDelegate)

bool CTimeBarDelegate::ShouldRespondAtPos(QPoint /*pos*/)
{
    return false;
}

void CTimeBarDelegate::Paint(QPainter *painter)
{
    const CAnimationProgressBar *const bar = AnimationProgressBar();
    if (!bar || !painter)
        return;
    painter->save();
    painter->setOpacity(double(d_ptr_->opacity_));
    const TimeBarView view = ViewOf(*bar);
    const double lower_height_px = d_ptr_->b_sync_ ? kSyncHeightPx : LowerHeight(*bar);
    CTimeBarRuns runs(*painter);
    for (const int type : qAsConst(d_ptr_->list_types_)) {
        last_span = {};
        if (!d_ptr_->IsShown(type))
            continue;
        d_ptr_->PaintMainRow(runs, view, type, lower_height_px);
        if (!d_ptr_->b_sync_)
            continue;
        last_span = {};
        d_ptr_->PaintSyncRow(runs, view, type);
    }
    painter->restore();
}

void CTimeBarDelegate::Redraw()
{
    if (CAnimationProgressBar *const bar = AnimationProgressBar())
        bar->update();
}

} // namespace Vantor
