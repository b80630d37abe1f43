// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

namespace Server {

class CStore;

/// \brief Delete failures, sessions and codes whose time is over. Nothing depends on it, because
/// those who read them look at the time; it keeps the tables small.
void DropExpired(CStore &store, qint64 now);

} // namespace Server
