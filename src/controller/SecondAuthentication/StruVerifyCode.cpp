// SPDX-License-Identifier: MIT
#include "controller/SecondAuthentication/StruVerifyCode.h"

namespace Vantor {

VANTOR_RECORD_DEFINE(CStruVerifyCode);

} // namespace Vantor
