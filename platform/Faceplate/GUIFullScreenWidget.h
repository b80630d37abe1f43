// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QWidget>

#include <functional>

namespace Faceplate {

/// \brief A window that can fill its screen, such as a live view ("Faceplate--CGUIFullScreenWidget"
/// in a theme).
class VANTOR_PLATFORM_EXPORT CGUIFullScreenWidget : public QWidget
{
    Q_OBJECT

public:
    /// \param parent owns the widget; without one it is a window.
    /// \param flags  of the window, as for QWidget.
    explicit CGUIFullScreenWidget(QWidget *parent = nullptr, Qt::WindowFlags flags = {});
    ~CGUIFullScreenWidget() override;

    /// \brief Fill the screen, or restore the earlier size and state. A widget inside a window does
    /// not change.
    void SetFullScreenMode(bool on);

Q_SIGNALS:
    /// Emitted after the mode changed, also if the window system changed it.
    void SignalFullScreenModeChanged(bool on);

protected:
    void changeEvent(QEvent *event) override;

private:
    bool was_full_screen_ = false;
};

/// \brief Whether \a widget is in full-screen mode; null is not. GUI thread.
[[nodiscard]] VANTOR_PLATFORM_EXPORT bool IsFullScreenMode(const QWidget *widget);

/// \brief Ask \a source instead of QWidget::isFullScreen(), for windows that fill the screen in
/// another way. An empty function restores the default. A function that throws counts as "no".
VANTOR_PLATFORM_EXPORT void
SetFullScreenModeSource(std::function<bool(const QWidget *widget)> source);

} // namespace Faceplate
