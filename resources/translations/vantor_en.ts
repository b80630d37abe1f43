<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>SimpleMutiPageWidgetUi</name>
    <message>
        <source>TheTotalNumberOf%ruHYFtyFtVv</source>
        <translation>Records in total: %1</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Total</translation>
    </message>
    <message>
        <source>TheHomePageIceUgVgXxlcmQes</source>
        <translation>First page</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Previous page</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Next page</translation>
    </message>
    <message>
        <source>LastPage</source>
        <translation>Last page</translation>
    </message>
    <message>
        <source>BatchAlarmConfirmatiglkJZKGR</source>
        <translation>Confirm alarms</translation>
    </message>
    <message>
        <source>Jumpxomgyeiu</source>
        <translation>Jump</translation>
    </message>
    <message>
        <source>TheAdaptive1GOQY412</source>
        <translation>Adaptive</translation>
    </message>
    <message>
        <source>ThereIsNoMatchedResultFound</source>
        <translation>No matching result was found.</translation>
    </message>
    <message>
        <source>RecordsPerPage</source>
        <translation>Records per page</translation>
    </message>
    <message>
        <source>CurrentPage</source>
        <translation>Current page</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>ClearFilter</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>MoreFilter</source>
        <translation>More</translation>
    </message>
    <message>
        <source>KeyWord</source>
        <translation>Keyword</translation>
    </message>
    <message>
        <source>ShowFilter</source>
        <translation>Show or hide the filter</translation>
    </message>
    <message>
        <source>All</source>
        <translation>All</translation>
    </message>
    <message>
        <source>Blank</source>
        <translation>Blank</translation>
    </message>
