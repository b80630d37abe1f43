// SPDX-License-Identifier: MIT
#include "ui/AnimationProgressBar/AnimationProgressBar.h"
#include "ui/AnimationProgressBar/AnimationProgressBar_p.h"
#include "ui/AnimationProgressBar/Ruler.h"
#include "ui/AnimationProgressBar/TimeLineMeasures.h"

#include <Nim/Base/TimeUnits.h>

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

constexpr double kNotch = 120.0; // one step of a mouse wheel, in eighths of a degree
constexpr double kZoomOfNotch = 1.25;
constexpr double kPanOfNotchPx = 60.0;

bool IsMoveKey(int key)
{
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_PageUp
           || key == Qt::Key_PageDown || key == Qt::Key_Home || key == Qt::Key_End;
}

} // namespace

void CAnimationProgressBar::SetPressed(bool is_pressed)
{
    d_ptr_->b_pressed_ = is_pressed;
    if (!is_pressed)
        Settle();
}

bool CAnimationProgressBar::IsPressed() const
{
    return d_ptr_->b_pressed_;
}

void CAnimationProgressBar::StartMovingX(int x)
{
    EndMotion();
    const qint64 position_ms = d_ptr_->view_.position_ms;
    d_ptr_->drag_ = LineDrag{position_ms, position_ms, x, x};
}

void CAnimationProgressBar::MoveX(int x)
{
    if (!d_ptr_->drag_)
        return;
    LineDrag &drag = *d_ptr_->drag_;
    drag.x = x;
    const double moved_s = (double(drag.from_x) - x) / PixelsPerSecond();
    Place(HeldToCalendar(double(drag.from_ms) + moved_s * kMillisecondsPerSecond));
}

void CAnimationProgressBar::StopMovingX()
{
    if (!d_ptr_->drag_)
        return;
    d_ptr_->drag_.reset();
    TellStop();
}

bool CAnimationProgressBar::IsMoving() const
{
    return d_ptr_->drag_.has_value();
}

CAbstractDelegate *CAnimationProgressBar::RespondingDelegate(QPoint pos) const
{
    const auto list = d_ptr_->list_delegates_; // a delegate may change the stack
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
    if (!d_ptr_->press_x_)
        d_ptr_->ptr_mouse_delegate_ = RespondingDelegate(event->pos());
    if (d_ptr_->ptr_mouse_delegate_) {
        PassToDelegate(event);
        return;
    }
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    EndMotion();
    QToolTip::hideText();
    d_ptr_->press_x_ = event->pos().x();
    SetPressed(true);
}

void CAnimationProgressBar::mouseMoveEvent(QMouseEvent *event)
{
    if (d_ptr_->ptr_mouse_delegate_) {
        PassToDelegate(event);
        return;
    }
    if (!d_ptr_->press_x_) {
        if (d_ptr_->tip_ && QToolTip::isVisible())
            PlaceTip({event->localPos()});
        return;
    }
    if (!event->buttons().testFlag(Qt::LeftButton)) { // the release went elsewhere
        EndPress();
        return;
    }
    const int x = event->pos().x();
    if (!d_ptr_->drag_ && std::abs(x - *d_ptr_->press_x_) >= QApplication::startDragDistance())
        StartMovingX(*d_ptr_->press_x_);
    MoveX(x);
}

void CAnimationProgressBar::mouseReleaseEvent(QMouseEvent *event)
{
    if (d_ptr_->ptr_mouse_delegate_) {
        const QPointer<CAnimationProgressBar> self(this);
        PassToDelegate(event);
        if (self && event->buttons() == Qt::NoButton)
            d_ptr_->ptr_mouse_delegate_ = nullptr;
        return;
    }
    if (event->button() != Qt::LeftButton || !d_ptr_->press_x_)
        return;
    const bool is_click = !d_ptr_->drag_;
    EndPress();
    if (is_click)
        SlideByUser(
            HeldToCalendar(d_ptr_->view_.MillisecondsAt(event->localPos().x() - width() / 2.0)));
}

void CAnimationProgressBar::EndPress()
{
    if (!d_ptr_->press_x_)
        return;
    d_ptr_->press_x_.reset();
    SetPressed(false); // before the signal, so that a slot may set a time
    StopMovingX();
}

