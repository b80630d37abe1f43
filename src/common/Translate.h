// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QLocale>
#include <QtCore/QString>

namespace Vantor {

/// \brief The text of \a key in the language of the installed translators.
///
/// Looked up in \a context (that of a class, if given), then in "SimpleMutiPageWidgetUi", then in
/// "Vantor". An unknown key is returned unchanged, an empty key gives an empty text. Any thread. A
/// host's translator that throws counts as one that does not know the key.
[[nodiscard]] VANTOR_EXPORT QString Translate(const QString &key, const char *context = nullptr);

/// \brief \a text with "%1" replaced by \a argument; a text without "%1" is returned unchanged,
/// without a warning.
[[nodiscard]] VANTOR_EXPORT QString FillArgument(const QString &text, const QString &argument);

/// \brief Show the library's texts in the language of \a locale, or else in English, in place of
/// the language before.
///
/// Each application object begins with the user's language, so only a program that lets the user
/// choose has to call this. Windows follow on QEvent::LanguageChange; the layout direction stays
/// the host's. Translators that the host installs later are asked first. GUI thread; without an
/// application object nothing happens.
/// \return The language that is shown now, as in a file name: "en", "ar" or "zh_CN".
VANTOR_EXPORT QString InstallTranslations(const QLocale &locale = QLocale());

/// \brief Leave the texts to the host: a key that its translators do not know is shown as it is.
///
/// Called before the application object is made, or after. GUI thread.
VANTOR_EXPORT void RemoveTranslations();

} // namespace Vantor
