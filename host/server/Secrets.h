// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace Server {

/// \brief BLAKE2b of \a secret, which nobody can guess. The store keeps these, because who reads it
/// must not be able to use what clients hold. Any thread.
[[nodiscard]] QByteArray HashOf(const QByteArray &secret);

/// \brief 256 random bits, in the letters of URLs. Any thread.
[[nodiscard]] QString NewSecret();

} // namespace Server
