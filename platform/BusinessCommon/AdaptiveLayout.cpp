// SPDX-License-Identifier: MIT
#include "BusinessCommon/AdaptiveLayout.h"

namespace BusinessCommon {

VANTOR_RECORD_DEFINE(CAdaptiveLayout);

} // namespace BusinessCommon
