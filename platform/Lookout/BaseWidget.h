// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QWidget>

namespace Lookout {

/// \brief A plug-in's own window beside the main window ("Lookout--CBaseWidget" in a theme). Docks
/// that search the parents for a window stop at this class; nothing else uses it.
class VANTOR_PLATFORM_EXPORT CBaseWidget : public QWidget
{
    Q_OBJECT

public:
    /// \param parent owns the widget; without one it is a window.
    /// \param flags  of the window, as for QWidget.
    explicit CBaseWidget(QWidget *parent = nullptr, Qt::WindowFlags flags = {});
    ~CBaseWidget() override;
};

} // namespace Lookout
