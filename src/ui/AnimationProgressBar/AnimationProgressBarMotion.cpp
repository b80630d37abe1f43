// SPDX-License-Identifier: MIT
// Slides and zooms, and the report of where the line has come to rest.
#include "common/ZoneTime.h"
#include "ui/AnimationProgressBar/AnimationProgressBar.h"
#include "ui/AnimationProgressBar/AnimationProgressBar_p.h"
#include "ui/AnimationProgressBar/TimeLineMeasures.h"

#include <QtCore/QTimerEvent>
#include <QtWidgets/QStyle>

#include <algorithm>
#include <cmath>

namespace Vantor {
namespace {

constexpr int kFrameMs = 16;
constexpr int kSettleMs = 150; // longer than from notch to notch of a wheel that is turned on

} // namespace

bool CAnimationProgressBar::IsSliding() const
{
    return d_ptr_->motion_.Slide() != nullptr;
}

bool CAnimationProgressBar::CanAnimate(int duration_ms) const
{
    return duration_ms > 0 && isVisible()
           && style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
}

// The ticks are a timer of this widget: unlike Qt's animations it bears that a step deletes the
// bar.
void CAnimationProgressBar::StartMotion(const LineMotion &motion)
{
    d_ptr_->motion_ = motion;
    d_ptr_->motion_clock_.start();
    d_ptr_->motion_tick_.start(kFrameMs, Qt::PreciseTimer, this);
}

void CAnimationProgressBar::StepMotion()
{
    if (d_ptr_->motion_.IsNone())
        return;
    const double share = d_ptr_->motion_.ShareAt(d_ptr_->motion_clock_.elapsed());
    if (share >= 1.0) {
        FinishMotion();
        return;
    }
    if (const LineSlide *const slide = d_ptr_->motion_.Slide()) {
        LineView view = d_ptr_->view_;
        view.position_ms = slide->PositionAt(share);
        Show(view);
    } else if (const LineZoom *const zoom = d_ptr_->motion_.Zoom()) {
        Show(zoom->ViewAt(share));
    }
}

// Leaves the line where it is seen.
void CAnimationProgressBar::EndMotion()
{
    d_ptr_->motion_ = {};
    d_ptr_->motion_tick_.stop();
    if (d_ptr_->view_.position_ms == d_ptr_->shown_ms_)
        return;
    d_ptr_->view_.position_ms = d_ptr_->shown_ms_;
    RefreshTexts();
}

void CAnimationProgressBar::EndSlide()
{
    if (IsSliding())
        EndMotion();
}

// Takes the line to the end of its way.
void CAnimationProgressBar::FinishMotion()
{
    LineView view = d_ptr_->view_;
    if (const LineSlide *const slide = d_ptr_->motion_.Slide())
        view.position_ms = slide->to_ms;
    else if (const LineZoom *const zoom = d_ptr_->motion_.Zoom())
        view = zoom->ViewAt(1.0);
    EndMotion();
    const QPointer<CAnimationProgressBar> self(this);
    Show(view);
    if (self)
        Settle();
}

void CAnimationProgressBar::StopSlide()
{
    if (!IsSliding())
        return;
    EndMotion();
    d_ptr_->told_ms_ = d_ptr_->view_.position_ms;
}

void CAnimationProgressBar::StopScale()
{
    if (!d_ptr_->motion_.Zoom())
        return;
    EndMotion();
    Settle();
}

void CAnimationProgressBar::ZoomBy(double factor, double x)
{
    if (!(factor > 0) || !std::isfinite(factor) || !std::isfinite(x))
        return;
    const LineZoom *const running = d_ptr_->motion_.Zoom();
    const double base = running ? running->to : PixelsPerSecond();
    EndMotion();
    const double anchor_px = std::clamp(x, -kFarPx, kFarPx) - width() / 2.0;
    StartMotion({LineZoom{PixelsPerSecond(), HeldScale(base * factor), anchor_px,
                          d_ptr_->view_.MillisecondsAt(anchor_px)},
                 d_ptr_->animation_duration_ms_, QEasingCurve::OutCubic});
    if (!CanAnimate(d_ptr_->animation_duration_ms_))
        FinishMotion();
}

// Called whenever the user's hand or a motion has let go of the line.
void CAnimationProgressBar::Settle()
{
    if (d_ptr_->view_.position_ms != d_ptr_->told_ms_)
        d_ptr_->settle_timer_.start(kSettleMs, this);
}

void CAnimationProgressBar::TellStop()
{
    d_ptr_->settle_timer_.stop();
    d_ptr_->told_ms_ = d_ptr_->view_.position_ms;
    Q_EMIT SignalStopAtTime(WallClockOf(d_ptr_->zone_.Read(), GetCurrentUTCTime()));
}

void CAnimationProgressBar::TellIfAtRest()
{
    if (d_ptr_->motion_.IsNone() && !d_ptr_->IsHeld()
        && d_ptr_->view_.position_ms != d_ptr_->told_ms_)
        TellStop();
}

void CAnimationProgressBar::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == d_ptr_->motion_tick_.timerId()) {
        StepMotion();
    } else if (event->timerId() == d_ptr_->settle_timer_.timerId()) {
        d_ptr_->settle_timer_.stop();
        TellIfAtRest();
    } else {
        QWidget::timerEvent(event);
    }
}

void CAnimationProgressBar::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    // Queued, because Qt does not bear that a slot deletes the widget while it is being hidden.
    QMetaObject::invokeMethod(
        this, [this] { LetGo(); }, Qt::QueuedConnection);
}

// A hidden or disabled bar gets no mouse release, and the rest of a slide would be invisible.
void CAnimationProgressBar::LetGo()
{
    if (isVisible() && isEnabled())
        return;
    d_ptr_->ptr_mouse_delegate_ = nullptr;
    const QPointer<CAnimationProgressBar> self(this);
    FinishMotion();
    if (self)
        EndPress();
    if (self)
        TellIfAtRest();
}

} // namespace Vantor
