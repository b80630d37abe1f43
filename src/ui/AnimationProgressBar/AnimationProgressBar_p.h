// SPDX-License-Identifier: MIT
#pragma once

#include "common/TimeZoneRecords.h"
#include "ui/AnimationProgressBar/AbstractDelegate_p.h"
#include "ui/AnimationProgressBar/AnimationProgressBar.h"
#include "ui/AnimationProgressBar/LineMotion.h"

#include <QtCore/QBasicTimer>
#include <QtCore/QElapsedTimer>
#include <QtCore/QList>
#include <QtCore/QPointF>
#include <QtCore/QPointer>

#include <optional>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace Vantor {

/// A drag of the line, by the mouse or by a handle of the host.
struct LineDrag
{
    qint64 start_ms; // where the line was, for Escape
    qint64 from_ms;  // the position that belongs to from_x
    int from_x;
    int x; // of the handle now

    // The line has come to \a position_ms by other means.
    void GoOnFrom(qint64 position_ms)
    {
        from_ms = position_ms;
        from_x = x;
    }
};

/// The tip that this bar has shown.
struct LineTip
{
    std::optional<QPointF> pointer; // empty: at the cursor line
    QString text = {};
};

struct CAnimationProgressBarDataPtr
{
    CTimeZoneParam zone_;
    int time_spec_offset_s_ = 0;

    // view_ is returned to callers. shown_ms_ is the position painted last; they differ from the
    // start of a slide, which stores its target, to its first step. told_ms_ is the position that
    // the host knows, because it set it or because SignalStopAtTime() reported it.
    LineView view_;
    qint64 shown_ms_ = 0;
    qint64 told_ms_ = 0;

    LineMotion motion_;
    QElapsedTimer motion_clock_;
    QBasicTimer motion_tick_;
    QBasicTimer settle_timer_;
    int animation_duration_ms_ = 250;

    bool b_simplify_ = false;
    bool b_pressed_ = false;
    std::optional<int> press_x_; // where the mouse is pressed
    std::optional<LineDrag> drag_;
    std::optional<LineTip> tip_;

    QLabel *ptr_calendar_ = nullptr;
    QList<QPointer<CAbstractDelegate>> list_delegates_; // from bottom to top
    QPointer<CAbstractDelegate> ptr_mouse_delegate_;    // has the mouse until it is released

    [[nodiscard]] bool IsHeld() const { return b_pressed_ || press_x_ || drag_; }
};

/// \brief Let assistive technology see time lines as sliders whose value is the time at the cursor
/// line. Called by each time line that is made; works once.
void InstallTimeLineAccess();

/// \brief Notify assistive technology that the value has changed.
void NotifyTimeLineAccess(CAnimationProgressBar &bar);

} // namespace Vantor
