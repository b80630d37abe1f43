// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/ColumnInfo.h"

namespace Vantor {

VANTOR_RECORD_DEFINE(CColumnInfo);

} // namespace Vantor
