// SPDX-License-Identifier: MIT
#include "common/ZoneTime.h"
#include "ui/AnimationProgressBar/AnimationProgressBar.h"
#include "ui/AnimationProgressBar/AnimationProgressBar_p.h"
#include "ui/AnimationProgressBar/Ruler.h"
#include "ui/AnimationProgressBar/TimeLineLook.h"

#include <Nim/Base/TimeUnits.h>

#include <QtCore/QVariantAnimation>
#include <QtGui/QHelpEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QToolTip>

#include <algorithm>
#include <cmath>

namespace Vantor {
namespace {

using Nim::Base::kMillisecondsPerSecond;

constexpr double kNotch = 120.0; // of a mouse wheel, in eighths of a degree
constexpr double kZoomOfNotch = 1.25;
constexpr double kPanOfNotchPx = 60.0;

} // namespace

void CAnimationProgressBar::SetPressed(bool is_pressed)
{
    d_ptr_->b_pressed_ = is_pressed;
}

bool CAnimationProgressBar::IsPressed() const
{
    return d_ptr_->b_pressed_;
}

void CAnimationProgressBar::StartMovingX(int x)
{
    StopSlide();
    StopScale();
    d_ptr_->b_moving_ = true;
    d_ptr_->moving_from_x_ = x;
    d_ptr_->moving_from_ms_ = d_ptr_->position_ms_;
}

void CAnimationProgressBar::MoveX(int x)
{
    if (!d_ptr_->b_moving_)
        return;
    const double moved_s = double(d_ptr_->moving_from_x_ - x) / PixelsPerSecond();
    StorePosition(
        HeldToCalendar(double(d_ptr_->moving_from_ms_) + moved_s * kMillisecondsPerSecond));
}

void CAnimationProgressBar::StopMovingX()
{
    if (!d_ptr_->b_moving_)
        return;
    d_ptr_->b_moving_ = false;
    Q_EMIT SignalStopAtTime(WallClockOf(d_ptr_->zone_.Read(), GetCurrentUTCTime()));
}

bool CAnimationProgressBar::IsMoving() const
{
    return d_ptr_->b_moving_;
}

CAbstractDelegate *CAnimationProgressBar::RespondingDelegate(QPoint pos) const
{
    const auto &list = d_ptr_->list_delegates_;
    const auto found = std::find_if(list.crbegin(), list.crend(), [&pos](const auto &delegate) {
        return delegate && delegate->ShouldRespondAtPos(pos);
    });
    return found == list.crend() ? nullptr : found->data();
}

bool CAnimationProgressBar::PassToDelegate(QMouseEvent *event)
{
    CAbstractDelegate *const delegate = d_ptr_->ptr_mouse_delegate_;
    return delegate && QCoreApplication::sendEvent(delegate, event);
}

void CAnimationProgressBar::mousePressEvent(QMouseEvent *event)
{
    if (!d_ptr_->b_mouse_)
        d_ptr_->ptr_mouse_delegate_ = RespondingDelegate(event->pos());
    if (d_ptr_->ptr_mouse_delegate_) {
        PassToDelegate(event);
        return;
    }
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    StopSlide();
    StopScale();
    QToolTip::hideText();
    d_ptr_->b_mouse_ = true;
    d_ptr_->press_x_ = event->pos().x();
    SetPressed(true);
}

void CAnimationProgressBar::mouseMoveEvent(QMouseEvent *event)
{
    if (d_ptr_->ptr_mouse_delegate_) {
        PassToDelegate(event);
        return;
    }
    if (!d_ptr_->b_mouse_) {
        if (QToolTip::isVisible())
            QToolTip::showText(event->globalPos(), TipAtPos(event->localPos()), this);
        return;
    }
    if (!event->buttons().testFlag(Qt::LeftButton)) { // released where nobody saw it
        EndPress();
        return;
    }
    const int x = event->pos().x();
    if (!d_ptr_->b_moving_ && std::abs(x - d_ptr_->press_x_) >= QApplication::startDragDistance())
        StartMovingX(d_ptr_->press_x_);
    MoveX(x);
}

void CAnimationProgressBar::mouseReleaseEvent(QMouseEvent *event)
{
    if (d_ptr_->ptr_mouse_delegate_) {
        PassToDelegate(event);
        if (event->buttons() == Qt::NoButton)
            d_ptr_->ptr_mouse_delegate_ = nullptr;
        return;
    }
    if (event->button() != Qt::LeftButton || !d_ptr_->b_mouse_)
        return;
    const bool is_click = !d_ptr_->b_moving_;
    EndPress();
    if (is_click)
        SlideByUser(std::llround(MillisecondsAt(event->localPos().x())));
}

void CAnimationProgressBar::EndPress()
{
    if (!d_ptr_->b_mouse_)
        return;
    d_ptr_->b_mouse_ = false;
    SetPressed(false); // before the signal, so that a slot may set a time
    StopMovingX();
}

void CAnimationProgressBar::wheelEvent(QWheelEvent *event)
{
    event->accept();
    if (d_ptr_->b_pressed_ || d_ptr_->b_moving_)
        return;
    const QPoint turned = event->angleDelta();
    const bool is_sideways = std::abs(turned.x()) > std::abs(turned.y());
    if (!is_sideways && !event->modifiers().testFlag(Qt::ShiftModifier)) {
        ZoomBy(std::pow(kZoomOfNotch, turned.y() / kNotch), event->position().x());
        return;
    }
    StopSlide();
    StopScale();
    const int notches = is_sideways ? turned.x() : turned.y();
    const double moved_s = notches / kNotch * kPanOfNotchPx / PixelsPerSecond();
    StorePosition(HeldToCalendar(double(d_ptr_->position_ms_) - moved_s * kMillisecondsPerSecond));
}

bool CAnimationProgressBar::FindStop(qint64 /*seconds*/, bool /*is_after*/,
                                     qint64 & /*stop_s*/) const
{
    return false;
}

bool CAnimationProgressBar::FindOutermostStop(bool /*is_last*/, qint64 & /*stop_s*/) const
{
    return false;
}

bool CAnimationProgressBar::KeyTarget(const QKeyEvent &event, qint64 &target_ms) const
{
    // A key that is held down runs ahead of the slide.
    const qint64 from_ms = IsSliding() ? d_ptr_->slide_to_ms_ : d_ptr_->position_ms_;
    const RulerStep &step = ChooseRulerStep(PixelsPerSecond(), kLeastLabelPx);
    const auto go = [&](double seconds) {
        target_ms = HeldToCalendar(double(from_ms) + seconds * kMillisecondsPerSecond);
        return true;
    };
    qint64 stop_s = 0;
    bool has_stop = false;
    const int key = event.key();
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const int sign = key == Qt::Key_Left ? -1 : 1;
        if (!event.modifiers().testFlag(Qt::ControlModifier))
            return go(sign
                      * double(event.modifiers().testFlag(Qt::ShiftModifier) ? step.major_s
                                                                             : step.minor_s));
        has_stop = FindStop(from_ms / 1000, key == Qt::Key_Right, stop_s);
        break;
    }
    case Qt::Key_PageUp:
        return go(-width() / PixelsPerSecond());
    case Qt::Key_PageDown:
        return go(width() / PixelsPerSecond());
    case Qt::Key_Home:
    case Qt::Key_End:
        has_stop = FindOutermostStop(key == Qt::Key_End, stop_s);
        break;
    default:
        return false;
    }
    target_ms = has_stop ? HeldToCalendar(double(stop_s) * kMillisecondsPerSecond) : from_ms;
    return true;
}

