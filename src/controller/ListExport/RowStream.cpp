// SPDX-License-Identifier: MIT
#include "controller/ListExport/RowStream.h"

namespace Vantor {

CRowStream::~CRowStream() = default;

} // namespace Vantor
