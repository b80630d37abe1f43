// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/SecretText.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <string>

namespace Server {

class CStore;

/// The longest name and password, in bytes of UTF-8, that an account can have and a login can send.
constexpr size_t kMaximumName = 256;
constexpr size_t kMaximumPassword = 1024;

/// \brief Argon2id hash of \a password, as text with its parameters and salt. Throws
/// std::bad_alloc. Takes about a tenth of a second. Any thread.
[[nodiscard]] QString HashPassword(const std::string &password);
/// \brief Whether \a hash was made from \a password; takes a tenth of a second, too. Any thread.
[[nodiscard]] bool IsRightPassword(const QString &hash, const std::string &password);

/// \brief The hash of the account \a name's password; null when there is no such account.
[[nodiscard]] QString PasswordHashOf(CStore &store, const QString &name);
/// \brief The hash of some account, for names that do not exist.
[[nodiscard]] QString AnyPasswordHash(CStore &store);

/// \brief Add an account, or give it a new password, which ends its sessions. Throws Refused for a
/// name or password that is empty or too long to log in with.
void SetAccount(CStore &store, const QString &name, const std::string &password);

/// \brief The sample accounts that still have the passwords that everybody knows.
[[nodiscard]] QStringList OpenSampleAccounts(CStore &store);

} // namespace Server
