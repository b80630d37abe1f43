// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointer>

#include <optional>

QT_BEGIN_NAMESPACE
class QVBoxLayout;
class QWidget;
QT_END_NAMESPACE

namespace Vantor {

class CAbstractDockFrame;

// Whether the destructor of `widget` or of its window has begun; reparenting into them crashes from
// then on. They leave the focus chain, which otherwise always has a next widget, before they emit
// destroyed() (Qt 5.15).
[[nodiscard]] bool IsBeingDestroyed(const QWidget &widget);

// The frame of a host while the dock has it. Gives it back, hidden, to the parent it came from, at
// the latest when this object dies. A frame whose parent dies meanwhile dies with that parent, as
// any child does. A frame that its host moved elsewhere meanwhile is left alone.
class CBorrowedFrame
{
public:
    CBorrowedFrame(CAbstractDockFrame *frame, QVBoxLayout *layout);
    CBorrowedFrame(const CBorrowedFrame &) = delete;
    CBorrowedFrame &operator=(const CBorrowedFrame &) = delete;
    ~CBorrowedFrame();

    // Null if the host deleted it, or is deleting it.
    [[nodiscard]] CAbstractDockFrame *Frame() const;

    // Move the frame into the layout, as the first item, and show it.
    void Insert();

    // Returns the frame, or null if it died.
    QPointer<QWidget> GiveBack();

private:
    [[nodiscard]] bool IsOurs() const;

    QPointer<QWidget> frame_; // only a plain widget is left of a frame that emits destroyed()
    QVBoxLayout *const layout_;
    std::optional<QPointer<QWidget>> home_; // the parent it came from; empty if it had no parent
    const Qt::WindowFlags flags_;           // the ones it came with
    QMetaObject::Connection home_watch_;
};

} // namespace Vantor
