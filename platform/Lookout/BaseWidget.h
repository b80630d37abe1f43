// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QWidget>

namespace Lookout {

/// \brief The window of a plug-in that stands by itself beside the main window. A docked panel that
/// looks for its window stops here ("Lookout--CBaseWidget" in a theme).
class VANTOR_PLATFORM_EXPORT CBaseWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CBaseWidget(QWidget *parent = nullptr, Qt::WindowFlags flags = {});
    ~CBaseWidget() override;
};

} // namespace Lookout
