// SPDX-License-Identifier: MIT
#include "ui/DockManager/DockSlide.h"

#include <QtCore/QPropertyAnimation>
#include <QtWidgets/QWidget>

namespace Vantor {
namespace {

constexpr int kDurationMs = 300;

} // namespace

void CDockSlide::Start(QWidget *dock, int from_px, int to_px, const std::function<void()> &finished)
{
    Stop();
    animation_ = new QPropertyAnimation(dock, QByteArrayLiteral("size"), dock);
    animation_->setDuration(kDurationMs);
    animation_->setStartValue(QSize(from_px, dock->height()));
    animation_->setEndValue(QSize(to_px, dock->height()));
    QObject::connect(animation_.data(), &QPropertyAnimation::finished, dock, finished);
    animation_->start(QAbstractAnimation::DeleteWhenStopped);
}

void CDockSlide::Stop()
{
    // A stopped animation does not emit finished(). Qt deletes it later, because this may be its
    // finished() handler.
    if (animation_)
        animation_->stop();
    animation_.clear();
}

} // namespace Vantor
