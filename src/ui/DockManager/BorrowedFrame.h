// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointer>
#include <QtCore/QVector>

#include <optional>

QT_BEGIN_NAMESPACE
class QVBoxLayout;
class QWidget;
QT_END_NAMESPACE

namespace Vantor {

class CAbstractDockFrame;

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

    // Null if the host deleted it.
    [[nodiscard]] CAbstractDockFrame *Frame() const { return frame_; }

    // Move the frame into the layout, as the first item, and show it.
    void Insert();

    // Returns the frame, or null if it died.
    QPointer<CAbstractDockFrame> GiveBack();

    // `window` is being destroyed: delete the frame if it came from that window, else give it back.
    void OnWindowDestroyed(const QObject *window);

private:
    [[nodiscard]] bool IsOurs() const;

    QPointer<CAbstractDockFrame> frame_;
    QVBoxLayout *const layout_;
    std::optional<QPointer<QWidget>> home_; // the parent it came from; empty if it had no parent
    const Qt::WindowFlags flags_;           // the ones it came with
    QVector<QMetaObject::Connection> home_watches_;
};

} // namespace Vantor
