// SPDX-License-Identifier: MIT
#include "controller/ListExport/RowSource.h"

namespace Vantor {

CRowSource::~CRowSource() = default;

ExportColumnKind CRowSource::Kind(int) const
{
    return ExportColumnKind::ByCell;
}

int CRowSource::WidthChars(int) const
{
    return 0;
}

} // namespace Vantor
