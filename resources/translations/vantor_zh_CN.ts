<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>SimpleMutiPageWidgetUi</name>
    <message>
        <source>TheTotalNumberOf%ruHYFtyFtVv</source>
        <translation>共 %1 条记录</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>总数</translation>
    </message>
    <message>
        <source>TheHomePageIceUgVgXxlcmQes</source>
        <translation>首页</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>上一页</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>下一页</translation>
    </message>
    <message>
        <source>LastPage</source>
        <translation>末页</translation>
    </message>
    <message>
        <source>BatchAlarmConfirmatiglkJZKGR</source>
        <translation>确认报警</translation>
    </message>
    <message>
        <source>Jumpxomgyeiu</source>
        <translation>跳转</translation>
    </message>
    <message>
        <source>TheAdaptive1GOQY412</source>
        <translation>自适应</translation>
    </message>
    <message>
        <source>ThereIsNoMatchedResultFound</source>
        <translation>没有找到匹配的结果。</translation>
    </message>
    <message>
        <source>RecordsPerPage</source>
        <translation>每页记录数</translation>
    </message>
    <message>
        <source>CurrentPage</source>
        <translation>当前页</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>ClearFilter</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>MoreFilter</source>
        <translation>更多</translation>
    </message>
    <message>
        <source>KeyWord</source>
        <translation>关键字</translation>
    </message>
    <message>
        <source>ShowFilter</source>
        <translation>显示或隐藏筛选</translation>
    </message>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Blank</source>
        <translation>空白</translation>
    </message>
