// SPDX-License-Identifier: MIT
#include "ui/DockManager/DockWidgetPosRule.h"

#include "common/ForwardEvents.h"

namespace Vantor {

CDockWidgetPosRule::CDockWidgetPosRule(QObject *parent) : QObject(parent) {}

CDockWidgetPosRule::~CDockWidgetPosRule() = default;

VANTOR_FORWARD_EVENTS(CDockWidgetPosRule, QObject)

void CDockWidgetPosRule::Place(CDockWidget *, CAbstractDockFrame *, QWidget *, int) {}

void CDockWidgetPosRule::UpdateOnResize(CDockWidget *) {}

} // namespace Vantor
