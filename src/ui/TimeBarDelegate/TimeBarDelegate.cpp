// SPDX-License-Identifier: MIT
#include "ui/TimeBarDelegate/TimeBarDelegate.h"

#include "common/ForwardEvents.h"
#include "common/Guard.h"
#include "ui/AnimationProgressBar/AnimationProgressBar.h"
#include "ui/AnimationProgressBar/TimeLineMeasures.h"
#include "ui/TimeBarDelegate/TimeBarPainter.h"
#include "ui/TimeBarDelegate/TimeBarRow.h"

#include <QtCore/QMap>
#include <QtCore/QPointF>
#include <QtGui/QPainter>

namespace Vantor {
namespace {

constexpr int kDelegateType = 0;
} // namespace

struct CTimeBarDelegateDataPtr
{
    CTimeBarRow main_row_;
    CTimeBarRow sync_row_;
    QList<int> list_types_;
    QMap<int, bool> map_visible_;
    float opacity_ = 1.0F;
    bool b_sync_ = false;

    // Null when the type is hidden or has no bars.
    [[nodiscard]] const CTimeBarIndex *ShownIndex(const CTimeBarRow &row, int type) const
    {
        return map_visible_.value(type, false) ? row.Index(type) : nullptr;
    }
};

namespace {

TimeBarView ViewOf(const CAnimationProgressBar &bar)
{
    return {bar.GetCurrentUTCTime(), bar.UnitScaleLength() / bar.UnitTimeLength(),
            bar.width() / 2.0, bar.width()};
}

double LowerHeight(const CAnimationProgressBar &bar)
{
    return bar.IsSimplifyMode() ? bar.height() * kSimpleShare : kLowerBandPx;
}

// The bar that painting leaves visible at `x`: in the main row the first that covers it, in the
// second row the last that is painted.
const CTimeBarParam *SeenAt(const CTimeBarIndex &index, const TimeBarView &view, double x,
                            bool is_sync)
{
    const CTimeBarParam *seen = nullptr;
    TimeBarSpan last_span;
    index.ForEachVisible(view, [&](double left, double width, const TimeBarEntry &entry) {
        if (left > x)
            return false;
        const bool is_painted = !CheckOverlap(last_span, {left, width}).IsEmpty();
        if (is_painted && left + width > x)
            seen = entry.bar;
        return is_sync || !seen;
    });
    return seen;
}

} // namespace

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
    return d_ptr_->map_visible_.value(type, false);
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
    Redraw();
}

void CTimeBarDelegate::ClearSyncTimeBar()
{
    d_ptr_->sync_row_.Clear();
    Redraw();
}

std::optional<CTimeBarParam> CTimeBarDelegate::FindTimeBar(const QPointF &pos) const
{
    const CAnimationProgressBar *const owner = AnimationProgressBar();
    if (!owner || pos.y() < 0)
        return std::nullopt;
    const double main_bottom =
        kUpperBandPx + (d_ptr_->b_sync_ ? double(kSyncRowPx) : LowerHeight(*owner));
    const bool is_sync = d_ptr_->b_sync_ && pos.y() >= kSyncTopPx;
    if (pos.y() >= (is_sync ? double(kSyncTopPx + kSyncRowPx) : main_bottom))
        return std::nullopt;
    const CTimeBarRow &row = is_sync ? d_ptr_->sync_row_ : d_ptr_->main_row_;
    const TimeBarView view = ViewOf(*owner);
    const QList<int> &types = d_ptr_->list_types_;
    for (auto type = types.crbegin(); type != types.crend(); ++type) { // the last is on top
        const CTimeBarIndex *const index = d_ptr_->ShownIndex(row, *type);
        if (const CTimeBarParam *const seen =
                index ? SeenAt(*index, view, pos.x(), is_sync) : nullptr)
            return *seen;
    }
    return std::nullopt;
}

std::optional<CTimeBarParam> CTimeBarDelegate::FindTimeBarAt(qint64 seconds) const
{
    const QList<int> &types = d_ptr_->list_types_;
    for (auto type = types.crbegin(); type != types.crend(); ++type) { // the last is on top
        const CTimeBarIndex *const index = d_ptr_->ShownIndex(d_ptr_->main_row_, *type);
        if (const TimeBarEntry *const entry = index ? index->Covering(seconds) : nullptr)
            return *entry->bar;
    }
    return std::nullopt;
}

std::optional<qint64> CTimeBarDelegate::FindStart(qint64 seconds, bool is_after) const
{
    std::optional<qint64> nearest;
    for (const int type : qAsConst(d_ptr_->list_types_)) {
        const CTimeBarIndex *const index = d_ptr_->ShownIndex(d_ptr_->main_row_, type);
        const auto start_s = index ? index->NearestStart(seconds, is_after) : std::nullopt;
        if (start_s && (!nearest || (is_after ? *start_s < *nearest : *start_s > *nearest)))
            nearest = start_s;
    }
    return nearest;
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
    const double lower_height_px = d_ptr_->b_sync_ ? double(kSyncRowPx) : LowerHeight(*bar);
    CTimeBarPainter bars(*painter, ViewOf(*bar));
    for (const int type : qAsConst(d_ptr_->list_types_)) {
        if (const CTimeBarIndex *const index = d_ptr_->ShownIndex(d_ptr_->main_row_, type))
            bars.PaintMainRow(*index, lower_height_px);
        if (!d_ptr_->b_sync_)
            continue;
        if (const CTimeBarIndex *const index = d_ptr_->ShownIndex(d_ptr_->sync_row_, type))
            bars.PaintSyncRow(*index);
    }
    painter->restore();
}

void CTimeBarDelegate::Redraw()
{
    if (CAnimationProgressBar *const bar = AnimationProgressBar())
        bar->UpdateContents();
}

} // namespace Vantor
