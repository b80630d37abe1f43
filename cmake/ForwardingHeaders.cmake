# SPDX-License-Identifier: MIT
# Every exported class also has a header of its full name: #include <Vantor/CCSVParser>. This list is
# the one place where they are named; each line is "<class> <header>".
set(VANTOR_FORWARDING_HEADERS
    "CAbstractDelegate ui/AnimationProgressBar/AbstractDelegate.h"
    "CAbstractDockFrame ui/DockManager/AbstractDockFrame.h"
    "CAccountPasswordWidget ui/AccountPassword/AccountPasswordWidget.h"
    "CAdaptiveColumnWidthController ui/CustomizeColumnButton/AdaptiveColumnWidthController.h"
    "CAdaptiveColumnWidthWidget ui/CustomizeColumnButton/AdaptiveColumnWidthWidget.h"
    "CAnimationProgressBar ui/AnimationProgressBar/AnimationProgressBar.h"
    "CBaseDockFrame ui/DockManager/BaseDockFrame.h"
    "CBaseFileProgressBar ui/BaseFileProgressBar/BaseFileProgressBar.h"
    "CChangePwdStruct common/LoginData.h"
    "CCheckPwdResult common/LoginData.h"
    "CClientLockStruct common/SecuritySettings.h"
    "CColumnInfo ui/CustomizeColumnButton/ColumnInfo.h"
    "CComboBoxEx ui/FilterTreeViewEx/ComboBoxEx.h"
    "CComboBoxModel ui/FilterTreeViewEx/ComboBoxModel.h"
    "CControlPermission common/LoginData.h"
    "CCopyFileThread common/CopyFileThread.h"
    "CCSVParser controller/CSV/CSVParser.h"
    "CCustomEvent common/CustomEvent.h"
    "CCustomizeColumnButton ui/CustomizeColumnButton/CustomizeColumnButton.h"
    "CCustomizeColumnWidget ui/CustomizeColumnButton/CustomizeColumnWidget.h"
    "CCustomListItemDelegate ui/CustomizeColumnButton/CustomListItemDelegate.h"
    "CCustomPasswordFrame ui/PasswordFrame/CustomPasswordFrame.h"
    "CDaxCaptchaInfo common/LoginData.h"
    "CDaxCaptchaResponse common/LoginData.h"
    "CDaxLoginParam common/LoginData.h"
    "CDaxLoginParamForChangePwd common/LoginData.h"
    "CDaxLoginResponseData common/LoginData.h"
    "CDaxPwdResponse common/LoginData.h"
    "CDaxResponse common/LoginData.h"
    "CDaylightSavingTime common/TimeZoneRecords.h"
    "CDockManager ui/DockManager/DockManager.h"
    "CDockWidget ui/DockManager/DockWidget.h"
    "CDockWidgetPosRule ui/DockManager/DockWidgetPosRule.h"
    "CEventTransMgr common/EventTransMgr.h"
    "ExcelCloseNotes controller/Excel/ExcelCloseNotes.h"
    "CExcelControllorWithC controller/Excel/ExcelControllorWithC.h"
    "CFilterProxyModelEx ui/FilterTreeViewEx/FilterProxyModelEx.h"
    "CFilterTreeViewEx ui/FilterTreeViewEx/FilterTreeViewEx.h"
    "CFilterWidgetEx ui/FilterTreeViewEx/FilterWidgetEx.h"
    "CIPLockStruct common/SecuritySettings.h"
    "CItemDragMovableListView ui/CustomizeColumnButton/ItemDragMovableListView.h"
    "CJoystickKeyboardControlManager controller/JoystickKeyBoardControl/JoystickKeyboardControlManager/JoystickKeyboardControlManager.h"
    "CJoystickKeyboardEvent controller/JoystickKeyBoardControl/JoystickKeyboardControlManager/JoystickKeyboardEvent.h"
    "CListExport controller/ListExport/ListExport.h"
    "CListSightCheckModel ui/CustomizeColumnButton/ListSightCheckModel.h"
    "CLoginDataInfo common/LoginData.h"
    "CLoginMode common/LoginData.h"
    "CLoginResult common/LoginData.h"
    "CLoginSettingStruct common/SecuritySettings.h"
    "Clxw_format_ controller/Excel/ExcelRecords.h"
    "Clxw_image_options_ controller/Excel/ExcelRecords.h"
    "CMutiPageWidget ui/MutiPageWidget/MutiPageWidget.h"
    "CMutiPageWidgetEx ui/MutiPageWidget/MutiPageWidgetEx.h"
    "COneDayTimeBox ui/OneDayTimeBox/OneDayTimeBox.h"
    "CPasswordExpirtyStruct common/SecuritySettings.h"
    "CPasswordFrame ui/PasswordFrame/PasswordFrame.h"
    "CPasswordFrameBase ui/PasswordFrame/PasswordFrameBase.h"
    "CPasswordLineEditNoInputMethod ui/PasswordFrame/PasswordLineEditNoInputMethod.h"
    "CPasswordStrengthStruct common/SecuritySettings.h"
    "CRawTimeZone common/TimeZoneRecords.h"
    "CRequestTimeZone common/TimeZoneRecords.h"
    "CResquestRSAKeyResult common/LoginData.h"
    "CRowSource controller/ListExport/RowSource.h"
    "CRowStream controller/ListExport/RowStream.h"
    "CScreenStateManager controller/Screen/ScreenStateManager.h"
    "CSecondAuthentication ui/SecondAuthentication/SecondAuthentication.h"
    "CsheetFormat controller/Excel/ExcelRecords.h"
    "CStruVerifyCode controller/SecondAuthentication/StruVerifyCode.h"
    "CStyleManager common/StyleManager.h"
    "CTimeBarDelegate ui/TimeBarDelegate/TimeBarDelegate.h"
    "CTimeBarParam ui/TimeBarDelegate/TimeBarParam.h"
    "CTimeZoneParam common/TimeZoneRecords.h"
    "CUpdateEvent common/UpdateEvent.h"
    "CUSBJoystickControlManager controller/JoystickKeyBoardControl/USBJoystickControlManager/USBJoystickControlManager.h"
    "CVerifycodeRequestObj controller/SecondAuthentication/VerifyCodeRequestObj.h"
    "CVerifyCodeWidget ui/VerifyCodeWidget/VerifyCodeWidget.h"
    "CZellSerialKeyboardControlManager controller/JoystickKeyBoardControl/ZellSerialKeyboardControlManager/ZellSerialKeyboardControlManager.h"
    "CZellUSBKeyboardControlManager controller/JoystickKeyBoardControl/ZellUSBKeyboardControlManager/ZellUSBKeyboardControlManager.h"
    "TimeSliderFile ui/TimeBarDelegate/TimeSliderFile.h"
)

