// SPDX-License-Identifier: MIT
#include "common/TimeZoneRecords.h"

namespace Vantor {

VANTOR_RECORD_DEFINE(CTimeZoneParam);
VANTOR_RECORD_DEFINE(CDaylightSavingTime);
VANTOR_RECORD_DEFINE(CRawTimeZone);
VANTOR_RECORD_DEFINE(CRequestTimeZone);

} // namespace Vantor
