// SPDX-License-Identifier: MIT
#include "ui/SecondAuthentication/SecondAuthentication.h"

#include "ui/SecondAuthentication/LoginSetting.h"

namespace Vantor {

CSecondAuthentication::CSecondAuthentication(QWidget *parent) : QWidget(parent) {}

CSecondAuthentication::~CSecondAuthentication() = default;

bool CSecondAuthentication::GetLoginSetting(NimClientFrameWork::CDaxPwdResponse &response,
                                            NimClientFrameWork::CLoginSettingStruct &setting)
{
    return RequestLoginSetting(response, setting);
}

} // namespace Vantor
