// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>
#include <Nim/Base/Error.h>

#include <QtCore/QString>

#include <functional>

namespace ErrorText {

using Source = std::function<QString(const Nim::Base::Error::ErrorCode &code)>;

/// \brief The text for the user about \a code, in the language of the installed translators; never
/// empty. Any thread.
///
/// For an unknown code, the text contains its numbers.
[[nodiscard]] VANTOR_BASE_EXPORT QString
GetErrorInfoByErrorCode(const Nim::Base::Error::ErrorCode &code);

/// \brief Take the texts from \a source, which may be called from any thread; an empty function
/// restores the default. If it returns an empty text or throws, the default text is used.
VANTOR_BASE_EXPORT void SetSource(Source source);

} // namespace ErrorText
