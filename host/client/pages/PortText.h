// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace Client {

/// \brief Why the serial port at \a path cannot be used, in the user's language: the group that its
/// user must be a member of where permission is missing.
/// \param reason the system's text, used when nothing better is known.
[[nodiscard]] QString RefusalText(const QString &path, const QString &reason);

/// \brief Whether \a target is "host:port" and no path of a serial port.
[[nodiscard]] bool IsTcpAddress(const QString &target);

} // namespace Client
