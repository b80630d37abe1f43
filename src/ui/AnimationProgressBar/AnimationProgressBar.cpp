// SPDX-License-Identifier: MIT
#include "ui/AnimationProgressBar/AnimationProgressBar.h"

#include "common/DisconnectChildren.h"
#include "common/ZoneTime.h"
#include "ui/AnimationProgressBar/AnimationProgressBarAccess.h"
#include "ui/AnimationProgressBar/AnimationProgressBar_p.h"
#include "ui/AnimationProgressBar/Ruler.h"
#include "ui/AnimationProgressBar/TimeLineLook.h"

#include <Nim/Base/TimeUnits.h>

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Vantor {
namespace {

using Nim::Base::kMillisecondsPerSecond;

constexpr double kMostPixelsPerSecond = 10.0;
constexpr double kLeastPixelsPerSecond = 1.0 / 2629746; // a pixel a month
constexpr double kLongestUnitSeconds = 1e12;
constexpr double kZoomStep = 1.5;

QVariantAnimation *NewAnimation(QObject *parent)
{
    auto *const animation = new QVariantAnimation(parent);
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    return animation;
}

} // namespace

CAnimationProgressBar::CAnimationProgressBar(QWidget *parent)
    : QWidget(parent), d_ptr_(std::make_unique<CAnimationProgressBarDataPtr>())
{
    InstallTimeLineAccess();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    d_ptr_->ptr_slide_ = NewAnimation(this);
    d_ptr_->ptr_zoom_ = NewAnimation(this);
    d_ptr_->ptr_calendar_ = new QLabel(this);
    d_ptr_->ptr_calendar_->setObjectName(QStringLiteral("CalendarLabel"));
    d_ptr_->ptr_calendar_->setAlignment(Qt::AlignCenter);
    d_ptr_->ptr_calendar_->setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(d_ptr_->ptr_slide_, &QVariantAnimation::valueChanged, this,
            &CAnimationProgressBar::OnSlideStep);
    connect(d_ptr_->ptr_zoom_, &QVariantAnimation::valueChanged, this,
            &CAnimationProgressBar::OnZoomStep);
    RefreshCalendarLabel(GetCurrentUTCTime());
}

CAnimationProgressBar::~CAnimationProgressBar()
{
    DisconnectChildren(this);
}

qint64 CAnimationProgressBar::GetCurrentUTCTime() const
{
    return d_ptr_->position_ms_ / 1000;
}

qint64 CAnimationProgressBar::Position() const
{
    return d_ptr_->position_ms_;
}

void CAnimationProgressBar::SetPosition(qint64 position_ms)
{
    MoveTo(position_ms, false, 0, LinearAnimation);
}

void CAnimationProgressBar::SlideTo(qint64 position_ms, int duration_ms, AnimationType type)
{
    MoveTo(position_ms, true, duration_ms, type);
}

bool CAnimationProgressBar::IsSliding() const
{
    return d_ptr_->ptr_slide_->state() == QAbstractAnimation::Running;
}

void CAnimationProgressBar::StopSlide()
{
    if (!IsSliding())
        return;
    d_ptr_->ptr_slide_->stop();
    StorePosition(d_ptr_->shown_ms_);
}

void CAnimationProgressBar::MoveTo(qint64 position_ms, bool animate, int duration_ms,
                                   AnimationType type)
{
    StopSlide();
    if (animate)
        StopScale();
    if (!animate || !CanAnimate(duration_ms) || position_ms == d_ptr_->shown_ms_) {
        StorePosition(position_ms);
        return;
    }
    // The position is stored first: whoever asks now gets where the line is going.
    d_ptr_->slide_from_ms_ = d_ptr_->shown_ms_;
    d_ptr_->slide_to_ms_ = position_ms;
    d_ptr_->position_ms_ = position_ms;
    d_ptr_->ptr_slide_->setDuration(duration_ms);
    d_ptr_->ptr_slide_->setEasingCurve(type == EaseOutAnimation ? QEasingCurve::OutCubic
                                                                : QEasingCurve::Linear);
    d_ptr_->ptr_slide_->start();
}

bool CAnimationProgressBar::CanAnimate(int duration_ms) const
{
    return duration_ms > 0 && isVisible()
           && style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
}

void CAnimationProgressBar::OnSlideStep(const QVariant &progress)
{
    const double share = progress.toDouble();
    if (share <= 0.0) // the start announces itself
        return;
    const double from = double(d_ptr_->slide_from_ms_);
    const double way = double(d_ptr_->slide_to_ms_) - from;
    StorePosition(share >= 1.0 ? d_ptr_->slide_to_ms_ : qint64(std::llround(from + way * share)));
}

void CAnimationProgressBar::StorePosition(qint64 position_ms)
{
    d_ptr_->position_ms_ = position_ms;
    update();
    if (d_ptr_->shown_ms_ == position_ms)
        return;
    d_ptr_->shown_ms_ = position_ms;
    RefreshCalendarLabel(GetCurrentUTCTime());
    NotifyTimeLineAccess(*this);
    Q_EMIT SignalPositionChanged(position_ms);
}

void CAnimationProgressBar::SlideByUser(qint64 position_ms)
{
    const qint64 target_ms = HeldToCalendar(double(position_ms));
    SlideTo(target_ms, d_ptr_->animation_duration_ms_);
    Q_EMIT SignalStopAtTime(WallClockOf(d_ptr_->zone_.Read(), target_ms / 1000));
}

bool CAnimationProgressBar::IsSimplifyMode() const
{
    return d_ptr_->b_simplify_;
}

void CAnimationProgressBar::SetSimplifyMode(bool is_simple)
{
    if (d_ptr_->b_simplify_ == is_simple)
        return;
    d_ptr_->b_simplify_ = is_simple;
    d_ptr_->ptr_calendar_->setVisible(!is_simple);
    updateGeometry();
    update();
}

double CAnimationProgressBar::UnitScaleLength() const
{
    return d_ptr_->scale_length_px_;
}

double CAnimationProgressBar::UnitTimeLength() const
{
    return d_ptr_->time_length_s_;
}

double CAnimationProgressBar::PixelsPerSecond() const
{
    return d_ptr_->scale_length_px_ / d_ptr_->time_length_s_;
}

void CAnimationProgressBar::SetUnitScale(double scale_length_px, double time_length_s)
{
    if (!(scale_length_px > 0) || !(time_length_s > 0) || !std::isfinite(scale_length_px)
        || !std::isfinite(time_length_s))
        return;
    StopScale();
    StoreScale(scale_length_px, std::min(time_length_s, kLongestUnitSeconds));
}

void CAnimationProgressBar::StoreScale(double scale_length_px, double time_length_s)
{
    const double wanted = scale_length_px / time_length_s;
    const double held = std::clamp(wanted, kLeastPixelsPerSecond, kMostPixelsPerSecond);
    if (held != wanted)
        scale_length_px = held * time_length_s;
    if (scale_length_px == d_ptr_->scale_length_px_ && time_length_s == d_ptr_->time_length_s_)
        return;
    d_ptr_->scale_length_px_ = scale_length_px;
    d_ptr_->time_length_s_ = time_length_s;
    update();
    Q_EMIT SignalScaleChanged();
}

qint64 CAnimationProgressBar::UTCSecondsAtXPos(double x) const
{
    return qint64(std::floor(MillisecondsAt(x) / kMillisecondsPerSecond));
}

double CAnimationProgressBar::MillisecondsAt(double x) const
{
    return double(d_ptr_->position_ms_)
           + (x - width() / 2.0) / PixelsPerSecond() * kMillisecondsPerSecond;
}

double CAnimationProgressBar::XPosOfUTCSeconds(qint64 seconds) const
{
    const double between_s =
        double(seconds) - double(d_ptr_->position_ms_) / kMillisecondsPerSecond;
    return between_s * PixelsPerSecond() + width() / 2.0;
}

void CAnimationProgressBar::ZoomBy(double factor, double x)
{
    if (!(factor > 0) || !std::isfinite(factor) || !std::isfinite(x))
        return;
    StopSlide();
    const bool is_zooming = d_ptr_->ptr_zoom_->state() == QAbstractAnimation::Running;
    const double base = is_zooming ? d_ptr_->zoom_to_ : PixelsPerSecond();
    d_ptr_->ptr_zoom_->stop();
    d_ptr_->zoom_from_ = PixelsPerSecond();
    d_ptr_->zoom_to_ = std::clamp(base * factor, kLeastPixelsPerSecond, kMostPixelsPerSecond);
    d_ptr_->anchor_x_ = x;
    d_ptr_->anchor_ms_ = MillisecondsAt(x);
    if (!CanAnimate(d_ptr_->animation_duration_ms_)) {
        ApplyScale(d_ptr_->zoom_to_);
        return;
    }
    d_ptr_->ptr_zoom_->setDuration(d_ptr_->animation_duration_ms_);
    d_ptr_->ptr_zoom_->setEasingCurve(QEasingCurve::OutCubic);
    d_ptr_->ptr_zoom_->start();
}

void CAnimationProgressBar::OnZoomStep(const QVariant &progress)
{
    const double share = progress.toDouble();
    // Even steps of the ratio look even; the last one ends exactly.
    ApplyScale(share >= 1.0
                   ? d_ptr_->zoom_to_
                   : d_ptr_->zoom_from_ * std::pow(d_ptr_->zoom_to_ / d_ptr_->zoom_from_, share));
}

void CAnimationProgressBar::ApplyScale(double pixels_per_second)
{
    const auto unit_s = double(ChooseRulerStep(pixels_per_second, kLeastLabelPx).major_s);
    StoreScale(unit_s * pixels_per_second, unit_s);
    const double from_centre_s = (d_ptr_->anchor_x_ - width() / 2.0) / PixelsPerSecond();
    StorePosition(HeldToCalendar(d_ptr_->anchor_ms_ - from_centre_s * kMillisecondsPerSecond));
}

void CAnimationProgressBar::StopScale()
{
    d_ptr_->ptr_zoom_->stop();
}

void CAnimationProgressBar::SetAnimationDuration(int duration_ms)
{
    d_ptr_->animation_duration_ms_ = std::max(0, duration_ms);
}

int CAnimationProgressBar::AnimationDuration() const
{
    return d_ptr_->animation_duration_ms_;
}

void CAnimationProgressBar::ZoomIn()
{
    ZoomBy(kZoomStep, width() / 2.0);
}

void CAnimationProgressBar::ZoomOut()
{
    ZoomBy(1 / kZoomStep, width() / 2.0);
}

void CAnimationProgressBar::ResetZoom()
{
    StopScale();
    ZoomBy(kFirstUnitPx / kFirstUnitSeconds / PixelsPerSecond(), width() / 2.0);
}

void CAnimationProgressBar::InsertDelegate(int index, CAbstractDelegate *delegate)
{
    if (!delegate)
        return;
    if (CAnimationProgressBar *const owner = delegate->AnimationProgressBar())
        owner->RemoveDelegate(delegate);
    auto &list = d_ptr_->list_delegates_;
    list.removeAll(nullptr); // those that were deleted elsewhere
    list.insert(std::clamp(index, 0, list.size()), delegate);
    delegate->d_ptr_->ptr_bar_ = this;
    update();
}

void CAnimationProgressBar::AppendDelegate(CAbstractDelegate *delegate)
{
    InsertDelegate(std::numeric_limits<int>::max(), delegate);
}

void CAnimationProgressBar::RemoveDelegate(CAbstractDelegate *delegate)
{
    if (!delegate || d_ptr_->list_delegates_.removeAll(delegate) == 0)
        return;
    delegate->d_ptr_->ptr_bar_ = nullptr;
    update();
}

QList<CAbstractDelegate *> CAnimationProgressBar::Delegates() const
{
    QList<CAbstractDelegate *> delegates;
    for (const QPointer<CAbstractDelegate> &delegate : qAsConst(d_ptr_->list_delegates_)) {
        if (delegate)
            delegates.append(delegate);
    }
    return delegates;
}

} // namespace Vantor
