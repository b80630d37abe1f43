// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QStyle>
#include <QtWidgets/QWidget>

namespace Vantor {

/// \brief Apply the style sheet to \a widget again, after a change of its object name or of a
/// property that selectors name.
inline void Repolish(QWidget *widget)
{
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

} // namespace Vantor
