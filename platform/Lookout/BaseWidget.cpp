// SPDX-License-Identifier: MIT
#include "Lookout/BaseWidget.h"

namespace Lookout {

CBaseWidget::CBaseWidget(QWidget *parent, Qt::WindowFlags flags) : QWidget(parent, flags) {}

CBaseWidget::~CBaseWidget() = default;

} // namespace Lookout
