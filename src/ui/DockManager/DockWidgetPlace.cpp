// SPDX-License-Identifier: MIT
// Where a dock is: all positions are in global coordinates.
#include "common/LogMacro.h"
#include "ui/DockManager/AbstractDockFrame.h"
#include "ui/DockManager/DockWidgetPosRule.h"
#include "ui/DockManager/DockWidget_p.h"

#include <Faceplate/GUIFullScreenWidget.h>

namespace Vantor {
namespace {

constexpr char kFullScreenClass[] = "Faceplate::CGUIFullScreenWidget";
constexpr char kPluginClass[] = "Lookout::CBaseWidget";

bool IsFullScreenWidget(const QWidget *widget)
{
    return widget->inherits(kFullScreenClass) && Faceplate::IsFullScreenMode(widget);
}

} // namespace

QWidget *CDockWidget::FindParent(QWidget *window) const
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::SetDockWidget";
    QString trace = d_ptr_->Content()->objectName();
    QWidget *widget = window;
    while (widget && !IsFullScreenWidget(widget)) {
        trace += QLatin1String("--") + widget->objectName();
        if (widget->inherits(kPluginClass))
            break;
        widget = widget->parentWidget();
    }
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "DockWidget:parent widgets:%s",
               qUtf8Printable(trace));
    return widget;
}

DockSituation CDockWidget::SituationAt(int width) const
{
    const QWidget *const parent = d_ptr_->ptr_parent_widget_;
    const QRect frame = parent->frameGeometry();
    DockSituation situation;
    situation.top_left = parent->mapToGlobal(QPoint(0, 0));
    situation.bottom_right = IsFullScreenWidget(parent)
                                 ? parent->mapToGlobal(QPoint(frame.width(), frame.height()))
                                 : parent->mapToGlobal(parent->rect().bottomRight());
    situation.width = width;
    situation.is_parent_found = d_ptr_->b_find_parent_;
    situation.content_type = d_ptr_->content_type_;
    situation.direction = parent->layoutDirection();
    return situation;
}

void CDockWidget::SetSlideSize(const QSize &size)
{
    QPoint place = isWindow() ? pos() : parentWidget()->mapToGlobal(pos());
    if (d_ptr_->ptr_rule_)
        place = d_ptr_->rule_place_;
    else if (d_ptr_->Content() && d_ptr_->ptr_parent_widget_)
        place = DockPosition(SituationAt(size.width())).value_or(place);
    setGeometry(QRect(isWindow() ? place : parentWidget()->mapFromGlobal(place), size));
}

void CDockWidget::MoveToGlobal(const QPoint &position)
{
    move(isWindow() ? position : parentWidget()->mapFromGlobal(position));
}

void CDockWidget::UpdatePostion()
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::UpdatePostion";
    QWidget *const parent = d_ptr_->ptr_parent_widget_;
    if (!d_ptr_->Content() || !parent)
        return;
    const QRect frame = parent->frameGeometry();
    const DockSituation situation = SituationAt(width());
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK,
               "DockWidget:pt_base_frame_topleft(%d,%d),pt_base_frame_bottonright(%d,%d),"
               "pt_global_topleft(%d,%d),pt_global_bottonright(%d,%d)",
               frame.left(), frame.top(), frame.right(), frame.bottom(), situation.top_left.x(),
               situation.top_left.y(), situation.bottom_right.x(), situation.bottom_right.y());
    const QWidget *const owner = parent->parentWidget();
    const QByteArray owner_name = owner ? owner->objectName().toUtf8() : QByteArray();
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK,
               "DockWidget:d_ptr_->ptr_parent_widget_->parentWidget():%s,Pos(%d,%d)",
               owner_name.constData(), parent->x(), parent->y());
    const std::optional<QPoint> position = DockPosition(situation);
    if (!position)
        return;
    MoveToGlobal(*position);
    // A panel that slides in from the left shows its right part first.
    d_ptr_->ptr_inner_->move(IsLeftDocked(situation) ? width() - d_ptr_->width_px_ : 0, 0);
    if (situation.is_parent_found && situation.content_type == kCommonContent) {
        VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "DockWidget:Move position(%d,%d)",
                   position->x(), position->y());
    }
}

void CDockWidget::Reposition()
{
    if (!d_ptr_->ptr_rule_) {
        UpdatePostion();
        return;
    }
    const QPointer<CDockWidget> self = this;
    const QPoint before = pos();
    d_ptr_->ptr_rule_->UpdateOnResize(this);
    if (!self || pos() == before)
        return;
    d_ptr_->rule_place_ = pos();
    MoveToGlobal(d_ptr_->rule_place_);
}

void CDockWidget::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    // The slide's first step has no area. Qt would paint it all the same when X exposes it, and
    // warn.
    setUpdatesEnabled(width() > 0);
    Reposition();
}

} // namespace Vantor
