// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>
#include <Nim/Base/Error.h>

#include <QtCore/QString>

#include <functional>

namespace ErrorText {

using Source = std::function<QString(const Nim::Base::Error::ErrorCode &code)>;

/// \brief The text of \a code for the user, in the language of the installed translators. Any
/// thread.
///
/// The text of an unknown code contains its numbers. It is empty only if all words of \a code are
/// 0, which means no error, and the source has no text for that.
[[nodiscard]] VANTOR_BASE_EXPORT QString
GetErrorInfoByErrorCode(const Nim::Base::Error::ErrorCode &code);

/// \brief Take the texts from \a source, which may be called from any thread; an empty function
/// restores the default. If it returns an empty text or throws, the default text is used.
VANTOR_BASE_EXPORT void SetSource(Source source);

} // namespace ErrorText
