// SPDX-License-Identifier: MIT
#include "Faceplate/GUIFullScreenWidget.h"

#include "Nim/Base/Replaceable.h"

#include <QtCore/QEvent>

namespace Faceplate {
namespace {

using Question = bool(const QWidget *);

Nim::Base::CReplaceable<Question> &Source()
{
    static Nim::Base::CReplaceable<Question> source(
        [](const QWidget *widget) { return widget->isFullScreen(); });
    return source;
}

} // namespace

CGUIFullScreenWidget::CGUIFullScreenWidget(QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
{}

CGUIFullScreenWidget::~CGUIFullScreenWidget() = default;

void CGUIFullScreenWidget::SetFullScreenMode(bool on)
{
    if (isWindow() && on != isFullScreen())
        setWindowState(windowState() ^ Qt::WindowFullScreen);
}

void CGUIFullScreenWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || was_full_screen_ == isFullScreen())
        return;
    was_full_screen_ = isFullScreen();
    Q_EMIT SignalFullScreenModeChanged(was_full_screen_);
}

bool IsFullScreenMode(const QWidget *widget)
{
    if (!widget)
        return false;
    try {
        return (*Source().Get())(widget);
    } catch (...) {
        return false;
    }
}

void SetFullScreenModeSource(std::function<bool(const QWidget *)> source)
{
    Source().Set(std::move(source));
}

} // namespace Faceplate