bool CAnimationProgressBar::ZoomByKey(int key)
{
    switch (key) {
    case Qt::Key_Plus:
    case Qt::Key_Equal: // where + needs Shift
        ZoomIn();
        return true;
    case Qt::Key_Minus:
        ZoomOut();
        return true;
    case Qt::Key_0:
        ResetZoom();
        return true;
    default:
        return false;
    }
}

void CAnimationProgressBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && (d_ptr_->b_mouse_ || IsSliding())) {
        if (d_ptr_->b_moving_)
            StorePosition(d_ptr_->moving_from_ms_);
        StopSlide();
        EndPress(); // last: its signal may end this bar
        return;
    }
    qint64 target_ms = 0;
    const bool is_free = !d_ptr_->b_pressed_ && !d_ptr_->b_moving_;
    if (is_free && event->key() == Qt::Key_Space)
        ShowTip();
    else if (is_free && KeyTarget(*event, target_ms))
        SlideByUser(target_ms);
    else if (!is_free || !ZoomByKey(event->key()))
        QWidget::keyPressEvent(event);
}

void CAnimationProgressBar::ShowTip()
{
    const QPoint at(width() / 2, kTipTopPx);
    QToolTip::showText(mapToGlobal(at), TipAtPos(at), this);
}

bool CAnimationProgressBar::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto &help = static_cast<const QHelpEvent &>(*event);
        if (!d_ptr_->b_mouse_)
            QToolTip::showText(help.globalPos(), TipAtPos(help.pos()), this);
        return true;
    }
    return QWidget::event(event);
}

void CAnimationProgressBar::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (IsSliding()) // nobody sees the rest of the way
        SetPosition(d_ptr_->slide_to_ms_);
    if (d_ptr_->ptr_zoom_->state() == QAbstractAnimation::Running) {
        StopScale();
        ApplyScale(d_ptr_->zoom_to_);
    }
    EndPress();
}

} // namespace Vantor
