// SPDX-License-Identifier: MIT
#include "ui/DockManager/BorrowedFrame.h"

#include "ui/DockManager/AbstractDockFrame.h"

#include <QtWidgets/QVBoxLayout>

#include <utility>

namespace Vantor {
namespace {

// Across the borders of windows, unlike QWidget::isAncestorOf().
bool IsBelow(const QWidget *widget, const QObject *ancestor)
{
    while (widget && widget != ancestor)
        widget = widget->parentWidget();
    return widget != nullptr;
}

} // namespace

CBorrowedFrame::CBorrowedFrame(CAbstractDockFrame *frame, QVBoxLayout *layout)
    : frame_(frame), layout_(layout), flags_(frame->windowFlags())
{
    if (frame->parentWidget())
        home_ = frame->parentWidget();
    // While a window is being destroyed, reparenting into its children crashes; destroyed() comes
    // before they die.
    for (QWidget *owner = frame->parentWidget(); owner; owner = owner->parentWidget()) {
        home_watches_.append(QObject::connect(owner, &QObject::destroyed, frame,
                                              [this, owner] { OnWindowDestroyed(owner); }));
    }
}

CBorrowedFrame::~CBorrowedFrame()
{
    GiveBack();
}

void CBorrowedFrame::Insert()
{
    if (!frame_)
        return;
    // With all the room, because the expanding spacer would take half of it or more.
    layout_->insertWidget(0, frame_, 1);
    frame_->show();
}

bool CBorrowedFrame::IsOurs() const
{
    const QWidget *const parent = frame_->parentWidget();
    // Still at home: the dock found no window for it.
    return parent == layout_->parentWidget() || (home_ && parent == *home_);
}

QPointer<CAbstractDockFrame> CBorrowedFrame::GiveBack()
{
    for (const QMetaObject::Connection &watch : qAsConst(home_watches_))
        QObject::disconnect(watch);
    if (!frame_ || !IsOurs())
        return std::exchange(frame_, nullptr);
    layout_->removeWidget(frame_);
    frame_->hide();
    const QPointer<CAbstractDockFrame> frame = std::exchange(frame_, nullptr);
    if (!frame)
        return frame;
    if (home_ && !*home_)
        delete frame.data();
    else
        frame->setParent(home_.value_or(nullptr), flags_);
    return frame;
}

void CBorrowedFrame::OnWindowDestroyed(const QObject *window)
{
    // Not back into that window: a widget that is being destroyed takes no more children.
    if (home_ && IsBelow(*home_, window))
        home_->clear();
    GiveBack();
}

} // namespace Vantor
