// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtCore/QTranslator>

#include <array>

namespace Client {

/// \brief A language that the client speaks. One line in Language.cpp and two translation files add
/// another.
struct Language
{
    const char *code;
    const char16_t *own_name; ///< as its speakers write it
    Qt::LayoutDirection direction;
};

constexpr Language kLanguages[] = {
    {"en", u"English", Qt::LeftToRight},
    {"ar", u"العربية", Qt::RightToLeft},
};

/// \brief Switches the application's texts, numbers and reading direction while it runs.
///
/// Windows follow through QEvent::LanguageChange, which comes with the event loop.
class CLanguageSwitch
{
public:
    [[nodiscard]] QString Current() const { return code_; }
    /// \brief Speak the language \a code, or English when it is none of ours.
    void Apply(const QString &code);

    /// \brief The code of the language that the system speaks.
    [[nodiscard]] static QString SystemCode();

private:
    QString code_;
    // Of the library, of the client and of Qt's own dialogs.
    std::array<QTranslator, 3> translators_;
};

} // namespace Client
