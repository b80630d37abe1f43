// SPDX-License-Identifier: MIT
#include "ui/DockManager/DockWidgetPosRule.h"

namespace Vantor {

CDockWidgetPosRule::CDockWidgetPosRule(QObject *parent) : QObject(parent) {}

CDockWidgetPosRule::~CDockWidgetPosRule() = default;

bool CDockWidgetPosRule::event(QEvent *event)
{
    return QObject::event(event);
}

bool CDockWidgetPosRule::eventFilter(QObject *watched, QEvent *event)
{
    return QObject::eventFilter(watched, event);
}

void CDockWidgetPosRule::Place(CDockWidget *, CAbstractDockFrame *, QWidget *, int) {}

void CDockWidgetPosRule::UpdateOnResize(CDockWidget *) {}

} // namespace Vantor
