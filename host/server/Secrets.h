// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace Server {

/// \brief BLAKE2b of \a secret, which must be too long to guess. The store keeps only hashes, so
/// that a reader of the database cannot use the secrets of clients. Any thread.
[[nodiscard]] QByteArray HashOf(const QByteArray &secret);

/// \brief 256 random bits, in the letters of URLs. Any thread.
[[nodiscard]] QString NewSecret();

} // namespace Server
