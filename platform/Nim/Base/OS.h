// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QString>

#include <functional>

namespace Nim::Base::OS {

/// \brief Ask for the list separator of the user's locale: what stands between the columns of a CSV
/// file there. Any thread.
///
/// \return false, and \a separator unchanged, when the system gives none. An empty answer counts as
/// none.
[[nodiscard]] VANTOR_PLATFORM_EXPORT bool GetListSeparator(QString &separator);

/// \return what GetListSeparator() gives, or "," when there is none.
[[nodiscard]] VANTOR_PLATFORM_EXPORT QString ListSeparator();

/// \brief Replace where GetListSeparator() asks; an empty function restores the default.
///
/// The default is the system's own call on Windows; elsewhere ";" when the locale's decimal point
/// is ",", else ",". Called from any thread, once for each collected line and each write; so
/// it must be cheap and thread-safe. If it throws, there is no answer.
VANTOR_PLATFORM_EXPORT void SetListSeparatorSource(std::function<bool(QString &)> source);

/// \brief Whether Caps Lock is on. GUI thread; meant to be asked on focus and on a key, not polled.
[[nodiscard]] VANTOR_PLATFORM_EXPORT bool IsCapsLockOn();

/// \brief Replace where IsCapsLockOn() asks; an empty function restores the default.
///
/// The default is the key state on Windows, the keyboard indicator where there is an X display, and
/// off elsewhere.
VANTOR_PLATFORM_EXPORT void SetCapsLockSource(std::function<bool()> source);

} // namespace Nim::Base::OS
