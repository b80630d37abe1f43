// SPDX-License-Identifier: MIT
#pragma once

#include "common/TimeZoneRecords.h"
#include "ui/AnimationProgressBar/AbstractDelegate_p.h"
#include "ui/AnimationProgressBar/AnimationProgressBar.h"

#include <QtCore/QList>
#include <QtCore/QPointer>

QT_BEGIN_NAMESPACE
class QLabel;
class QVariantAnimation;
QT_END_NAMESPACE

namespace Vantor {

constexpr double kFirstUnitPx = 60.0;
constexpr double kFirstUnitSeconds = 3600.0;

struct CAnimationProgressBarDataPtr
{
    // Zone
    CTimeZoneParam zone_;
    int time_spec_offset_s_ = 0;

    // Position: what is stored, and what was seen last. They differ from the start of a slide to
    // its first step.
    qint64 position_ms_ = 0;
    qint64 shown_ms_ = 0;
    qint64 slide_from_ms_ = 0;
    qint64 slide_to_ms_ = 0;

    // Scale
    double scale_length_px_ = kFirstUnitPx;
    double time_length_s_ = kFirstUnitSeconds;
    double zoom_from_ = 0; // pixels a second
    double zoom_to_ = 0;
    double anchor_x_ = 0;
    double anchor_ms_ = 0;

    // Interaction
    bool b_simplify_ = false;
    bool b_pressed_ = false;
    bool b_moving_ = false;
    bool b_mouse_ = false; // the press is the mouse's
    int press_x_ = 0;
    int moving_from_x_ = 0;
    qint64 moving_from_ms_ = 0;
    int animation_duration_ms_ = 250;

    QVariantAnimation *ptr_slide_ = nullptr;
    QVariantAnimation *ptr_zoom_ = nullptr;
    QLabel *ptr_calendar_ = nullptr;
    QList<QPointer<CAbstractDelegate>> list_delegates_; // from bottom to top
    QPointer<CAbstractDelegate> ptr_mouse_delegate_;    // has the mouse until it is released
};

} // namespace Vantor
