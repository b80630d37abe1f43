// SPDX-License-Identifier: MIT
#pragma once

#include "ui/DockManager/BorrowedFrame.h"
#include "ui/DockManager/DockPosition.h"
#include "ui/DockManager/DockSlide.h"
#include "ui/DockManager/DockWidget.h"
#include "ui/DockManager/WindowWatch.h"

#include <QtCore/QVector>

QT_BEGIN_NAMESPACE
class QVBoxLayout;
QT_END_NAMESPACE

namespace Vantor {

constexpr char kDockInnerName[] = "ptr_dock_widget";

enum class DockPhase {
    Hidden,
    SlidingIn,
    Shown,
    SlidingOut,
    AwayWithWindow, // shown, but its window is hidden or minimised
    GoneWithWindow, // was sliding out then, and does not come back: lets its frame go next
};

struct CDockWidgetPtr
{
    DockPhase phase_ = DockPhase::Hidden;
    QVBoxLayout *ptr_layout_ = nullptr; // null in a retired dock
    QWidget *ptr_inner_ = nullptr;
    CWindowWatch *ptr_window_watch_ = nullptr;
    std::unique_ptr<CBorrowedFrame> ptr_borrowed_;
    QPointer<QWidget> ptr_let_go_; // its OnDockHide() is still to be called
    QPointer<QWidget> ptr_parent_widget_;
    QPointer<CDockWidgetPosRule> ptr_rule_;
    // The corner that the rule chose, in global coordinates. pos() is not reliable: it is 0,0 while
    // an X11 window manager reparents the dock.
    QPoint rule_place_;
    CDockSlide slide_;
    QVector<QPointer<QWidget>> vec_opened_; // windows without parent that the panel opened
    int width_px_ = -1;
    int content_type_ = kCommonContent;
    bool b_find_parent_ = false; // the third argument of SetDockWidget()

    [[nodiscard]] CAbstractDockFrame *Content() const
    {
        return ptr_borrowed_ ? ptr_borrowed_->Frame() : nullptr;
    }
};

} // namespace Vantor
