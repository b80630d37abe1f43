// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QPoint>
#include <QtCore/QString>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Ravel {

/// \brief The client's tool tip. GUI thread.
class VANTOR_PLATFORM_EXPORT CToolTip
{
public:
    /// \brief Show \a text, plain or rich, at \a global_pos until the user moves on; an empty text
    /// hides it.
    /// \param widget the widget that the tip belongs to; may be null.
    static void showText(const QPoint &global_pos, const QString &text, QWidget *widget = nullptr);
};

} // namespace Ravel
