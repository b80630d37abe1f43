// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Vantor {

// Reports what happens to a widget and to the window that contains it.
class CWindowWatch : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // Replaces the widget watched before; null watches nothing.
    void Watch(QWidget *widget);

    [[nodiscard]] QWidget *Window() const { return window_; }

    // The user has hidden or minimised the window. A window that was never shown is not away.
    [[nodiscard]] bool IsAway() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    // Moved or resized.
    void SignalMoved();
    // IsAway() may have changed.
    void SignalShownOrHidden();
    // The window, or the widget in it, is being destroyed.
    void SignalDestroyed(const QObject *window);

private:
    QPointer<QWidget> widget_;
    QPointer<QWidget> window_; // may be the same
};

} // namespace Vantor
