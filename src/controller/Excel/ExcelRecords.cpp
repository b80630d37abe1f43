// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelRecords.h"

namespace Vantor {

VANTOR_RECORD_DEFINE(Clxw_format_);
VANTOR_RECORD_DEFINE(CsheetFormat);
VANTOR_RECORD_DEFINE(Clxw_image_options_);

} // namespace Vantor
