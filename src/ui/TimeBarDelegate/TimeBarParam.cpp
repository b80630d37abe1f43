// SPDX-License-Identifier: MIT
#include "ui/TimeBarDelegate/TimeBarParam.h"

namespace Vantor {

VANTOR_RECORD_DEFINE(CTimeBarParam);

} // namespace Vantor
