// SPDX-License-Identifier: MIT
#include "BusinessCommon/TimeZoneInfor.h"

namespace BusinessCommon {

VANTOR_RECORD_DEFINE(CTimeZoneInfor);

} // namespace BusinessCommon