void CAnimationProgressBar::wheelEvent(QWheelEvent *event)
{
    event->accept();
    const QPointF turned = event->angleDelta();
    if (d_ptr_->IsHeld() || turned.isNull())
        return;
    const bool is_sideways = std::abs(turned.x()) > std::abs(turned.y());
    if (!is_sideways && !event->modifiers().testFlag(Qt::ShiftModifier)) {
        ZoomBy(std::pow(kZoomOfNotch, turned.y() / kNotch), event->position().x());
        return;
    }
    EndSlide();
    const double angle = is_sideways ? turned.x() : turned.y();
    const double moved_s = angle / kNotch * kPanOfNotchPx / PixelsPerSecond();
    const QPointer<CAnimationProgressBar> self(this);
    Place(HeldToCalendar(double(d_ptr_->view_.position_ms) - moved_s * kMillisecondsPerSecond));
    if (self)
        Settle();
}

std::optional<qint64> CAnimationProgressBar::FindStop(qint64 /*seconds*/, bool /*is_after*/) const
{
    return std::nullopt;
}

std::optional<qint64> CAnimationProgressBar::FindOutermostStop(bool /*is_last*/) const
{
    return std::nullopt;
}

// Nothing when there is no such stop.
std::optional<qint64> CAnimationProgressBar::KeyTarget(const QKeyEvent &event) const
{
    // A key that is held down runs ahead of the slide.
    const LineSlide *const slide = d_ptr_->motion_.Slide();
    const double from_s =
        double(slide ? slide->to_ms : d_ptr_->view_.position_ms) / kMillisecondsPerSecond;
    const RulerStep &step = ChooseRulerStep(PixelsPerSecond(), kLeastLabelPx);
    const bool is_large = event.modifiers().testFlag(Qt::ShiftModifier);
    const double step_s = double(is_large ? step.major_s : step.minor_s);
    const double width_s = width() / PixelsPerSecond();
    const bool is_to_stop = event.modifiers().testFlag(Qt::ControlModifier);
    const auto at = [](double seconds) { return HeldToCalendar(seconds * kMillisecondsPerSecond); };
    std::optional<qint64> stop_s;
    switch (event.key()) {
    case Qt::Key_Left:
        if (!is_to_stop)
            return at(from_s - step_s);
        stop_s = FindStop(qint64(std::ceil(from_s)), false);
        break;
    case Qt::Key_Right:
        if (!is_to_stop)
            return at(from_s + step_s);
        stop_s = FindStop(qint64(std::floor(from_s)), true);
        break;
    case Qt::Key_PageUp:
        return at(from_s - width_s);
    case Qt::Key_PageDown:
        return at(from_s + width_s);
    default:
        stop_s = FindOutermostStop(event.key() == Qt::Key_End);
        break;
    }
    return stop_s ? std::optional(at(double(*stop_s))) : std::nullopt;
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

// Undoes a drag, ends a slide; false when there is neither.
bool CAnimationProgressBar::Escape()
{
    if (!d_ptr_->press_x_ && !IsSliding())
        return false;
    EndSlide();
    const QPointer<CAnimationProgressBar> self(this);
    if (d_ptr_->drag_)
        Place(d_ptr_->drag_->start_ms);
    if (self)
        EndPress();
    if (self)
        Settle();
    return true;
}

void CAnimationProgressBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && Escape())
        return;
    const bool is_held = d_ptr_->IsHeld(); // keys are the parent's then
    if (!is_held && event->key() == Qt::Key_Space) {
        ShowTip();
    } else if (!is_held && IsMoveKey(event->key())) {
        if (const auto target_ms = KeyTarget(*event))
            SlideByUser(*target_ms);
    } else if (is_held || !ZoomByKey(event->key())) {
        QWidget::keyPressEvent(event);
    }
}

void CAnimationProgressBar::ShowTip()
{
    PlaceTip({});
}

void CAnimationProgressBar::PlaceTip(const LineTip &tip)
{
    const QPointF at = tip.pointer.value_or(QPointF(width() / 2.0, kTipTopPx));
    const QString text = tip.pointer ? TipAtPos(at) : TipAtCursorLine();
    d_ptr_->tip_ = LineTip{tip.pointer, text};
    QToolTip::showText(mapToGlobal(at.toPoint()), text, this); // an empty text hides it
}

// Keeps a visible tip true to what has moved under it.
void CAnimationProgressBar::RefreshTip()
{
    if (!d_ptr_->tip_)
        return;
    const LineTip tip = *d_ptr_->tip_;
    if (QToolTip::isVisible() && QToolTip::text() == tip.text)
        PlaceTip(tip);
    else // it has gone, or is another widget's
        d_ptr_->tip_.reset();
}

bool CAnimationProgressBar::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto &help = static_cast<const QHelpEvent &>(*event);
        if (!d_ptr_->press_x_)
            PlaceTip({QPointF(help.pos())});
        return true;
    }
    return QWidget::event(event);
}

} // namespace Vantor