# Writes the forwarding headers below `folder`/Vantor and installs them with the package. The target
# vantor_verify_forwarding_headers compiles each on its own.
function(vantor_forwarding_headers folder)
    set(alone)
    foreach(line IN LISTS VANTOR_FORWARDING_HEADERS)
        string(REPLACE " " ";" pair ${line})
        list(GET pair 0 class)
        list(GET pair 1 header)
        file(CONFIGURE OUTPUT ${folder}/Vantor/${class} @ONLY
            CONTENT "// SPDX-License-Identifier: MIT\n#pragma once\n#include <${header}>\n")
        # Relative, because a client of the package may have its own folder common/.
        file(CONFIGURE OUTPUT ${folder}/installed/Vantor/${class} @ONLY
            CONTENT "// SPDX-License-Identifier: MIT\n#pragma once\n#include \"../${header}\"\n")
        file(CONFIGURE OUTPUT ${folder}/alone/${class}.cpp @ONLY CONTENT "#include <Vantor/${class}>\n")
        list(APPEND alone ${folder}/alone/${class}.cpp)
    endforeach()
    install(DIRECTORY ${folder}/installed/Vantor DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vantor
        COMPONENT dev)
    add_library(vantor_verify_forwarding_headers OBJECT EXCLUDE_FROM_ALL ${alone})
    set_target_properties(vantor_verify_forwarding_headers PROPERTIES AUTOMOC OFF)
    target_link_libraries(vantor_verify_forwarding_headers PRIVATE Vantor::Vantor)
endfunction()
