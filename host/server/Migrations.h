// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace Server {

class CStore;
struct StoreAddress;

/// \brief Connect to \a address, and bring the tables up to date by the steps that they lack. Of
/// several processes that begin at once, one does it and the others wait. Throws DatabaseError,
/// also for a store that a newer program has changed; StoreUnavailable when trying again may help.
[[nodiscard]] std::unique_ptr<CStore> OpenStore(const StoreAddress &address);

} // namespace Server
