// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

namespace Server {

class CStore;

/// \brief Delete failures, sessions and codes whose time is over. This only keeps the tables small:
/// every reader of a row checks its time.
void DropExpired(CStore &store, qint64 now);

} // namespace Server
