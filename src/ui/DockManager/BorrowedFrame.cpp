// SPDX-License-Identifier: MIT
#include "ui/DockManager/BorrowedFrame.h"

#include "ui/DockManager/AbstractDockFrame.h"

#include <QtWidgets/QVBoxLayout>

#include <utility>

namespace Vantor {
bool IsBeingDestroyed(const QWidget &widget)
{
    return !widget.nextInFocusChain() || !widget.window()->nextInFocusChain();
}

CBorrowedFrame::CBorrowedFrame(CAbstractDockFrame *frame, QVBoxLayout *layout)
    : frame_(frame), layout_(layout), flags_(frame->windowFlags())
{
    QWidget *const home = frame->parentWidget();
    if (!home)
        return;
    home_ = home;
    home_watch_ = QObject::connect(home, &QObject::destroyed, frame, [this] { GiveBack(); });
}

CBorrowedFrame::~CBorrowedFrame()
{
    GiveBack();
}

CAbstractDockFrame *CBorrowedFrame::Frame() const
{
    return qobject_cast<CAbstractDockFrame *>(frame_.data());
}

void CBorrowedFrame::Insert()
{
    if (!Frame())
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

QPointer<QWidget> CBorrowedFrame::GiveBack()
{
    QObject::disconnect(home_watch_);
    if (!Frame())
        return nullptr;
    if (!IsOurs())
        return std::exchange(frame_, nullptr);
    layout_->removeWidget(frame_);
    frame_->hide();
    QPointer<QWidget> frame = std::exchange(frame_, nullptr);
    if (!frame)
        return frame;
    if (home_ && (!*home_ || IsBeingDestroyed(**home_)))
        delete frame.data();
    else
        frame->setParent(home_.value_or(nullptr), flags_);
    return frame;
}

} // namespace Vantor
