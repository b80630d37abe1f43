// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtCore/QTranslator>

#include <array>

namespace Client {

/// \brief A language of the client. Another language needs one line in Language.cpp and two
/// translation files.
struct Language
{
    const char *code;
    const char16_t *own_name; ///< as its speakers write it
    Qt::LayoutDirection direction;
};

constexpr Language kLanguages[] = {
    {"en", u"English", Qt::LeftToRight},
    {"ar", u"العربية", Qt::RightToLeft},
    {"zh_CN", u"简体中文", Qt::LeftToRight},
};

/// \brief Switches texts, numbers and reading direction of the application while it runs.
///
/// Windows follow on QEvent::LanguageChange, which the event loop delivers.
class CLanguageSwitch
{
public:
    [[nodiscard]] QString Current() const { return code_; }
    /// \brief Switch to the language \a code, or to English if the client does not have it.
    void Apply(const QString &code);

    /// \brief The code of the user's language, which the library has found at its start.
    [[nodiscard]] static QString SystemCode();

private:
    QString code_;
    // Of Qt's own dialogs and of the client.
    std::array<QTranslator, 2> translators_;
};

/// \brief Keep the order within \a text, a name or a date, in a sentence of the other direction
/// (Unicode's isolates).
[[nodiscard]] QString Isolated(const QString &text);

} // namespace Client
