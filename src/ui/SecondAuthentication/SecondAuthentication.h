// SPDX-License-Identifier: MIT
#pragma once

#include "common/LoginData.h"
#include "common/SecuritySettings.h"

#include <VantorExport.h>

#include <QtWidgets/QWidget>

namespace Vantor {

/// \brief The unlock page of a second user. The client gives it its contents; the class itself only
/// fetches the security settings, see RequestLoginSetting().
class VANTOR_EXPORT CSecondAuthentication : public QWidget
{
    Q_OBJECT

public:
    explicit CSecondAuthentication(QWidget *parent = nullptr);
    ~CSecondAuthentication() override;

private:
    bool GetLoginSetting(NimClientFrameWork::CDaxPwdResponse &response,
                         NimClientFrameWork::CLoginSettingStruct &setting);
};

} // namespace Vantor
