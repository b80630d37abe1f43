// SPDX-License-Identifier: MIT
#include "ui/AnimationProgressBar/AnimationProgressBar.h"

#include "ui/AnimationProgressBar/AnimationProgressBar_p.h"
#include "ui/AnimationProgressBar/TimeLineMeasures.h"

#include <Nim/Base/TimeUnits.h>

#include <QtWidgets/QLabel>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Vantor {
namespace {

using Nim::Base::kMillisecondsPerSecond;

constexpr double kLongestUnitSeconds = 1e12;
constexpr double kZoomStep = 1.5;

} // namespace

CAnimationProgressBar::CAnimationProgressBar(QWidget *parent)
    : QWidget(parent), d_ptr_(std::make_unique<CAnimationProgressBarDataPtr>())
{
    InstallTimeLineAccess();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    d_ptr_->ptr_calendar_ = new QLabel(this);
    d_ptr_->ptr_calendar_->setObjectName(QStringLiteral("CalendarLabel"));
    d_ptr_->ptr_calendar_->setAlignment(Qt::AlignCenter);
    d_ptr_->ptr_calendar_->setAttribute(Qt::WA_TransparentForMouseEvents);
    RefreshCalendarLabel(GetCurrentUTCTime());
}

CAnimationProgressBar::~CAnimationProgressBar()
{
    const auto delegates = Delegates();
    for (CAbstractDelegate *const delegate : delegates) // they may outlive the bar
        delegate->d_ptr_->SetBar(nullptr, {});
}

qint64 CAnimationProgressBar::GetCurrentUTCTime() const
{
    return d_ptr_->view_.position_ms / 1000;
}

qint64 CAnimationProgressBar::Position() const
{
    return d_ptr_->view_.position_ms;
}

void CAnimationProgressBar::SetPosition(qint64 position_ms)
{
    MoveTo(position_ms, false, 0, LinearAnimation);
}

void CAnimationProgressBar::SlideTo(qint64 position_ms, int duration_ms, AnimationType type)
{
    MoveTo(position_ms, true, duration_ms, type);
}

void CAnimationProgressBar::MoveTo(qint64 position_ms, bool animate, int duration_ms,
                                   AnimationType type)
{
    if (animate)
        EndMotion();
    else
        EndSlide();
    d_ptr_->told_ms_ = position_ms;
    if (d_ptr_->drag_)
        d_ptr_->drag_->GoOnFrom(position_ms);
    if (!animate || d_ptr_->drag_ || !CanAnimate(duration_ms) || position_ms == d_ptr_->shown_ms_) {
        Place(position_ms);
        return;
    }
    StartMotion({LineSlide{d_ptr_->shown_ms_, position_ms}, duration_ms,
                 type == EaseOutAnimation ? QEasingCurve::OutCubic : QEasingCurve::Linear});
    // Callers get the target at once. The first step is queued so that it comes before the next
    // painting.
    d_ptr_->view_.position_ms = position_ms;
    QMetaObject::invokeMethod(
        this, [this] { StepMotion(); }, Qt::QueuedConnection);
}

// A zoom that is running goes on about the new position.
void CAnimationProgressBar::Place(qint64 position_ms)
{
    LineView view = d_ptr_->view_;
    view.position_ms = position_ms;
    if (LineZoom *const zoom = d_ptr_->motion_.Zoom())
        zoom->anchor_ms = view.MillisecondsAt(zoom->anchor_px);
    Show(view);
}

void CAnimationProgressBar::Show(const LineView &view)
{
    const bool is_rescaled = view.scale_length_px != d_ptr_->view_.scale_length_px
                             || view.time_length_s != d_ptr_->view_.time_length_s;
    const bool is_moved = view.position_ms != d_ptr_->shown_ms_;
    // Label and tip may have the end of a slide that begins now.
    const bool is_other_time = is_moved || view.position_ms != d_ptr_->view_.position_ms;
    d_ptr_->view_ = view;
    d_ptr_->shown_ms_ = view.position_ms;
    update();
    if (is_rescaled && d_ptr_->drag_)
        d_ptr_->drag_->GoOnFrom(view.position_ms);
    if (is_other_time || is_rescaled)
        RefreshTexts();
    if (is_moved)
        NotifyTimeLineAccess(*this);
    const QPointer<CAnimationProgressBar> self(this);
    if (is_rescaled)
        Q_EMIT SignalScaleChanged();
    // A slot may have moved the line on, which has emitted the newer position already.
    if (self && is_moved && d_ptr_->shown_ms_ == view.position_ms)
        Q_EMIT SignalPositionChanged(view.position_ms);
}

