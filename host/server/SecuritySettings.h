// SPDX-License-Identifier: MIT
#pragma once

#include "Message.h"

namespace Server {

class CStore;

// All of it is called on the store's thread.

/// \brief What the settings say about wrong passwords.
struct LockSettings
{
    bool is_limited = false;
    int failures = 1;  ///< of one user from one address, until the lock
    qint64 lock_s = 0; ///< seconds
};

/// \brief Give every security setting that is missing its default.
void SetDefaults(CStore &store);

[[nodiscard]] LockSettings ReadLockSettings(CStore &store);

/// \brief The security settings as clients read them.
[[nodiscard]] Reply ReadSecuritySetting(CStore &store);

} // namespace Server
