// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

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

} // namespace Vantor