void CAnimationProgressBar::SlideByUser(qint64 position_ms)
{
    const qint64 target_ms = HeldToCalendar(double(position_ms));
    const QPointer<CAnimationProgressBar> self(this);
    SlideTo(target_ms, d_ptr_->animation_duration_ms_);
    if (self && d_ptr_->told_ms_ == target_ms) // no slot has set another position
        TellStop();
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
    UpdateContents();
}

double CAnimationProgressBar::UnitScaleLength() const
{
    return d_ptr_->view_.scale_length_px;
}

double CAnimationProgressBar::UnitTimeLength() const
{
    return d_ptr_->view_.time_length_s;
}

double CAnimationProgressBar::PixelsPerSecond() const
{
    return d_ptr_->view_.PixelsPerSecond();
}

void CAnimationProgressBar::SetUnitScale(double scale_length_px, double time_length_s)
{
    if (!(scale_length_px > 0) || !(time_length_s > 0) || !std::isfinite(scale_length_px)
        || !std::isfinite(time_length_s))
        return;
    StopScale();
    LineView view = d_ptr_->view_;
    view.position_ms = d_ptr_->shown_ms_; // a slide that has not begun yet begins from here
    view.time_length_s = std::min(time_length_s, kLongestUnitSeconds);
    const double wanted = scale_length_px / view.time_length_s;
    const double held = HeldScale(wanted);
    view.scale_length_px = held == wanted ? scale_length_px : held * view.time_length_s;
    Show(view);
}

qint64 CAnimationProgressBar::UTCSecondsAtXPos(double x) const
{
    constexpr qint64 kMostSeconds = std::numeric_limits<qint64>::max() / 1000;
    constexpr auto kMost = double(kMostSeconds);
    const double from_centre_px = std::clamp(x, -kFarPx, kFarPx) - width() / 2.0;
    const double seconds = d_ptr_->view_.MillisecondsAt(from_centre_px) / kMillisecondsPerSecond;
    return qint64(std::clamp(std::floor(seconds), -kMost, kMost));
}

double CAnimationProgressBar::XPosOfUTCSeconds(qint64 seconds) const
{
    const double between_s =
        double(seconds) - double(d_ptr_->view_.position_ms) / kMillisecondsPerSecond;
    return between_s * PixelsPerSecond() + width() / 2.0;
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
    const LineView first;
    const LineZoom *const zoom = d_ptr_->motion_.Zoom();
    ZoomBy(first.PixelsPerSecond() / (zoom ? zoom->to : PixelsPerSecond()), width() / 2.0);
}

void CAnimationProgressBar::InsertDelegate(int index, CAbstractDelegate *delegate)
{
    if (!delegate)
        return;
    if (CAnimationProgressBar *const owner = delegate->AnimationProgressBar())
        owner->RemoveDelegate(delegate);
    auto &list = d_ptr_->list_delegates_;
    list.insert(std::clamp(index, 0, list.size()), delegate);
    delegate->d_ptr_->SetBar(this, [this, delegate] { RemoveDelegate(delegate); });
    UpdateContents();
}

void CAnimationProgressBar::AppendDelegate(CAbstractDelegate *delegate)
{
    InsertDelegate(std::numeric_limits<int>::max(), delegate);
}

void CAnimationProgressBar::RemoveDelegate(CAbstractDelegate *delegate)
{
    if (!delegate || d_ptr_->list_delegates_.removeAll(delegate) == 0)
        return;
    delegate->d_ptr_->SetBar(nullptr, {});
    UpdateContents();
}

void CAnimationProgressBar::UpdateContents()
{
    update();
    // Queued, because a delegate calls this in its destructor, too, when it can no longer be asked.
    if (d_ptr_->tip_)
        QMetaObject::invokeMethod(
            this, [this] { RefreshTip(); }, Qt::QueuedConnection);
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
