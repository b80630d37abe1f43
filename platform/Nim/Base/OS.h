// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QString>

#include <functional>

namespace Nim::Base::OS {

/// \brief Get the list separator of the user's locale, which separates the columns of CSV files
/// there. Any thread.
///
/// \return false, and \a separator unchanged, if the system has no list separator or an empty one.
[[nodiscard]] VANTOR_PLATFORM_EXPORT bool GetListSeparator(QString &separator);

/// \return the separator of GetListSeparator(), or "," if that is empty.
[[nodiscard]] VANTOR_PLATFORM_EXPORT QString ListSeparator();

/// \brief Replace the source of GetListSeparator(); an empty function restores the default.
///
/// The default is the system's own call on Windows; elsewhere ";" when the locale's decimal point
/// is ",", else ",". Called from any thread, once for each collected line and each write; so it
/// must be cheap and thread-safe. An exception counts as no answer.
VANTOR_PLATFORM_EXPORT void SetListSeparatorSource(std::function<bool(QString &)> source);

/// \brief Whether Caps Lock is on. GUI thread; call it on focus and on key events, do not poll.
[[nodiscard]] VANTOR_PLATFORM_EXPORT bool IsCapsLockOn();

/// \brief Replace the source of IsCapsLockOn(); an empty function restores the default.
///
/// The default is the key state on Windows, the keyboard indicator where there is an X display, and
/// off elsewhere.
VANTOR_PLATFORM_EXPORT void SetCapsLockSource(std::function<bool()> source);

} // namespace Nim::Base::OS
