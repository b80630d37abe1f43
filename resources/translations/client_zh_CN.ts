<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Batch</name>
    <message>
        <source>Reading %1: %2</source>
        <translation>正在读取 %1：%2</translation>
    </message>
    <message>
        <source>%1 has no row to repeat.</source>
        <translation>%1 中没有可以重复的行。</translation>
    </message>
    <message>
        <source>Exporting: %1</source>
        <translation>正在导出：%1</translation>
    </message>
    <message>
        <source>Exporting: %1, %2</source>
        <translation>正在导出：%1，%2</translation>
    </message>
</context>
<context>
    <name>Client::CListPage</name>
    <message>
        <source>Search all columns</source>
        <translation>搜索所有列</translation>
    </message>
    <message>
        <source>Shows the incidents that hold this text. Escape clears it.</source>
        <translation>只显示包含此文本的事件。按 Esc 键清除。</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>Shown incidents</source>
        <translation>显示的事件</translation>
    </message>
    <message>
        <source>No incident matches</source>
        <translation>没有匹配的事件</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>显示 %1，共 %2</translation>
    </message>
</context>
<context>
    <name>Client::CMainWindow</name>
    <message>
        <source>Logged in as %1</source>
        <translation>已登录：%1</translation>
    </message>
    <message>
        <source>Reading %1…</source>
        <translation>正在读取 %1…</translation>
    </message>
    <message>
        <source>Exporting…</source>
        <translation>正在导出…</translation>
    </message>
    <message>
        <source>Export cancelled</source>
        <translation>导出已取消</translation>
    </message>
    <message>
        <source>Please wait until the work is done</source>
        <translation>请等待工作完成</translation>
    </message>
    <message>
        <source>Open a list</source>
        <translation>打开列表</translation>
    </message>
    <message>
        <source>CSV files (*.csv *.txt *.tsv)</source>
        <translation>CSV 文件 (*.csv *.txt *.tsv)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>所有文件 (*)</translation>
    </message>
    <message>
        <source>Export as CSV</source>
        <translation>导出为 CSV</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>CSV 文件 (*.csv)</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Incidents %1&lt;/h3&gt;&lt;p&gt;Shows, searches and exports incident reports.&lt;/p&gt;&lt;p&gt;The list included holds real wildlife strikes on aircraft, from the public wildlife strike database of the United States.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;事件 %1&lt;/h3&gt;&lt;p&gt;显示、搜索和导出事件报告。&lt;/p&gt;&lt;p&gt;附带的列表是真实的飞机野生动物撞击记录，来自美国公开的野生动物撞击数据库。&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>%1 – Incidents</source>
        <translation>%1 – 事件</translation>
    </message>
    <message>
        <source>Cancelling the export…</source>
        <translation>正在取消导出…</translation>
    </message>
    <message>
        <source>Export as XLSX</source>
        <translation>导出为 XLSX</translation>
    </message>
    <message>
        <source>XLSX workbooks (*.xlsx)</source>
        <translation>XLSX 工作簿 (*.xlsx)</translation>
    </message>
    <message>
        <source>Stop copying?</source>
        <translation>停止复制？</translation>
    </message>
    <message>
        <source>The current file will be finished.</source>
        <translation>当前文件会复制完。</translation>
    </message>
    <message>
        <source>Not copied then: %1</source>
        <translation>这些文件将不会复制：%1</translation>
    </message>
    <message>
        <source>, </source>
        <translation>、</translation>
    </message>
    <message>
        <source>&amp;Stop and quit</source>
        <translation>停止并退出(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Go on copying</source>
        <translation>继续复制(&amp;G)</translation>
    </message>
    <message numerus="yes">
        <source>, and %Ln more</source>
        <translation>
            <numerusform>，另有 %Ln 个</numerusform>
        </translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>另存为…</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Files with commas between the cells (*)</source>
        <translation>单元格以逗号分隔的文件 (*)</translation>
    </message>
    <message>
        <source>Files with semicolons between the cells (*)</source>
        <translation>单元格以分号分隔的文件 (*)</translation>
    </message>
    <message>
        <source>Files with tabs between the cells (*)</source>
        <translation>单元格以制表符分隔的文件 (*)</translation>
    </message>
    <message>
        <source>Files with vertical bars between the cells (*)</source>
        <translation>单元格以竖线分隔的文件 (*)</translation>
    </message>
</context>
<context>
    <name>Client::CServerLink</name>
    <message>
        <source>There is no server: %1</source>
        <translation>没有服务器：%1</translation>
    </message>
    <message>
        <source>Cannot log in as %1.</source>
        <translation>无法以 %1 的身份登录。</translation>
    </message>
    <message>
        <source>Cannot make the folder %1.</source>
        <translation>无法创建文件夹 %1。</translation>
    </message>
</context>
<context>
    <name>Client::CWindowActions</name>
    <message>
        <source>Switch &amp;user</source>
        <translation>切换用户(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Go to</source>
        <translation>转到(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>打开(&amp;O)…</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>查找(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>主题(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>浅色(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>深色(&amp;D)</translation>
    </message>
    <message>
        <source>High &amp;contrast</source>
        <translation>High &amp;contrast</translation>
    </message>
    <message>
        <source>Switch theme</source>
        <translation>切换主题</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Original order</source>
        <translation>原始顺序(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>关于(&amp;A)</translation>
    </message>
    <message>
        <source>Tool bar</source>
        <translation>工具栏</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>全选(&amp;A)</translation>
    </message>
    <message>
        <source>Export as &amp;CSV…</source>
        <translation>导出为 CSV(&amp;C)…</translation>
    </message>
    <message>
        <source>Export CSV</source>
        <translation>导出 CSV</translation>
    </message>
    <message>
        <source>Export as &amp;XLSX…</source>
        <translation>导出为 XLSX(&amp;X)…</translation>
    </message>
    <message>
        <source>Export XLSX</source>
        <translation>导出 XLSX</translation>
    </message>
    <message>
        <source>Export &amp;panel</source>
        <translation>导出面板(&amp;P)</translation>
    </message>
</context>
<context>
    <name>ServerPages</name>
    <message>
        <source>The server did not send the page (error %1).</source>
        <translation>服务器没有发送该页（错误 %1）。</translation>
    </message>
    <message>
        <source>The server cannot be reached.</source>
        <translation>无法连接服务器。</translation>
    </message>
    <message>
        <source>The server is busy.</source>
        <translation>服务器正忙。</translation>
    </message>
    <message>
        <source>The search took too long. Search for three characters or more.</source>
        <translation>搜索时间过长。请搜索三个或更多字符。</translation>
    </message>
    <message>
        <source>The server needs more time. Try again.</source>
        <translation>服务器需要更多时间。请重试。</translation>
    </message>
    <message>
        <source>The session has ended. Log in again.</source>
        <translation>会话已结束，请重新登录。</translation>
    </message>
</context>
<context>
    <name>Client::CServerListPage</name>
    <message>
        <source>There is no server.</source>
        <translation>没有服务器。</translation>
    </message>
    <message>
        <source>Loading…</source>
        <translation>正在加载…</translation>
    </message>
    <message>
        <source>Search on the server</source>
        <translation>在服务器上搜索</translation>
    </message>
    <message>
        <source>Count the pages</source>
        <translation>计算页数</translation>
    </message>
    <message>
        <source>Off: turn page by page, as with a server that cannot count</source>
        <translation>关闭时逐页翻阅，适用于无法计数的服务器</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>没有找到结果</translation>
    </message>
    <message>
        <source>Rows %1 to %2</source>
        <translation>第 %1 至 %2 行</translation>
    </message>
    <message>
        <source>%1 of more than %2</source>
        <translation>%1，共超过 %2</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1，共 %2</translation>
    </message>
    <message numerus="yes">
        <source>%Ln new</source>
        <translation>
            <numerusform>%Ln 条新记录</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>More than %Ln new</source>
        <translation>
            <numerusform>超过 %Ln 条新记录</numerusform>
        </translation>
    </message>
    <message>
        <source>Show the newest rows first</source>
        <translation>先显示最新的行</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Newest first</source>
        <translation>最新的在前</translation>
    </message>
    <message>
        <source>Oldest first</source>
        <translation>最早的在前</translation>
    </message>
    <message>
        <source>Order: %1</source>
        <translation>顺序：%1</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>All is done.</source>
        <translation>全部完成。</translation>
    </message>
    <message>
        <source>A file could not be read or written.</source>
        <translation>无法读取或写入文件。</translation>
    </message>
    <message>
        <source>The options are wrong.</source>
        <translation>选项有误。</translation>
    </message>
    <message>
        <source>SIGHUP, SIGINT or SIGTERM ended an export.</source>
        <translation>SIGHUP、SIGINT 或 SIGTERM 中止了导出。</translation>
    </message>
    <message>
        <source>Exit status:</source>
        <translation>退出状态：</translation>
    </message>
    <message>
        <source>--server takes [https://]HOST:PORT, not “%1”.</source>
        <translation>--server 需要 [https://]HOST:PORT，而不是“%1”。</translation>
    </message>
    <message>
        <source>Use this management server, [https://]HOST:PORT, instead of one of its own.</source>
        <translation>使用此管理服务器 [https://]HOST:PORT，而不是自带的服务器。</translation>
    </message>
    <message>
        <source>Begin with this page: %1.</source>
        <translation>从此页面开始：%1。</translation>
    </message>
    <message>
        <source>There is no page “%1”, only: %2.</source>
        <translation>没有页面“%1”，只有：%2。</translation>
    </message>
    <message>
        <source>Shows, searches and exports incident reports.</source>
        <translation>显示、搜索和导出事件报告。</translation>
    </message>
    <message>
        <source>Open no window: export the list and take screenshots of it.</source>
        <translation>不打开窗口：导出列表并截取图片。</translation>
    </message>
    <message>
        <source>Folder that --headless writes to (default: out).</source>
        <translation>--headless 写入的文件夹（默认：out）。</translation>
    </message>
    <message>
        <source>Show this list instead of the one included.</source>
        <translation>显示此列表，而不是附带的列表。</translation>
    </message>
    <message>
        <source>Repeat or cut the list to N rows.</source>
        <translation>把列表重复或截短到 N 行。</translation>
    </message>
    <message>
        <source>Keep only the rows that hold this text.</source>
        <translation>只保留包含此文本的行。</translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation>显示此帮助。</translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation>显示版本。</translation>
    </message>
    <message>
        <source>Unexpected argument “%1”.</source>
        <translation>意外的参数“%1”。</translation>
    </message>
    <message>
        <source>--%1 needs a name.</source>
        <translation>--%1 需要一个名称。</translation>
    </message>
    <message>
        <source>--rows takes a whole number from 1 to %1, not “%2”.</source>
        <translation>--rows 需要 1 到 %1 之间的整数，而不是“%2”。</translation>
    </message>
    <message>
        <source>--headless and --export cannot be used together.</source>
        <translation>--headless 和 --export 不能同时使用。</translation>
    </message>
    <message>
        <source>Export the list to this .csv or .xlsx file and exit.</source>
        <translation>把列表导出到此 .csv 或 .xlsx 文件，然后退出。</translation>
    </message>
</context>
<context>
    <name>CsvFile</name>
    <message>
        <source>%1 has more columns than can be shown.</source>
        <translation>%1 的列数过多，无法显示。</translation>
    </message>
    <message>
        <source>%1 has more rows than can be shown.</source>
        <translation>%1 的行数过多，无法显示。</translation>
    </message>
    <message>
        <source>%1 is too large for the memory.</source>
        <translation>%1 过大，内存不足。</translation>
    </message>
    <message>
        <source>Cannot read %1: %2</source>
        <translation>无法读取 %1：%2</translation>
    </message>
    <message>
        <source>%1 is not a CSV file: it holds zero bytes.</source>
        <translation>%1 不是 CSV 文件：其中含有零字节。</translation>
    </message>
    <message>
        <source>%1 is empty.</source>
        <translation>%1 是空的。</translation>
    </message>
    <message>
        <source>%1: a quote in line %2 is not closed. The rows after it may be missing.</source>
        <translation>%1：第 %2 行的引号没有结束，其后的行可能缺失。</translation>
    </message>
    <message>
        <source>%1 ends in the middle of a character. Rows may be missing.</source>
        <translation>%1 在一个字符中间结束，可能缺少行。</translation>
    </message>
    <message>
        <source>%1 is not in UTF-8. It was read as %2, which is a guess.</source>
        <translation>%1 不是 UTF-8 编码，已按推测的 %2 读取。</translation>
    </message>
</context>
<context>
    <name>Headless</name>
    <message>
        <source>Cannot write %1.</source>
        <translation>无法写入 %1。</translation>
    </message>
    <message>
        <source>Wrote %1</source>
        <translation>已写入 %1</translation>
    </message>
    <message>
        <source>Cannot make the folder %1: %2</source>
        <translation>无法创建文件夹 %1：%2</translation>
    </message>
</context>
<context>
    <name>TimeLeft</name>
    <message>
        <source>a few seconds left</source>
        <translation>还剩几秒</translation>
    </message>
    <message numerus="yes">
        <source>about %Ln second(s) left</source>
        <translation>
            <numerusform>还剩约 %Ln 秒</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %Ln minute(s) left</source>
        <translation>
            <numerusform>还剩约 %Ln 分钟</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>XlsxExport</name>
    <message>
        <source>Incidents</source>
        <extracomment>Name of a sheet: at most 12 letters that are not Latin, no signs</extracomment>
        <translation>事件</translation>
    </message>
</context>
<context>
    <name>XlsxSummary</name>
    <message>
        <source>Bar chart of the most frequent values in %1</source>
        <translation>%1 中出现最多的值的条形图</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>数量</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>行数</translation>
    </message>
    <message>
        <source>All rows</source>
        <translation>所有行</translation>
    </message>
    <message>
        <source>Searched for</source>
        <translation>搜索内容</translation>
    </message>
    <message>
        <source>Exported on</source>
        <translation>导出时间</translation>
    </message>
    <message>
        <source>Sheet</source>
        <translation>工作表</translation>
    </message>
    <message>
        <source>Summary</source>
        <extracomment>Name of a sheet: at most 15 letters that are not Latin, no signs</extracomment>
        <translation>摘要</translation>
    </message>
</context>
<context>
    <name>Pages</name>
    <message>
        <source>Time line</source>
        <translation>时间轴</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>Server list</source>
        <translation>服务器列表</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>Evidence</source>
        <translation>证据</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>登录</translation>
    </message>
</context>
<context>
    <name>ScreenKeyboard</name>
    <message>
        <source>Up and left</source>
        <translation>左上</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上</translation>
    </message>
    <message>
        <source>Up and right</source>
        <translation>右上</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左</translation>
    </message>
    <message>
        <source>Switch between camera and windows</source>
        <translation>在摄像机和窗口之间切换</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右</translation>
    </message>
    <message>
        <source>Down and left</source>
        <translation>左下</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>下</translation>
    </message>
    <message>
        <source>Down and right</source>
        <translation>右下</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>缩小</translation>
    </message>
    <message>
        <source>Select the first window</source>
        <translation>选择第一个窗口</translation>
    </message>
</context>
<context>
    <name>Client::CScreenKeyboard</name>
    <message>
        <source>&amp;Plugged in</source>
        <translation>已插入(&amp;P)</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速度</translation>
    </message>
</context>
<context>
    <name>Client::CPtzView</name>
    <message>
        <source>Pan %1°  Tilt %2°  Zoom %3×</source>
        <translation>水平 %1°  垂直 %2°  变倍 %3×</translation>
    </message>
</context>
<context>
    <name>Client::CDevicesPage</name>
    <message>
        <source>Display</source>
        <translation>显示器</translation>
    </message>
    <message>
        <source>windows</source>
        <translation>窗口</translation>
    </message>
    <message>
        <source>camera</source>
        <translation>摄像机</translation>
    </message>
    <message>
        <source>%1: %2 × %3 at %4, %5</source>
        <translation>%1：%2 × %3，位于 %4, %5</translation>
    </message>
    <message>
        <source>%1 (primary)</source>
        <translation>%1（主显示器）</translation>
    </message>
    <message>
        <source>A joystick is connected.</source>
        <translation>操纵杆已连接。</translation>
    </message>
    <message>
        <source>A USB keyboard is connected.</source>
        <translation>USB 键盘已连接。</translation>
    </message>
    <message>
        <source>Keyboard on the screen</source>
        <translation>屏幕上的键盘</translation>
    </message>
    <message>
        <source>Camera picture</source>
        <translation>Camera picture</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Displays</source>
        <translation>显示器</translation>
    </message>
    <message>
        <source>No joystick is connected; the keys below take its place.</source>
        <translation>没有连接操纵杆，可用下面的按键代替。</translation>
    </message>
    <message>
        <source>The joystick chooses windows; its button 1 switches to the camera.</source>
        <translation>操纵杆选择窗口；按 1 号按钮切换到摄像机。</translation>
    </message>
    <message>
        <source>The joystick steers the camera; its button 1 switches to the windows.</source>
        <translation>操纵杆控制摄像机；按 1 号按钮切换到窗口。</translation>
    </message>
    <message>
        <source>The keyboard chooses windows; ⇄ switches to the camera.</source>
        <translation>键盘选择窗口；按 ⇄ 切换到摄像机。</translation>
    </message>
    <message>
        <source>The keyboard steers the camera; ⇄ switches to the windows.</source>
        <translation>键盘控制摄像机；按 ⇄ 切换到窗口。</translation>
    </message>
    <message>
        <source>%1 (%2) – %3</source>
        <translation>%1（%2）– %3</translation>
    </message>
    <message>
        <source>Listening at %1, %2 baud.</source>
        <translation>正在监听 %1，%2 波特。</translation>
    </message>
    <message>
        <source>%1 is lost; it is tried again every second.</source>
        <translation>%1 已丢失，每秒重试一次。</translation>
    </message>
</context>
<context>
    <name>Client::CPortForm</name>
    <message>
        <source>%1 – %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message>
        <source>Connecting …</source>
        <translation>正在连接…</translation>
    </message>
    <message>
        <source>Send on to a Pelco-D camera</source>
        <translation>转发到 Pelco-D 摄像机</translation>
    </message>
    <message>
        <source>Serial keyboard</source>
        <translation>串口键盘</translation>
    </message>
    <message>
        <source>&amp;To</source>
        <translation>发送到(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Port</source>
        <translation>端口(&amp;P)</translation>
    </message>
    <message>
        <source>Port, path or host:port</source>
        <translation>端口、路径或主机:端口</translation>
    </message>
    <message>
        <source>Port or path</source>
        <translation>端口或路径</translation>
    </message>
    <message>
        <source>Ba&amp;ud</source>
        <translation>波特率(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Baud</source>
        <translation>波特率(&amp;B)</translation>
    </message>
    <message>
        <source>Camera &amp;address</source>
        <translation>摄像机地址(&amp;A)</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>断开</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>连接</translation>
    </message>
</context>
<context>
    <name>Client::CPelcoSender</name>
    <message>
        <source>There is no answer.</source>
        <translation>没有应答。</translation>
    </message>
    <message>
        <source>The port is lost.</source>
        <translation>端口已丢失。</translation>
    </message>
    <message>
        <source>Sending to %1 at %2 baud.</source>
        <translation>正在以 %2 波特发送到 %1。</translation>
    </message>
    <message>
        <source>Sending to %1.</source>
        <translation>正在发送到 %1。</translation>
    </message>
    <message>
        <source>The camera takes no more commands.</source>
        <translation>摄像机不再接受命令。</translation>
    </message>
</context>
<context>
    <name>PortText</name>
    <message>
        <source>Choose a port or enter its path.</source>
        <translation>请选择端口或输入其路径。</translation>
    </message>
    <message>
        <source>There is no port %1.</source>
        <translation>没有端口 %1。</translation>
    </message>
    <message>
        <source>You have no permission for %1. Your user must be a member of the group %2.</source>
        <translation>您没有使用 %1 的权限。您的用户必须属于 %2 组。</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>无法打开 %1：%2</translation>
    </message>
</context>
<context>
    <name>CommandText</name>
    <message>
        <source>tilt up</source>
        <translation>向上俯仰</translation>
    </message>
    <message>
        <source>tilt down</source>
        <translation>向下俯仰</translation>
    </message>
    <message>
        <source>pan left</source>
        <translation>向左转动</translation>
    </message>
    <message>
        <source>pan right</source>
        <translation>向右转动</translation>
    </message>
    <message>
        <source>up and left</source>
        <translation>左上</translation>
    </message>
    <message>
        <source>up and right</source>
        <translation>右上</translation>
    </message>
    <message>
        <source>down and left</source>
        <translation>左下</translation>
    </message>
    <message>
        <source>down and right</source>
        <translation>右下</translation>
    </message>
    <message>
        <source>zoom in</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>zoom out</source>
        <translation>缩小</translation>
    </message>
    <message>
        <source>focus near</source>
        <translation>近焦</translation>
    </message>
    <message>
        <source>focus far</source>
        <translation>远焦</translation>
    </message>
    <message>
        <source>open the iris</source>
        <translation>打开光圈</translation>
    </message>
    <message>
        <source>close the iris</source>
        <translation>关闭光圈</translation>
    </message>
    <message>
        <source>select in the first window</source>
        <translation>在第一个窗口中选择</translation>
    </message>
    <message>
        <source>select in the second window</source>
        <translation>在第二个窗口中选择</translation>
    </message>
    <message>
        <source>call the preset</source>
        <translation>调用预置位</translation>
    </message>
    <message>
        <source>special key</source>
        <translation>特殊键</translation>
    </message>
    <message>
        <source>stop: %1</source>
        <translation>停止：%1</translation>
    </message>
    <message>
        <source>%1 at speed %2</source>
        <translation>%1，速度 %2</translation>
    </message>
    <message>
        <source>%1, number %2</source>
        <translation>%1，编号 %2</translation>
    </message>
</context>
<context>
    <name>Client::CZoneSwitch</name>
    <message>
        <source>The clocks do not change.</source>
        <translation>不调整时钟。</translation>
    </message>
    <message>
        <source>d MMM yyyy HH:mm</source>
        <translation>yyyy年M月d日 HH:mm</translation>
    </message>
    <message>
        <source>The clocks go forward on %1.</source>
        <translation>时钟于 %1 拨快。</translation>
    </message>
    <message>
        <source>The clocks go back on %1.</source>
        <translation>时钟于 %1 拨慢。</translation>
    </message>
    <message>
        <source>Time &amp;zone</source>
        <translation>时区(&amp;Z)</translation>
    </message>
    <message>
        <source>Time zone</source>
        <translation>时区</translation>
    </message>
    <message>
        <source>&amp;Earlier change</source>
        <translation>上次调整(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Later change</source>
        <translation>下次调整(&amp;L)</translation>
    </message>
    <message>
        <source>Go to where the clocks of this zone were changed last</source>
        <translation>转到此时区上一次调整时钟的时刻</translation>
    </message>
    <message>
        <source>Go to where the clocks of this zone are changed next</source>
        <translation>转到此时区下一次调整时钟的时刻</translation>
    </message>
</context>
<context>
    <name>Client::CTableColumns</name>
    <message>
        <source>The column width could not be saved. %1</source>
        <translation>无法保存列宽。%1</translation>
    </message>
    <message>
        <source>Choose how wide columns are</source>
        <translation>选择列的宽度</translation>
    </message>
</context>
<context>
    <name>Client::CDetailPanel</name>
    <message>
        <source>The incident is in the clipboard</source>
        <translation>事件已复制到剪贴板</translation>
    </message>
    <message>
        <source>Incident</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>Incident %1</source>
        <translation>事件 %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
</context>
<context>
    <name>Client::CExportPanel</name>
    <message>
        <source>Export the list</source>
        <translation>导出列表</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>导出…</translation>
    </message>
    <message>
        <source>Rows that the list shows, in its order: %1</source>
        <translation>列表中显示的行，按其顺序：%1</translation>
    </message>
    <message>
        <source>XLSX workbook</source>
        <translation>XLSX 工作簿</translation>
    </message>
    <message>
        <source>With a summary and charts, for a spreadsheet.</source>
        <translation>含摘要和图表，供电子表格程序使用。</translation>
    </message>
    <message>
        <source>CSV file</source>
        <translation>CSV 文件</translation>
    </message>
    <message>
        <source>Plain text, for other programs.</source>
        <translation>纯文本，供其他程序使用。</translation>
    </message>
    <message>
        <source>Rows that the list shows, in its order: more than %1</source>
        <translation>列表中显示的行，按其顺序：超过 %1</translation>
    </message>
</context>
<context>
    <name>Client::CEvidencePage</name>
    <message>
        <source>Add evidence files</source>
        <translation>添加证据文件</translation>
    </message>
    <message>
        <source>Copy to</source>
        <translation>复制到</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>无法创建文件夹 %1。</translation>
    </message>
    <message>
        <source>Stopping after the current file…</source>
        <translation>当前文件完成后停止…</translation>
    </message>
    <message>
        <source>Files: %1 of %2, %3 of %4</source>
        <translation>文件：%1/%2，%3/%4</translation>
    </message>
    <message>
        <source>All files have arrived: %1.</source>
        <translation>文件已全部到达：%1 个。</translation>
    </message>
    <message>
        <source>Files that have arrived: %1 of %2. The others are listed with the reason.</source>
        <translation>已到达的文件：%1/%2。其余的在列表中注明了原因。</translation>
    </message>
    <message>
        <source>Copied as %1</source>
        <translation>已复制为 %1</translation>
    </message>
    <message>
        <source>Not copied: %1</source>
        <translation>未复制：%1</translation>
    </message>
    <message>
        <source>&amp;Add files…</source>
        <translation>添加文件(&amp;A)…</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>移除(&amp;R)</translation>
    </message>
    <message>
        <source>Copy &amp;to</source>
        <translation>复制到(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>浏览(&amp;B)…</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>停止(&amp;S)</translation>
    </message>
    <message>
        <source>Progress of the copy</source>
        <translation>复制进度</translation>
    </message>
    <message>
        <source>Evidence files</source>
        <translation>证据文件</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>Add files, or drop them here</source>
        <translation>请添加文件，或把文件拖放到这里</translation>
    </message>
    <message>
        <source>The folder %1 cannot be opened.</source>
        <translation>无法打开文件夹 %1。</translation>
    </message>
    <message>
        <source>&amp;Open folder</source>
        <translation>打开文件夹(&amp;O)</translation>
    </message>
    <message>
        <source>Add &amp;samples</source>
        <translation>添加示例(&amp;S)</translation>
    </message>
    <message>
        <source>Copying files: %1 of %2</source>
        <translation>正在复制文件：%1/%2</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of them are not files and were left out.</source>
        <translation>
            <numerusform>其中 %Ln 个不是文件，已略去。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Client::CTimeLinePage</name>
    <message>
        <source>Making the recordings …</source>
        <translation>正在生成录像…</translation>
    </message>
    <message>
        <source>Recordings: %1</source>
        <translation>录像：%1 段</translation>
    </message>
    <message>
        <source>Nothing was recorded at this time.</source>
        <translation>此时没有录像。</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 至 %2</translation>
    </message>
    <message>
        <source>&amp;Time</source>
        <translation>时间(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Recordings</source>
        <translation>录像(&amp;R)</translation>
    </message>
    <message>
        <source>Day by day</source>
        <translation>按天显示</translation>
    </message>
    <message>
        <source>&amp;Second camera</source>
        <translation>第二台摄像机(&amp;S)</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>录像</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>概览</translation>
    </message>
    <message>
        <source>At the cursor line</source>
        <translation>游标线处</translation>
    </message>
    <message>
        <source>The wheel zooms about the pointer, dragging pans, a click slides there. Keys: Left and Right move, with Shift by more and with Ctrl to the next recording; Page Up and Page Down by what is visible; Home and End to the first and last recording; + and - zoom, 0 goes back; Space describes what is under the line.</source>
        <translation>滚轮以指针为中心缩放，拖动平移，单击滑动到该处。按键：左右方向键移动，加 Shift 移动更多，加 Ctrl 到下一段录像；Page Up 和 Page Down 移动一屏；Home 和 End 到第一段和最后一段录像；+ 和 - 缩放，0 还原；空格键说明线下的内容。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a time such as 2026-03-29 14:30:00.</source>
        <translation>“%1”不是形如 2026-03-29 14:30:00 的时间。</translation>
    </message>
    <message>
        <source>d MMM yyyy</source>
        <translation>yyyy年M月d日</translation>
    </message>
    <message>
        <source>Recordings of %1: %2</source>
        <translation>%1 的录像：%2</translation>
    </message>
    <message>
        <source>Recordings of the day</source>
        <translation>当天的录像</translation>
    </message>
</context>
<context>
    <name>Client::CRecordingsModel</name>
    <message>
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>End</source>
        <translation>结束</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>时长</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>摄像机</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>录像</translation>
    </message>
</context>
<context>
    <name>Recordings</name>
    <message>
        <source>Continuous</source>
        <translation>连续</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>移动侦测</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>报警</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>已锁定</translation>
    </message>
</context>
<context>
    <name>Client::CLoginPage</name>
    <message>
        <source>Log in</source>
        <translation>登录</translation>
    </message>
    <message>
        <source>Logged in as %1</source>
        <translation>已登录：%1</translation>
    </message>
    <message>
        <source>on</source>
        <translation>开</translation>
    </message>
    <message>
        <source>off</source>
        <translation>关</translation>
    </message>
    <message>
        <source>Lock of an address</source>
        <translation>地址锁定</translation>
    </message>
    <message>
        <source>Tries: %1, %2 min</source>
        <translation>尝试次数：%1，%2 分钟</translation>
    </message>
    <message>
        <source>Password strength</source>
        <translation>密码强度</translation>
    </message>
    <message>
        <source>level %1</source>
        <translation>级别 %1</translation>
    </message>
    <message>
        <source>Password expiry</source>
        <translation>密码有效期</translation>
    </message>
    <message numerus="yes">
        <source>after %Ln day(s)</source>
        <translation>
            <numerusform>%Ln 天后</numerusform>
        </translation>
    </message>
    <message>
        <source>Lock of the client</source>
        <translation>客户端锁定</translation>
    </message>
    <message>
        <source>after %1 min</source>
        <translation>%1 分钟后</translation>
    </message>
    <message>
        <source>Security setting</source>
        <translation>安全设置</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>值</translation>
    </message>
    <message>
        <source>Security settings</source>
        <translation>安全设置</translation>
    </message>
    <message>
        <source>Lock the client</source>
        <translation>锁定客户端</translation>
    </message>
</context>
<context>
    <name>Client::CLockWindow</name>
    <message>
        <source>Locked</source>
        <translation>已锁定</translation>
    </message>
    <message>
        <source>Please wait until the work is done</source>
        <translation>请等待工作完成</translation>
    </message>
    <message>
        <source>Locked by %1</source>
        <translation>由 %1 锁定</translation>
    </message>
    <message>
        <source>Unlock</source>
        <translation>解锁</translation>
    </message>
</context>
<context>
    <name>ExportText</name>
    <message numerus="yes">
        <source>%Ln incident(s) exported to %1</source>
        <translation>
            <numerusform>已导出 %Ln 个事件到 %1</numerusform>
        </translation>
    </message>
    <message>
        <source>The disk is full. %1 was not written.</source>
        <translation>磁盘已满。%1 没有写入。</translation>
    </message>
    <message>
        <source>Writing failed on the way. %1 was not written.</source>
        <translation>写入中断。%1 没有写入。</translation>
    </message>
    <message>
        <source>Writing failed: %1. %2 was not written.</source>
        <translation>写入失败：%1。%2 没有写入。</translation>
    </message>
    <message>
        <source>There is not enough memory for this export.</source>
        <translation>内存不足，无法导出。</translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation>文件夹 %1 不存在。</translation>
    </message>
    <message>
        <source>%1 is a link that leads nowhere.</source>
        <translation>%1 是一个无效的链接。</translation>
    </message>
    <message>
        <source>%1 is a folder.</source>
        <translation>%1 是一个文件夹。</translation>
    </message>
    <message>
        <source>%1 is a device, not a file.</source>
        <translation>%1 是设备，不是文件。</translation>
    </message>
    <message>
        <source>%1 is write-protected.</source>
        <translation>%1 受写保护。</translation>
    </message>
    <message>
        <source>Cannot write to the folder %1: %2</source>
        <translation>无法写入文件夹 %1：%2</translation>
    </message>
    <message>
        <source>Cannot export to “%1”: the name must end with %2.</source>
        <translation>无法导出到“%1”：名称必须以 %2 结尾。</translation>
    </message>
    <message>
        <source>There is not enough room for temporary files in %1. Nothing was exported.</source>
        <translation>%1 中没有足够的空间存放临时文件。没有导出任何内容。</translation>
    </message>
    <message>
        <source>There is no column to export.</source>
        <translation>没有可导出的列。</translation>
    </message>
    <message>
        <source>The list could not be read to its end. %1 was not written.</source>
        <translation>列表没有能够读完。%1 没有写入。</translation>
    </message>
    <message>
        <source>%1 is not in every cell as the list has it: %2.</source>
        <translation>%1 并非每个单元格都与列表一致：%2。</translation>
    </message>
    <message>
        <source>looks and pictures</source>
        <translation>外观和图片</translation>
    </message>
    <message numerus="yes">
        <source>%Ln cell(s) cut to 32,767 characters</source>
        <translation>
            <numerusform>%Ln 个单元格被截短到 32,767 个字符</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln cell(s) with replaced characters</source>
        <translation>
            <numerusform>%Ln 个单元格中的字符被替换</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln link(s) as plain text</source>
        <translation>
            <numerusform>%Ln 个链接写为纯文本</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 %2 was not written.</source>
        <translation>%1 %2 没有写入。</translation>
    </message>
</context>
<context>
    <name>ServerExport</name>
    <message>
        <source>Rows that the server sent: %1 of %2.</source>
        <translation>服务器只发送了 %2 行中的 %1 行。</translation>
    </message>
    <message>
        <source>The columns of the server's list have changed.</source>
        <translation>服务器列表的列已更改。</translation>
    </message>
</context>
<context>
    <name>Client::CProgressDialog</name>
    <message numerus="yes">
        <source>%Ln row(s) done</source>
        <translation>
            <numerusform>已完成 %Ln 行</numerusform>
        </translation>
    </message>
</context>
</TS>
