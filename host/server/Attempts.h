// SPDX-License-Identifier: MIT
#pragma once

#include "SecuritySettings.h"

#include <QtCore/QString>

namespace Server {

class CStore;

// Counts tries of passwords, and locks. A try is counted as a failure before the password is looked
// at, and the count is taken back if the password was right. So when the count cannot be stored,
// the password is not checked. All of it is called on the store's thread; what writes is called
// within a transaction.

/// \brief Who tries, and where. With IPv6 the address is that of a network of 64 bits.
struct Trier
{
    QString address;
    QString user;
};

enum class Lock {
    None,
    User,    ///< this user, from this address or from everywhere
    Address, ///< every user, from this address
};

/// \brief The failures and locks of a user before, or after, a try.
struct Standing
{
    Lock lock = Lock::None;
    int failures = 0;       ///< of the user from this address
    int remaining = -1;     ///< tries left until the lock; -1: not limited
    qint64 lock_left_s = 0; ///< of a lock, in seconds
};

/// \param own how many of the counted tries to ignore: 1 for the one under way.
[[nodiscard]] Standing StandingOf(CStore &store, const LockSettings &settings, const Trier &trier,
                                  qint64 now, int own = 0);
/// \brief Until the end of the transaction no other server counts for this address or this user,
/// so that the state read before a try still holds when the try is counted.
void LockCounters(CStore &store, const Trier &trier);
void CountTry(CStore &store, const LockSettings &settings, const Trier &trier, qint64 now);
/// \brief The password was right: the user's failures from this address are forgotten, also those
/// that counted for the address or for the user everywhere. For 30 days the lock of the user
/// everywhere does not hold for him here.
void TakeBackTry(CStore &store, const Trier &trier, qint64 now);

} // namespace Server
