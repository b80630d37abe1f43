// SPDX-License-Identifier: MIT
#pragma once

#include "common/LoginData.h"
#include "common/SecuritySettings.h"

namespace Vantor {

/// \brief Ask the server for its security settings and wait for the reply. Any thread.
///
/// \param response its error is filled when this returns false: all codes if the exchange failed,
///                 the first two if the server refused.
/// \return true for any other reply, whatever its contents; see ParseLoginSetting().
[[nodiscard]] VANTOR_EXPORT bool
RequestLoginSetting(NimClientFrameWork::CDaxPwdResponse &response,
                    NimClientFrameWork::CLoginSettingStruct &setting);

/// \brief Read the security settings out of \a reply, JSON.
///
/// A number that is missing becomes -1. A reply without "SecuritySetting", and one that is no JSON,
/// leaves \a setting as it is, with true all the same.
VANTOR_EXPORT bool ParseLoginSetting(const std::string &reply,
                                     NimClientFrameWork::CLoginSettingStruct &setting);

} // namespace Vantor
