// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QString>

namespace Vantor {

/// \brief The text of \a key in the language of the installed translators.
///
/// Looked up in \a context (a class's own, when given), then in "SimpleMutiPageWidgetUi", then in
/// "Vantor"; a key that none of them knows comes back unchanged, an empty key as an empty text. Any
/// thread. A host's translator that throws counts as one that does not know the key.
[[nodiscard]] VANTOR_EXPORT QString Translate(const QString &key, const char *context = nullptr);

/// \brief \a text with "%1" replaced by \a argument; a text without "%1" comes back as it is,
/// without a warning.
[[nodiscard]] VANTOR_EXPORT QString FillArgument(const QString &text, const QString &argument);

} // namespace Vantor