</context>
<context>
    <name>Vantor</name>
    <message>
        <source>Password</source>
        <translation>密码</translation>
    </message>
    <message>
        <source>TheCapsLockKeyOpensPtQBnbXZa</source>
        <translation>大写锁定已打开</translation>
    </message>
    <message>
        <source>HidePassword</source>
        <translation>隐藏密码</translation>
    </message>
    <message>
        <source>ShowPassword</source>
        <translation>显示密码</translation>
    </message>
    <message>
        <source>VerificationCode</source>
        <translation>验证码</translation>
    </message>
    <message>
        <source>ClickForAnotherImage</source>
        <translation>单击换一张图片</translation>
    </message>
    <message>
        <source>ThePasswordIsEmptydADZgBNplv</source>
        <translation>请输入密码。</translation>
    </message>
    <message>
        <source>TheVerificationCodeCannotBeEmpty</source>
        <translation>请输入验证码。</translation>
    </message>
    <message>
        <source>TheImageCannotBeShown</source>
        <translation>无法显示验证码图片。单击重试。</translation>
    </message>
    <message>
        <source>TheCheckFailed</source>
        <translation>无法验证密码。</translation>
    </message>
    <message>
        <source>ACheckIsRunning</source>
        <translation>正在验证密码。</translation>
    </message>
    <message>
        <source>RequestTimeOut</source>
        <translation>验证超时。 </translation>
    </message>
    <message>
        <source>UserName</source>
        <translation>用户名</translation>
    </message>
    <message>
        <source>RemainingLEesrBBJA</source>
        <translation> 剩余尝试次数：%1。</translation>
    </message>
    <message>
        <source>Peltra.ee229a03a27748f2bb7b3e2a08484b6a.msg</source>
        <translation>请在 %1 秒后重试。</translation>
    </message>
    <message>
        <source>Peltra.41c6a3785fc04331bd942f16e691f805.msg</source>
        <translation>请在 %1 分 %2 秒后重试。</translation>
    </message>
    <message>
        <source>The user name or the password is wrong.</source>
        <translation>用户名或密码错误。</translation>
    </message>
    <message>
        <source>The verification code is wrong.</source>
        <translation>验证码错误。</translation>
    </message>
    <message>
        <source>A verification code is needed.</source>
        <translation>需要验证码。</translation>
    </message>
    <message>
        <source>This user is locked.</source>
        <translation>该用户已被锁定。</translation>
    </message>
    <message>
        <source>This address is locked.</source>
        <translation>该地址已被锁定。</translation>
    </message>
    <message>
        <source>TheUSBKeyboardIsDetected</source>
        <translation>检测到 USB 键盘</translation>
    </message>
    <message>
        <source>TheUSBKeyboardDisconnected</source>
        <translation>USB 键盘已断开</translation>
    </message>
    <message>
        <source>USBJoystickDeviceIsFound</source>
        <translation>检测到 USB 操纵杆</translation>
    </message>
    <message>
        <source>TheUSBJoystickDisconnected</source>
        <translation>USB 操纵杆已断开</translation>
    </message>
    <message>
        <source>USBJoystickIsCurrentjebLzucZ</source>
        <translation>窗口控制已开启</translation>
    </message>
    <message>
        <source>USBRockerIsCurrentlyDLwSBpeZ</source>
        <translation>摄像机控制已开启</translation>
    </message>
    <message>
        <source>SwitchToWallModeAJryBrmWGiU</source>
        <translation>上墙模式已开启</translation>
    </message>
    <message>
        <source>SwitchToVideoModeMrVWQzLOUDm</source>
        <translation>视频模式已开启</translation>
    </message>
    <message>
        <source>Please wait</source>
        <translation>请稍候</translation>
    </message>
    <message>
        <source>The list could not be read</source>
        <translation>无法读取列表</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>列</translation>
    </message>
    <message>
        <source>Choose columns</source>
        <translation>选择列</translation>
    </message>
    <message>
        <source>All columns</source>
        <translation>所有列</translation>
    </message>
    <message>
        <source>Loading…</source>
        <translation>正在加载…</translation>
    </message>
    <message>
        <source>Could not be read</source>
        <translation>无法读取</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>重置</translation>
    </message>
    <message>
        <source>Shows the columns as they were at first.</source>
        <translation>恢复最初显示的列。</translation>
    </message>
    <message>
        <source>Space shows and hides a column, Alt and the arrow keys move it.</source>
        <translation>空格键显示或隐藏列，Alt 加方向键移动列。</translation>
    </message>
    <message>
        <source>Column width</source>
        <translation>列宽</translation>
    </message>
    <message>
        <source>Minimum width</source>
        <translation>最小宽度</translation>
    </message>
    <message>
        <source>Maximum width</source>
        <translation>最大宽度</translation>
    </message>
    <message>
        <source>Peltra.9778d4835a7946b6ab94c46d137616dc.name</source>
        <translation>无法加载或保存列的选择。%1</translation>
    </message>
    <message>
        <source>The server does not answer.</source>
        <translation>服务器没有响应。</translation>
    </message>
    <message>
        <source>The server cannot be reached.</source>
        <translation>无法连接服务器。</translation>
    </message>
    <message>
        <source>There is no secure connection to the server.</source>
        <translation>与服务器之间没有安全连接。</translation>
    </message>
    <message>
        <source>The certificate of the server is not trusted.</source>
        <translation>服务器的证书不受信任。</translation>
    </message>
    <message>
        <source>The connection to the server broke.</source>
        <translation>与服务器的连接已断开。</translation>
    </message>
    <message>
        <source>The answer of the server is too large.</source>
        <translation>服务器的应答过大。</translation>
    </message>
    <message>
        <source>The answer of the server makes no sense.</source>
        <translation>服务器的应答无法理解。</translation>
    </message>
    <message>
        <source>You are not logged in.</source>
        <translation>您尚未登录。</translation>
    </message>
    <message>
        <source>You may not do this.</source>
        <translation>您没有执行此操作的权限。</translation>
    </message>
    <message>
        <source>This is more than the server takes.</source>
        <translation>超出了服务器的限制。</translation>
    </message>
    <message>
        <source>The server refused the request.</source>
        <translation>服务器拒绝了请求。</translation>
    </message>
    <message>
        <source>Something went wrong.</source>
        <translation>发生了错误。</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>不是普通文件</translation>
    </message>
    <message>
        <source>Confirm</source>
        <translation>确认</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>Vantor::CAnimationProgressBar</name>
    <message>
        <source>Time line</source>
        <translation>时间轴</translation>
    </message>
</context>
<context>
    <name>Vantor::CBaseFileProgressBar</name>
    <message>
        <source>Start: %1</source>
        <translation>开始：%1</translation>
    </message>
    <message>
        <source>End: %1</source>
        <translation>结束：%1</translation>
    </message>
</context>
</TS>