</context>
<context>
    <name>Vantor</name>
    <message>
        <source>Password</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>TheCapsLockKeyOpensPtQBnbXZa</source>
        <translation>Caps Lock is on</translation>
    </message>
    <message>
        <source>HidePassword</source>
        <translation>Hide the password</translation>
    </message>
    <message>
        <source>ShowPassword</source>
        <translation>Show the password</translation>
    </message>
    <message>
        <source>VerificationCode</source>
        <translation>Verification code</translation>
    </message>
    <message>
        <source>ClickForAnotherImage</source>
        <translation>Click for another image</translation>
    </message>
    <message>
        <source>ThePasswordIsEmptydADZgBNplv</source>
        <translation>Enter the password.</translation>
    </message>
    <message>
        <source>TheVerificationCodeCannotBeEmpty</source>
        <translation>Enter the verification code.</translation>
    </message>
    <message>
        <source>TheImageCannotBeShown</source>
        <translation>The image of the verification code cannot be shown. Click to try again.</translation>
    </message>
    <message>
        <source>TheCheckFailed</source>
        <translation>The password could not be checked.</translation>
    </message>
    <message>
        <source>ACheckIsRunning</source>
        <translation>The password is already being checked.</translation>
    </message>
    <message>
        <source>RequestTimeOut</source>
        <translation>The check took too long. </translation>
    </message>
    <message>
        <source>UserName</source>
        <translation>User name</translation>
    </message>
    <message>
        <source>RemainingLEesrBBJA</source>
        <translation> Attempts left: %1.</translation>
    </message>
    <message>
        <source>Peltra.ee229a03a27748f2bb7b3e2a08484b6a.msg</source>
        <translation>Try again in %1 s.</translation>
    </message>
    <message>
        <source>Peltra.41c6a3785fc04331bd942f16e691f805.msg</source>
        <translation>Try again in %1 min %2 s.</translation>
    </message>
    <message>
        <source>The user name or the password is wrong.</source>
        <translation>The user name or the password is wrong.</translation>
    </message>
    <message>
        <source>The verification code is wrong.</source>
        <translation>The verification code is wrong.</translation>
    </message>
    <message>
        <source>A verification code is needed.</source>
        <translation>A verification code is needed.</translation>
    </message>
    <message>
        <source>This user is locked.</source>
        <translation>This user is locked.</translation>
    </message>
    <message>
        <source>This address is locked.</source>
        <translation>This address is locked.</translation>
    </message>
    <message>
        <source>TheUSBKeyboardIsDetected</source>
        <translation>USB keyboard detected</translation>
    </message>
    <message>
        <source>TheUSBKeyboardDisconnected</source>
        <translation>USB keyboard disconnected</translation>
    </message>
    <message>
        <source>USBJoystickDeviceIsFound</source>
        <translation>USB joystick found</translation>
    </message>
    <message>
        <source>TheUSBJoystickDisconnected</source>
        <translation>USB joystick disconnected</translation>
    </message>
    <message>
        <source>USBJoystickIsCurrentjebLzucZ</source>
        <translation>Window control is on</translation>
    </message>
    <message>
        <source>USBRockerIsCurrentlyDLwSBpeZ</source>
        <translation>Camera control is on</translation>
    </message>
    <message>
        <source>SwitchToWallModeAJryBrmWGiU</source>
        <translation>Wall mode is on</translation>
    </message>
    <message>
        <source>SwitchToVideoModeMrVWQzLOUDm</source>
        <translation>Video mode is on</translation>
    </message>
    <message>
        <source>Please wait</source>
        <translation>Please wait</translation>
    </message>
    <message>
        <source>The list could not be read</source>
        <translation>The list could not be read</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Columns</translation>
    </message>
    <message>
        <source>Choose columns</source>
        <translation>Choose columns</translation>
    </message>
    <message>
        <source>All columns</source>
        <translation>All columns</translation>
    </message>
    <message>
        <source>Loading…</source>
        <translation>Loading…</translation>
    </message>
    <message>
        <source>Could not be read</source>
        <translation>Could not be read</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Try again</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Reset</translation>
    </message>
    <message>
        <source>Shows the columns as they were at first.</source>
        <translation>Shows the columns as they were at first.</translation>
    </message>
    <message>
        <source>Space shows and hides a column, Alt and the arrow keys move it.</source>
        <translation>Space shows and hides a column, Alt and the arrow keys move it.</translation>
    </message>
    <message>
        <source>Column width</source>
        <translation>Column width</translation>
    </message>
    <message>
        <source>Minimum width</source>
        <translation>Minimum width</translation>
    </message>
    <message>
        <source>Maximum width</source>
        <translation>Maximum width</translation>
    </message>
    <message>
        <source>Peltra.9778d4835a7946b6ab94c46d137616dc.name</source>
        <translation>The choice of columns could not be loaded or saved. %1</translation>
    </message>
    <message>
        <source>The server does not answer.</source>
        <translation>The server does not answer.</translation>
    </message>
    <message>
        <source>The server cannot be reached.</source>
        <translation>The server cannot be reached.</translation>
    </message>
    <message>
        <source>There is no secure connection to the server.</source>
        <translation>There is no secure connection to the server.</translation>
    </message>
    <message>
        <source>The certificate of the server is not trusted.</source>
        <translation>The certificate of the server is not trusted.</translation>
    </message>
    <message>
        <source>The connection to the server broke.</source>
        <translation>The connection to the server broke.</translation>
    </message>
    <message>
        <source>The answer of the server is too large.</source>
        <translation>The answer of the server is too large.</translation>
    </message>
    <message>
        <source>The answer of the server makes no sense.</source>
        <translation>The answer of the server makes no sense.</translation>
    </message>
    <message>
        <source>You are not logged in.</source>
        <translation>You are not logged in.</translation>
    </message>
    <message>
        <source>You may not do this.</source>
        <translation>You may not do this.</translation>
    </message>
    <message>
        <source>This is more than the server takes.</source>
        <translation>This is more than the server takes.</translation>
    </message>
    <message>
        <source>The server refused the request.</source>
        <translation>The server refused the request.</translation>
    </message>
    <message>
        <source>Something went wrong.</source>
        <translation>Something went wrong.</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>Not a regular file</translation>
    </message>
    <message>
        <source>Confirm</source>
        <translation>Confirm</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>Vantor::CAnimationProgressBar</name>
    <message>
        <source>Time line</source>
        <translation>Time line</translation>
    </message>
</context>
<context>
    <name>Vantor::CBaseFileProgressBar</name>
    <message>
        <source>Start: %1</source>
        <translation>Start: %1</translation>
    </message>
    <message>
        <source>End: %1</source>
        <translation>End: %1</translation>
    </message>
</context>
</TS>
