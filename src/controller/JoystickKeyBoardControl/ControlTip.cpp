// SPDX-License-Identifier: MIT
#include "controller/JoystickKeyBoardControl/ControlTip.h"

#include "common/Translate.h"
#include "controller/JoystickKeyBoardControl/JoystickKeyboardControlManager/JoystickKeyboardControlManager.h"

#include <Faceplate/NewInfoDlg.h>

namespace Vantor {
namespace {

constexpr int kDeviceFound = 7;

} // namespace

void ShowControlTip(const char *key, const char *context, bool is_found)
{
    Faceplate::CStruInfoTipsData data;
    data.text = Translate(QLatin1String(key), context);
    if (is_found)
        data.information_type = kDeviceFound;
    if (const auto *const coordinator = CJoystickKeyboardControlManager::Instance())
        data.parent = coordinator->GetTipInfoParentWnd();
    Faceplate::CNewInfoDlg::ShowInformationAtScreenRightBottom_V3(data);
}

} // namespace Vantor
