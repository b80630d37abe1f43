// SPDX-License-Identifier: MIT
#include "common/SecuritySettings.h"

namespace NimClientFrameWork {

VANTOR_RECORD_DEFINE(CIPLockStruct);
VANTOR_RECORD_DEFINE(CPasswordStrengthStruct);
VANTOR_RECORD_DEFINE(CPasswordExpirtyStruct);
VANTOR_RECORD_DEFINE(CClientLockStruct);
VANTOR_RECORD_DEFINE(CLoginSettingStruct);

} // namespace NimClientFrameWork
