// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtGui/QIcon>

namespace Client {

enum class Theme { Light, Dark };

/// \brief Dresses the application: style sheet, palette, fonts and the colours of the library's
/// style manager, all from one theme file.
class CThemeSwitch : public QObject
{
    Q_OBJECT

public:
    explicit CThemeSwitch(QObject *parent = nullptr);

    [[nodiscard]] Theme Current() const { return theme_; }
    void Apply(Theme theme);

    /// \brief A picture of ours, drawn in the text colour of the current theme.
    [[nodiscard]] static QIcon Icon(const QString &name);

Q_SIGNALS:
    /// Emitted when everything wears the new theme; icons are to be asked for again.
    void SignalThemeChanged();

private:
    Theme theme_ = Theme::Light;
};

} // namespace Client
