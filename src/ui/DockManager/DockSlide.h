// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointer>

#include <functional>

QT_BEGIN_NAMESPACE
class QPropertyAnimation;
class QWidget;
QT_END_NAMESPACE

namespace Vantor {

// Animates the "size" of a dock from one width to another, at the height that the dock has.
class CDockSlide
{
public:
    CDockSlide() = default;
    CDockSlide(const CDockSlide &) = delete;
    CDockSlide &operator=(const CDockSlide &) = delete;
    ~CDockSlide() { Stop(); }

    // Stops the slide that is running. `finished` is called at the end, unless this slide is
    // stopped before.
    void Start(QWidget *dock, int from_px, int to_px, const std::function<void()> &finished);
    void Stop();

private:
    QPointer<QPropertyAnimation> animation_;
};

} // namespace Vantor
