// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QPointer>
#include <QtGui/QColor>
#include <QtWidgets/QWidget>

namespace Ravel {

/// \brief A soft shadow that a panel casts on the window below it.
///
/// It is a child of that window, drawn over its content and transparent for the mouse. So it needs
/// no compositing window system, and is cut at the edge of the window. It moves, shows and hides
/// with its panel, and is deleted with it. GUI thread only.
///
/// In a theme: \code Ravel--CShadowWidget { qproperty-ShadowColor: rgba(0, 0, 0, 110); } \endcode
class VANTOR_PLATFORM_EXPORT CShadowWidget : public QWidget
{
    Q_OBJECT
    /// The darkest tone, at the edge of the panel.
    Q_PROPERTY(QColor ShadowColor READ ShadowColor WRITE SetShadowColor)

public:
    /// \brief Where the shadow is.
    enum ShadowMode : int {
        kNoShadow = 0,     ///< hides the widget
        kShadowAround = 1, ///< on all four sides
    };

    /// How far the shadow reaches, in pixels.
    static constexpr int kReachPx = 14;

    /// \param window that the shadow falls on.
    explicit CShadowWidget(QWidget *window);
    ~CShadowWidget() override;

    /// \brief Follow \a panel, a window or a widget, from now on; hidden until the panel is shown
    /// next.
    void Wrap(QWidget *panel, int mode);

    /// \brief The darkest tone, at the edge of the panel; it fades to nothing over kReachPx.
    [[nodiscard]] QColor ShadowColor() const { return color_; }
    /// \brief Repaints with \a color.
    void SetShadowColor(const QColor &color);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void Follow();

    QPointer<QWidget> panel_;
    int mode_ = kNoShadow;
    QColor color_;
};

} // namespace Ravel
