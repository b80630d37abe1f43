// SPDX-License-Identifier: MIT
#pragma once

namespace Server {

/// Kinds of CStore::Lock(). A transaction that needs several locks takes them in this order, and at
/// most one of each kind, so that two transactions never wait for each other.
enum LockKind : int {
    kMigrationLock = 1,
    kAddressLock = 2, ///< the failures and codes of an address
    kUserLock = 3,    ///< those of a user, and what he logs in with
};

} // namespace Server
