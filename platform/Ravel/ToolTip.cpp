// SPDX-License-Identifier: MIT
#include "Ravel/ToolTip.h"

#include <QtWidgets/QToolTip>

namespace Ravel {

void CToolTip::showText(const QPoint &global_pos, const QString &text, QWidget *widget)
{
    QToolTip::showText(global_pos, text, widget);
}

} // namespace Ravel
