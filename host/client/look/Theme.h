// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtGui/QIcon>

namespace Client {

enum class Theme { Light, Dark, Contrast };

constexpr Theme kThemes[] = {Theme::Light, Theme::Dark, Theme::Contrast};

/// \brief The name of \a theme in settings, file names and resources.
[[nodiscard]] QString ThemeName(Theme theme);
/// \brief The theme of that name; the light one for others.
[[nodiscard]] Theme ThemeOf(const QString &name);

/// \brief Applies a theme file: style sheet, palette, fonts and the colours of the library's style
/// manager.
class CThemeSwitch : public QObject
{
    Q_OBJECT

public:
    explicit CThemeSwitch(QObject *parent = nullptr);

    [[nodiscard]] Theme Current() const { return theme_; }
    void Apply(Theme theme);

    /// \brief An icon of the resources, drawn in the text colour of the current theme.
    [[nodiscard]] static QIcon Icon(const QString &name);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// Emitted after the theme was applied. Receivers must call Icon() again.
    void SignalThemeChanged();

private:
    Theme theme_ = Theme::Light;
};

} // namespace Client
