// SPDX-License-Identifier: MIT
#pragma once

namespace Server {

class CStore;

/// \brief Bring the tables of \a store up to date, by the steps that it does not have yet. Of
/// several processes that begin at once, one does it and the others wait. Throws DatabaseError,
/// also for a store that a newer program has changed.
void Migrate(CStore &store);

} // namespace Server
