// SPDX-License-Identifier: MIT
#include "common/LoginData.h"

namespace NimClientFrameWork {

VANTOR_RECORD_DEFINE(CLoginMode);
VANTOR_RECORD_DEFINE(CLoginDataInfo);
VANTOR_RECORD_DEFINE(CDaxLoginParam);
VANTOR_RECORD_DEFINE(CResquestRSAKeyResult);
VANTOR_RECORD_DEFINE(CDaxResponse);
VANTOR_RECORD_DEFINE(CLoginResult);
VANTOR_RECORD_DEFINE(CDaxCaptchaResponse);
VANTOR_RECORD_DEFINE(CDaxCaptchaInfo);
VANTOR_RECORD_DEFINE(CDaxLoginResponseData);
VANTOR_RECORD_DEFINE(CControlPermission);
VANTOR_RECORD_DEFINE(CDaxPwdResponse);
VANTOR_RECORD_DEFINE(CChangePwdStruct);
VANTOR_RECORD_DEFINE(CDaxLoginParamForChangePwd);
VANTOR_RECORD_DEFINE(CCheckPwdResult);

} // namespace NimClientFrameWork
