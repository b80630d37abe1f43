// SPDX-License-Identifier: MIT
#pragma once

#include "ServerOptions.h"

namespace Server {

class CStore;

/// \brief Copy all rows of \a from into \a to, which must be empty, in one transaction. Throws
/// DatabaseError; nothing is then copied.
void CopyRows(CStore &from, CStore &to, const CopyProgress &progress);

} // namespace Server
