// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtWidgets/QWidget>

namespace Faceplate {

/// \brief The content of one pop-up at the edge of the screen.
struct CStruInfoTipsData
{
    int text_type = 0;        ///< 0 normal text, shown as it is.
    int information_type = 0; ///< Kind of news; a theme sees it as the property "informationType".
    QString text;             ///< Plain text.
    QPointer<QWidget> parent; ///< The pop-up appears on its screen; null: the primary screen.
};

} // namespace Faceplate
