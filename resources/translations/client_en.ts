<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Batch</name>
    <message>
        <source>Reading %1: %2</source>
        <translation>Reading %1: %2</translation>
    </message>
    <message>
        <source>%1 has no row to repeat.</source>
        <translation>%1 has no row to repeat.</translation>
    </message>
    <message>
        <source>Exporting: %1</source>
        <translation>Exporting: %1</translation>
    </message>
    <message>
        <source>Exporting: %1, %2</source>
        <translation>Exporting: %1, %2</translation>
    </message>
</context>
<context>
    <name>Client::CListPage</name>
    <message>
        <source>Search all columns</source>
        <translation>Search all columns</translation>
    </message>
    <message>
        <source>Shows the incidents that hold this text. Escape clears it.</source>
        <translation>Shows the incidents that hold this text. Escape clears it.</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>Incidents</translation>
    </message>
    <message>
        <source>Shown incidents</source>
        <translation>Shown incidents</translation>
    </message>
    <message>
        <source>No incident matches</source>
        <translation>No incident matches</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 of %2</translation>
    </message>
</context>
<context>
    <name>Client::CMainWindow</name>
    <message>
        <source>Logged in as %1</source>
        <translation>Logged in as %1</translation>
    </message>
    <message>
        <source>Reading %1…</source>
        <translation>Reading %1…</translation>
    </message>
    <message>
        <source>Exporting…</source>
        <translation>Exporting…</translation>
    </message>
    <message>
        <source>Export cancelled</source>
        <translation>Export cancelled</translation>
    </message>
    <message>
        <source>Please wait until the work is done</source>
        <translation>Please wait until the work is done</translation>
    </message>
    <message>
        <source>Open a list</source>
        <translation>Open a list</translation>
    </message>
    <message>
        <source>CSV files (*.csv *.txt *.tsv)</source>
        <translation>CSV files (*.csv *.txt *.tsv)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>All files (*)</translation>
    </message>
    <message>
        <source>Export as CSV</source>
        <translation>Export as CSV</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>CSV files (*.csv)</translation>
    </message>
    <message>
        <source>About</source>
        <translation>About</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Incidents %1&lt;/h3&gt;&lt;p&gt;Shows, searches and exports incident reports.&lt;/p&gt;&lt;p&gt;The list included holds real wildlife strikes on aircraft, from the public wildlife strike database of the United States.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Incidents %1&lt;/h3&gt;&lt;p&gt;Shows, searches and exports incident reports.&lt;/p&gt;&lt;p&gt;The list included holds real wildlife strikes on aircraft, from the public wildlife strike database of the United States.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>Incidents</translation>
    </message>
    <message>
        <source>%1 – Incidents</source>
        <translation>%1 – Incidents</translation>
    </message>
    <message>
        <source>Cancelling the export…</source>
        <translation>Cancelling the export…</translation>
    </message>
    <message>
        <source>Export as XLSX</source>
        <translation>Export as XLSX</translation>
    </message>
    <message>
        <source>XLSX workbooks (*.xlsx)</source>
        <translation>XLSX workbooks (*.xlsx)</translation>
    </message>
    <message>
        <source>Stop copying?</source>
        <translation>Stop copying?</translation>
    </message>
    <message>
        <source>The current file will be finished.</source>
        <translation>The current file will be finished.</translation>
    </message>
    <message>
        <source>Not copied then: %1</source>
        <translation>Not copied then: %1</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>&amp;Stop and quit</source>
        <translation>&amp;Stop and quit</translation>
    </message>
    <message>
        <source>&amp;Go on copying</source>
        <translation>&amp;Go on copying</translation>
    </message>
    <message numerus="yes">
        <source>, and %Ln more</source>
        <translation>
            <numerusform>, and %Ln more</numerusform>
            <numerusform>, and %Ln more</numerusform>
        </translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Save As…</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Save As</translation>
    </message>
    <message>
        <source>Files with commas between the cells (*)</source>
        <translation>Files with commas between the cells (*)</translation>
    </message>
    <message>
        <source>Files with semicolons between the cells (*)</source>
        <translation>Files with semicolons between the cells (*)</translation>
    </message>
    <message>
        <source>Files with tabs between the cells (*)</source>
        <translation>Files with tabs between the cells (*)</translation>
    </message>
    <message>
        <source>Files with vertical bars between the cells (*)</source>
        <translation>Files with vertical bars between the cells (*)</translation>
    </message>
</context>
<context>
    <name>Client::CServerLink</name>
    <message>
        <source>There is no server: %1</source>
        <translation>There is no server: %1</translation>
    </message>
    <message>
        <source>Cannot log in as %1.</source>
        <translation>Cannot log in as %1.</translation>
    </message>
    <message>
        <source>Cannot make the folder %1.</source>
        <translation>Cannot make the folder %1.</translation>
    </message>
</context>
<context>
    <name>Client::CWindowActions</name>
    <message>
        <source>Switch &amp;user</source>
        <translation>Switch &amp;user</translation>
    </message>
    <message>
        <source>&amp;Go to</source>
        <translation>&amp;Go to</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Open…</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quit</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Find</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Theme</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Light</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dark</translation>
    </message>
    <message>
        <source>High &amp;contrast</source>
        <translation>High &amp;contrast</translation>
    </message>
    <message>
        <source>Switch theme</source>
        <translation>Switch theme</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Theme</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Language</translation>
    </message>
    <message>
        <source>&amp;Original order</source>
        <translation>&amp;Original order</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;About</translation>
    </message>
    <message>
        <source>Tool bar</source>
        <translation>Tool bar</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>Select &amp;all</translation>
    </message>
    <message>
        <source>Export as &amp;CSV…</source>
        <translation>Export as &amp;CSV…</translation>
    </message>
    <message>
        <source>Export CSV</source>
        <translation>Export CSV</translation>
    </message>
    <message>
        <source>Export as &amp;XLSX…</source>
        <translation>Export as &amp;XLSX…</translation>
    </message>
    <message>
        <source>Export XLSX</source>
        <translation>Export XLSX</translation>
    </message>
    <message>
        <source>Export &amp;panel</source>
        <translation>Export &amp;panel</translation>
    </message>
</context>
<context>
    <name>ServerPages</name>
    <message>
        <source>The server did not send the page (error %1).</source>
        <translation>The server did not send the page (error %1).</translation>
    </message>
    <message>
        <source>The server cannot be reached.</source>
        <translation>The server cannot be reached.</translation>
    </message>
    <message>
        <source>The server is busy.</source>
        <translation>The server is busy.</translation>
    </message>
    <message>
        <source>The search took too long. Search for three characters or more.</source>
        <translation>The search took too long. Search for three characters or more.</translation>
    </message>
    <message>
        <source>The server needs more time. Try again.</source>
        <translation>The server needs more time. Try again.</translation>
    </message>
    <message>
        <source>The session has ended. Log in again.</source>
        <translation>The session has ended. Log in again.</translation>
    </message>
</context>
<context>
    <name>Client::CServerListPage</name>
    <message>
        <source>There is no server.</source>
        <translation>There is no server.</translation>
    </message>
    <message>
        <source>Loading…</source>
        <translation>Loading…</translation>
    </message>
    <message>
        <source>Search on the server</source>
        <translation>Search on the server</translation>
    </message>
    <message>
        <source>Count the pages</source>
        <translation>Count the pages</translation>
    </message>
    <message>
        <source>Off: turn page by page, as with a server that cannot count</source>
        <translation>Off: turn page by page, as with a server that cannot count</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>Incidents</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Nothing found</translation>
    </message>
    <message>
        <source>Rows %1 to %2</source>
        <translation>Rows %1 to %2</translation>
    </message>
    <message>
        <source>%1 of more than %2</source>
        <translation>%1 of more than %2</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 of %2</translation>
    </message>
    <message numerus="yes">
        <source>%Ln new</source>
        <translation>
            <numerusform>%Ln new</numerusform>
            <numerusform>%Ln new</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>More than %Ln new</source>
        <translation>
            <numerusform>More than %Ln new</numerusform>
            <numerusform>More than %Ln new</numerusform>
        </translation>
    </message>
    <message>
        <source>Show the newest rows first</source>
        <translation>Show the newest rows first</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Try again</translation>
    </message>
    <message>
        <source>Newest first</source>
        <translation>Newest first</translation>
    </message>
    <message>
        <source>Oldest first</source>
        <translation>Oldest first</translation>
    </message>
    <message>
        <source>Order: %1</source>
        <translation>Order: %1</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>All is done.</source>
        <translation>All is done.</translation>
    </message>
    <message>
        <source>A file could not be read or written.</source>
        <translation>A file could not be read or written.</translation>
    </message>
    <message>
        <source>The options are wrong.</source>
        <translation>The options are wrong.</translation>
    </message>
    <message>
        <source>SIGHUP, SIGINT or SIGTERM ended an export.</source>
        <translation>SIGHUP, SIGINT or SIGTERM ended an export.</translation>
    </message>
    <message>
        <source>Exit status:</source>
        <translation>Exit status:</translation>
    </message>
    <message>
        <source>--server takes [https://]HOST:PORT, not “%1”.</source>
        <translation>--server takes [https://]HOST:PORT, not “%1”.</translation>
    </message>
    <message>
        <source>Use this management server, [https://]HOST:PORT, instead of one of its own.</source>
        <translation>Use this management server, [https://]HOST:PORT, instead of one of its own.</translation>
    </message>
    <message>
        <source>Begin with this page: %1.</source>
        <translation>Begin with this page: %1.</translation>
    </message>
    <message>
        <source>There is no page “%1”, only: %2.</source>
        <translation>There is no page “%1”, only: %2.</translation>
    </message>
    <message>
        <source>Shows, searches and exports incident reports.</source>
        <translation>Shows, searches and exports incident reports.</translation>
    </message>
    <message>
        <source>Open no window: export the list and take screenshots of it.</source>
        <translation>Open no window: export the list and take screenshots of it.</translation>
    </message>
    <message>
        <source>Folder that --headless writes to (default: out).</source>
        <translation>Folder that --headless writes to (default: out).</translation>
    </message>
    <message>
        <source>Show this list instead of the one included.</source>
        <translation>Show this list instead of the one included.</translation>
    </message>
    <message>
        <source>Repeat or cut the list to N rows.</source>
        <translation>Repeat or cut the list to N rows.</translation>
    </message>
    <message>
        <source>Keep only the rows that hold this text.</source>
        <translation>Keep only the rows that hold this text.</translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation>Show this help.</translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation>Show the version.</translation>
    </message>
    <message>
        <source>Unexpected argument “%1”.</source>
        <translation>Unexpected argument “%1”.</translation>
    </message>
    <message>
        <source>--%1 needs a name.</source>
        <translation>--%1 needs a name.</translation>
    </message>
    <message>
        <source>--rows takes a whole number from 1 to %1, not “%2”.</source>
        <translation>--rows takes a whole number from 1 to %1, not “%2”.</translation>
    </message>
    <message>
        <source>--headless and --export cannot be used together.</source>
        <translation>--headless and --export cannot be used together.</translation>
    </message>
    <message>
        <source>Export the list to this .csv or .xlsx file and exit.</source>
        <translation>Export the list to this .csv or .xlsx file and exit.</translation>
    </message>
</context>
<context>
    <name>CsvFile</name>
    <message>
        <source>%1 has more columns than can be shown.</source>
        <translation>%1 has more columns than can be shown.</translation>
    </message>
    <message>
        <source>%1 has more rows than can be shown.</source>
        <translation>%1 has more rows than can be shown.</translation>
    </message>
    <message>
        <source>%1 is too large for the memory.</source>
        <translation>%1 is too large for the memory.</translation>
    </message>
    <message>
        <source>Cannot read %1: %2</source>
        <translation>Cannot read %1: %2</translation>
    </message>
    <message>
        <source>%1 is not a CSV file: it holds zero bytes.</source>
        <translation>%1 is not a CSV file: it holds zero bytes.</translation>
    </message>
    <message>
        <source>%1 is empty.</source>
        <translation>%1 is empty.</translation>
    </message>
    <message>
        <source>%1: a quote in line %2 is not closed. The rows after it may be missing.</source>
        <translation>%1: a quote in line %2 is not closed. The rows after it may be missing.</translation>
    </message>
    <message>
        <source>%1 ends in the middle of a character. Rows may be missing.</source>
        <translation>%1 ends in the middle of a character. Rows may be missing.</translation>
    </message>
    <message>
        <source>%1 is not in UTF-8. It was read as %2, which is a guess.</source>
        <translation>%1 is not in UTF-8. It was read as %2, which is a guess.</translation>
    </message>
</context>
<context>
    <name>Headless</name>
    <message>
        <source>Cannot write %1.</source>
        <translation>Cannot write %1.</translation>
    </message>
    <message>
        <source>Wrote %1</source>
        <translation>Wrote %1</translation>
    </message>
    <message>
        <source>Cannot make the folder %1: %2</source>
        <translation>Cannot make the folder %1: %2</translation>
    </message>
</context>
<context>
    <name>TimeLeft</name>
    <message>
        <source>a few seconds left</source>
        <translation>a few seconds left</translation>
    </message>
    <message numerus="yes">
        <source>about %Ln second(s) left</source>
        <translation>
            <numerusform>about %Ln second left</numerusform>
            <numerusform>about %Ln seconds left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %Ln minute(s) left</source>
        <translation>
            <numerusform>about %Ln minute left</numerusform>
            <numerusform>about %Ln minutes left</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>XlsxExport</name>
    <message>
        <source>Incidents</source>
        <extracomment>Name of a sheet: at most 12 letters that are not Latin, no signs</extracomment>
        <translation>Incidents</translation>
    </message>
</context>
<context>
    <name>XlsxSummary</name>
    <message>
        <source>Bar chart of the most frequent values in %1</source>
        <translation>Bar chart of the most frequent values in %1</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Count</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>Incidents</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Rows</translation>
    </message>
    <message>
        <source>All rows</source>
        <translation>All rows</translation>
    </message>
    <message>
        <source>Searched for</source>
        <translation>Searched for</translation>
    </message>
    <message>
        <source>Exported on</source>
        <translation>Exported on</translation>
    </message>
    <message>
        <source>Sheet</source>
        <translation>Sheet</translation>
    </message>
    <message>
        <source>Summary</source>
        <extracomment>Name of a sheet: at most 15 letters that are not Latin, no signs</extracomment>
        <translation>Summary</translation>
    </message>
</context>
<context>
    <name>Pages</name>
    <message>
        <source>Time line</source>
        <translation>Time line</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Devices</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>Incidents</translation>
    </message>
    <message>
        <source>Server list</source>
        <translation>Server list</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Colours</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Pages</translation>
    </message>
    <message>
        <source>Evidence</source>
        <translation>Evidence</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>Login</translation>
    </message>
</context>
<context>
    <name>ScreenKeyboard</name>
    <message>
        <source>Up and left</source>
        <translation>Up and left</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Up</translation>
    </message>
    <message>
        <source>Up and right</source>
        <translation>Up and right</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>Switch between camera and windows</source>
        <translation>Switch between camera and windows</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Right</translation>
    </message>
    <message>
        <source>Down and left</source>
        <translation>Down and left</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Down</translation>
    </message>
    <message>
        <source>Down and right</source>
        <translation>Down and right</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Zoom in</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Zoom out</translation>
    </message>
    <message>
        <source>Select the first window</source>
        <translation>Select the first window</translation>
    </message>
</context>
<context>
    <name>Client::CScreenKeyboard</name>
    <message>
        <source>&amp;Plugged in</source>
        <translation>&amp;Plugged in</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Speed</translation>
    </message>
</context>
<context>
    <name>Client::CPtzView</name>
    <message>
        <source>Pan %1°  Tilt %2°  Zoom %3×</source>
        <translation>Pan %1°  Tilt %2°  Zoom %3×</translation>
    </message>
</context>
<context>
    <name>Client::CDevicesPage</name>
    <message>
        <source>Display</source>
        <translation>Display</translation>
    </message>
    <message>
        <source>windows</source>
        <translation>windows</translation>
    </message>
    <message>
        <source>camera</source>
        <translation>camera</translation>
    </message>
    <message>
        <source>%1: %2 × %3 at %4, %5</source>
        <translation>%1: %2 × %3 at %4, %5</translation>
    </message>
    <message>
        <source>%1 (primary)</source>
        <translation>%1 (primary)</translation>
    </message>
    <message>
        <source>A joystick is connected.</source>
        <translation>A joystick is connected.</translation>
    </message>
    <message>
        <source>A USB keyboard is connected.</source>
        <translation>A USB keyboard is connected.</translation>
    </message>
    <message>
        <source>Keyboard on the screen</source>
        <translation>Keyboard on the screen</translation>
    </message>
    <message>
        <source>Camera picture</source>
        <translation>Camera picture</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Commands</translation>
    </message>
    <message>
        <source>Displays</source>
        <translation>Displays</translation>
    </message>
    <message>
        <source>No joystick is connected; the keys below take its place.</source>
        <translation>No joystick is connected; the keys below take its place.</translation>
    </message>
    <message>
        <source>The joystick chooses windows; its button 1 switches to the camera.</source>
        <translation>The joystick chooses windows; its button 1 switches to the camera.</translation>
    </message>
    <message>
        <source>The joystick steers the camera; its button 1 switches to the windows.</source>
        <translation>The joystick steers the camera; its button 1 switches to the windows.</translation>
    </message>
    <message>
        <source>The keyboard chooses windows; ⇄ switches to the camera.</source>
        <translation>The keyboard chooses windows; ⇄ switches to the camera.</translation>
    </message>
    <message>
        <source>The keyboard steers the camera; ⇄ switches to the windows.</source>
        <translation>The keyboard steers the camera; ⇄ switches to the windows.</translation>
    </message>
    <message>
        <source>%1 (%2) – %3</source>
        <translation>%1 (%2) – %3</translation>
    </message>
    <message>
        <source>Listening at %1, %2 baud.</source>
        <translation>Listening at %1, %2 baud.</translation>
    </message>
    <message>
        <source>%1 is lost; it is tried again every second.</source>
        <translation>%1 is lost; it is tried again every second.</translation>
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
        <translation>Connecting …</translation>
    </message>
    <message>
        <source>Send on to a Pelco-D camera</source>
        <translation>Send on to a Pelco-D camera</translation>
    </message>
    <message>
        <source>Serial keyboard</source>
        <translation>Serial keyboard</translation>
    </message>
    <message>
        <source>&amp;To</source>
        <translation>&amp;To</translation>
    </message>
    <message>
        <source>&amp;Port</source>
        <translation>&amp;Port</translation>
    </message>
    <message>
        <source>Port, path or host:port</source>
        <translation>Port, path or host:port</translation>
    </message>
    <message>
        <source>Port or path</source>
        <translation>Port or path</translation>
    </message>
    <message>
        <source>Ba&amp;ud</source>
        <translation>Ba&amp;ud</translation>
    </message>
    <message>
        <source>&amp;Baud</source>
        <translation>&amp;Baud</translation>
    </message>
    <message>
        <source>Camera &amp;address</source>
        <translation>Camera &amp;address</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Disconnect</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Connect</translation>
    </message>
</context>
<context>
    <name>Client::CPelcoSender</name>
    <message>
        <source>There is no answer.</source>
        <translation>There is no answer.</translation>
    </message>
    <message>
        <source>The port is lost.</source>
        <translation>The port is lost.</translation>
    </message>
    <message>
        <source>Sending to %1 at %2 baud.</source>
        <translation>Sending to %1 at %2 baud.</translation>
    </message>
    <message>
        <source>Sending to %1.</source>
        <translation>Sending to %1.</translation>
    </message>
    <message>
        <source>The camera takes no more commands.</source>
        <translation>The camera takes no more commands.</translation>
    </message>
</context>
<context>
    <name>PortText</name>
    <message>
        <source>Choose a port or enter its path.</source>
        <translation>Choose a port or enter its path.</translation>
    </message>
    <message>
        <source>There is no port %1.</source>
        <translation>There is no port %1.</translation>
    </message>
    <message>
        <source>You have no permission for %1. Your user must be a member of the group %2.</source>
        <translation>You have no permission for %1. Your user must be a member of the group %2.</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 cannot be opened: %2</translation>
    </message>
</context>
<context>
    <name>CommandText</name>
    <message>
        <source>tilt up</source>
        <translation>tilt up</translation>
    </message>
    <message>
        <source>tilt down</source>
        <translation>tilt down</translation>
    </message>
    <message>
        <source>pan left</source>
        <translation>pan left</translation>
    </message>
    <message>
        <source>pan right</source>
        <translation>pan right</translation>
    </message>
    <message>
        <source>up and left</source>
        <translation>up and left</translation>
    </message>
    <message>
        <source>up and right</source>
        <translation>up and right</translation>
    </message>
    <message>
        <source>down and left</source>
        <translation>down and left</translation>
    </message>
    <message>
        <source>down and right</source>
        <translation>down and right</translation>
    </message>
    <message>
        <source>zoom in</source>
        <translation>zoom in</translation>
    </message>
    <message>
        <source>zoom out</source>
        <translation>zoom out</translation>
    </message>
    <message>
        <source>focus near</source>
        <translation>focus near</translation>
    </message>
    <message>
        <source>focus far</source>
        <translation>focus far</translation>
    </message>
    <message>
        <source>open the iris</source>
        <translation>open the iris</translation>
    </message>
    <message>
        <source>close the iris</source>
        <translation>close the iris</translation>
    </message>
    <message>
        <source>select in the first window</source>
        <translation>select in the first window</translation>
    </message>
    <message>
        <source>select in the second window</source>
        <translation>select in the second window</translation>
    </message>
    <message>
        <source>call the preset</source>
        <translation>call the preset</translation>
    </message>
    <message>
        <source>special key</source>
        <translation>special key</translation>
    </message>
    <message>
        <source>stop: %1</source>
        <translation>stop: %1</translation>
    </message>
    <message>
        <source>%1 at speed %2</source>
        <translation>%1 at speed %2</translation>
    </message>
    <message>
        <source>%1, number %2</source>
        <translation>%1, number %2</translation>
    </message>
</context>
<context>
    <name>Client::CZoneSwitch</name>
    <message>
        <source>The clocks do not change.</source>
        <translation>The clocks do not change.</translation>
    </message>
    <message>
        <source>d MMM yyyy HH:mm</source>
        <translation>d MMM yyyy HH:mm</translation>
    </message>
    <message>
        <source>The clocks go forward on %1.</source>
        <translation>The clocks go forward on %1.</translation>
    </message>
    <message>
        <source>The clocks go back on %1.</source>
        <translation>The clocks go back on %1.</translation>
    </message>
    <message>
        <source>Time &amp;zone</source>
        <translation>Time &amp;zone</translation>
    </message>
    <message>
        <source>Time zone</source>
        <translation>Time zone</translation>
    </message>
    <message>
        <source>&amp;Earlier change</source>
        <translation>&amp;Earlier change</translation>
    </message>
    <message>
        <source>&amp;Later change</source>
        <translation>&amp;Later change</translation>
    </message>
    <message>
        <source>Go to where the clocks of this zone were changed last</source>
        <translation>Go to where the clocks of this zone were changed last</translation>
    </message>
    <message>
        <source>Go to where the clocks of this zone are changed next</source>
        <translation>Go to where the clocks of this zone are changed next</translation>
    </message>
</context>
<context>
    <name>Client::CTableColumns</name>
    <message>
        <source>The column width could not be saved. %1</source>
        <translation>The column width could not be saved. %1</translation>
    </message>
    <message>
        <source>Choose how wide columns are</source>
        <translation>Choose how wide columns are</translation>
    </message>
</context>
<context>
    <name>Client::CDetailPanel</name>
    <message>
        <source>The incident is in the clipboard</source>
        <translation>The incident is in the clipboard</translation>
    </message>
    <message>
        <source>Incident</source>
        <translation>Incident</translation>
    </message>
    <message>
        <source>Incident %1</source>
        <translation>Incident %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copy</translation>
    </message>
</context>
<context>
    <name>Client::CExportPanel</name>
    <message>
        <source>Export the list</source>
        <translation>Export the list</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Export…</translation>
    </message>
    <message>
        <source>Rows that the list shows, in its order: %1</source>
        <translation>Rows that the list shows, in its order: %1</translation>
    </message>
    <message>
        <source>XLSX workbook</source>
        <translation>XLSX workbook</translation>
    </message>
    <message>
        <source>With a summary and charts, for a spreadsheet.</source>
        <translation>With a summary and charts, for a spreadsheet.</translation>
    </message>
    <message>
        <source>CSV file</source>
        <translation>CSV file</translation>
    </message>
    <message>
        <source>Plain text, for other programs.</source>
        <translation>Plain text, for other programs.</translation>
    </message>
    <message>
        <source>Rows that the list shows, in its order: more than %1</source>
        <translation>Rows that the list shows, in its order: more than %1</translation>
    </message>
</context>
<context>
    <name>Client::CEvidencePage</name>
    <message>
        <source>Add evidence files</source>
        <translation>Add evidence files</translation>
    </message>
    <message>
        <source>Copy to</source>
        <translation>Copy to</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>The folder %1 cannot be made.</translation>
    </message>
    <message>
        <source>Stopping after the current file…</source>
        <translation>Stopping after the current file…</translation>
    </message>
    <message>
        <source>Files: %1 of %2, %3 of %4</source>
        <translation>Files: %1 of %2, %3 of %4</translation>
    </message>
    <message>
        <source>All files have arrived: %1.</source>
        <translation>All files have arrived: %1.</translation>
    </message>
    <message>
        <source>Files that have arrived: %1 of %2. The others are listed with the reason.</source>
        <translation>Files that have arrived: %1 of %2. The others are listed with the reason.</translation>
    </message>
    <message>
        <source>Copied as %1</source>
        <translation>Copied as %1</translation>
    </message>
    <message>
        <source>Not copied: %1</source>
        <translation>Not copied: %1</translation>
    </message>
    <message>
        <source>&amp;Add files…</source>
        <translation>&amp;Add files…</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Remove</translation>
    </message>
    <message>
        <source>Copy &amp;to</source>
        <translation>Copy &amp;to</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>&amp;Browse…</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Stop</translation>
    </message>
    <message>
        <source>Progress of the copy</source>
        <translation>Progress of the copy</translation>
    </message>
    <message>
        <source>Evidence files</source>
        <translation>Evidence files</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Size</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Result</translation>
    </message>
    <message>
        <source>Add files, or drop them here</source>
        <translation>Add files, or drop them here</translation>
    </message>
    <message>
        <source>The folder %1 cannot be opened.</source>
        <translation>The folder %1 cannot be opened.</translation>
    </message>
    <message>
        <source>&amp;Open folder</source>
        <translation>&amp;Open folder</translation>
    </message>
    <message>
        <source>Add &amp;samples</source>
        <translation>Add &amp;samples</translation>
    </message>
    <message>
        <source>Copying files: %1 of %2</source>
        <translation>Copying files: %1 of %2</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of them are not files and were left out.</source>
        <translation>
            <numerusform>%Ln of them is not a file and was left out.</numerusform>
            <numerusform>%Ln of them are not files and were left out.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Client::CTimeLinePage</name>
    <message>
        <source>Making the recordings …</source>
        <translation>Making the recordings …</translation>
    </message>
    <message>
        <source>Recordings: %1</source>
        <translation>Recordings: %1</translation>
    </message>
    <message>
        <source>Nothing was recorded at this time.</source>
        <translation>Nothing was recorded at this time.</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 to %2</translation>
    </message>
    <message>
        <source>&amp;Time</source>
        <translation>&amp;Time</translation>
    </message>
    <message>
        <source>&amp;Recordings</source>
        <translation>&amp;Recordings</translation>
    </message>
    <message>
        <source>Day by day</source>
        <translation>Day by day</translation>
    </message>
    <message>
        <source>&amp;Second camera</source>
        <translation>&amp;Second camera</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>Recordings</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>Overview</translation>
    </message>
    <message>
        <source>At the cursor line</source>
        <translation>At the cursor line</translation>
    </message>
    <message>
        <source>The wheel zooms about the pointer, dragging pans, a click slides there. Keys: Left and Right move, with Shift by more and with Ctrl to the next recording; Page Up and Page Down by what is visible; Home and End to the first and last recording; + and - zoom, 0 goes back; Space describes what is under the line.</source>
        <translation>The wheel zooms about the pointer, dragging pans, a click slides there. Keys: Left and Right move, with Shift by more and with Ctrl to the next recording; Page Up and Page Down by what is visible; Home and End to the first and last recording; + and - zoom, 0 goes back; Space describes what is under the line.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a time such as 2026-03-29 14:30:00.</source>
        <translation>&quot;%1&quot; is not a time such as 2026-03-29 14:30:00.</translation>
    </message>
    <message>
        <source>d MMM yyyy</source>
        <translation>d MMM yyyy</translation>
    </message>
    <message>
        <source>Recordings of %1: %2</source>
        <translation>Recordings of %1: %2</translation>
    </message>
    <message>
        <source>Recordings of the day</source>
        <translation>Recordings of the day</translation>
    </message>
</context>
<context>
    <name>Client::CRecordingsModel</name>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>End</source>
        <translation>End</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Length</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Kind</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Camera</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Recording</translation>
    </message>
</context>
<context>
    <name>Recordings</name>
    <message>
        <source>Continuous</source>
        <translation>Continuous</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Motion</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>Alarm</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Locked</translation>
    </message>
</context>
<context>
    <name>Client::CLoginPage</name>
    <message>
        <source>Log in</source>
        <translation>Log in</translation>
    </message>
    <message>
        <source>Logged in as %1</source>
        <translation>Logged in as %1</translation>
    </message>
    <message>
        <source>on</source>
        <translation>on</translation>
    </message>
    <message>
        <source>off</source>
        <translation>off</translation>
    </message>
    <message>
        <source>Lock of an address</source>
        <translation>Lock of an address</translation>
    </message>
    <message>
        <source>Tries: %1, %2 min</source>
        <translation>Tries: %1, %2 min</translation>
    </message>
    <message>
        <source>Password strength</source>
        <translation>Password strength</translation>
    </message>
    <message>
        <source>level %1</source>
        <translation>level %1</translation>
    </message>
    <message>
        <source>Password expiry</source>
        <translation>Password expiry</translation>
    </message>
    <message numerus="yes">
        <source>after %Ln day(s)</source>
        <translation>
            <numerusform>after %Ln day</numerusform>
            <numerusform>after %Ln days</numerusform>
        </translation>
    </message>
    <message>
        <source>Lock of the client</source>
        <translation>Lock of the client</translation>
    </message>
    <message>
        <source>after %1 min</source>
        <translation>after %1 min</translation>
    </message>
    <message>
        <source>Security setting</source>
        <translation>Security setting</translation>
    </message>
    <message>
        <source>State</source>
        <translation>State</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Values</translation>
    </message>
    <message>
        <source>Security settings</source>
        <translation>Security settings</translation>
    </message>
    <message>
        <source>Lock the client</source>
        <translation>Lock the client</translation>
    </message>
</context>
<context>
    <name>Client::CLockWindow</name>
    <message>
        <source>Locked</source>
        <translation>Locked</translation>
    </message>
    <message>
        <source>Please wait until the work is done</source>
        <translation>Please wait until the work is done</translation>
    </message>
    <message>
        <source>Locked by %1</source>
        <translation>Locked by %1</translation>
    </message>
    <message>
        <source>Unlock</source>
        <translation>Unlock</translation>
    </message>
</context>
<context>
    <name>ExportText</name>
    <message numerus="yes">
        <source>%Ln incident(s) exported to %1</source>
        <translation>
            <numerusform>%Ln incident exported to %1</numerusform>
            <numerusform>%Ln incidents exported to %1</numerusform>
        </translation>
    </message>
    <message>
        <source>The disk is full. %1 was not written.</source>
        <translation>The disk is full. %1 was not written.</translation>
    </message>
    <message>
        <source>Writing failed on the way. %1 was not written.</source>
        <translation>Writing failed on the way. %1 was not written.</translation>
    </message>
    <message>
        <source>Writing failed: %1. %2 was not written.</source>
        <translation>Writing failed: %1. %2 was not written.</translation>
    </message>
    <message>
        <source>There is not enough memory for this export.</source>
        <translation>There is not enough memory for this export.</translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation>The folder %1 does not exist.</translation>
    </message>
    <message>
        <source>%1 is a link that leads nowhere.</source>
        <translation>%1 is a link that leads nowhere.</translation>
    </message>
    <message>
        <source>%1 is a folder.</source>
        <translation>%1 is a folder.</translation>
    </message>
    <message>
        <source>%1 is a device, not a file.</source>
        <translation>%1 is a device, not a file.</translation>
    </message>
    <message>
        <source>%1 is write-protected.</source>
        <translation>%1 is write-protected.</translation>
    </message>
    <message>
        <source>Cannot write to the folder %1: %2</source>
        <translation>Cannot write to the folder %1: %2</translation>
    </message>
    <message>
        <source>Cannot export to “%1”: the name must end with %2.</source>
        <translation>Cannot export to “%1”: the name must end with %2.</translation>
    </message>
    <message>
        <source>There is not enough room for temporary files in %1. Nothing was exported.</source>
        <translation>There is not enough room for temporary files in %1. Nothing was exported.</translation>
    </message>
    <message>
        <source>There is no column to export.</source>
        <translation>There is no column to export.</translation>
    </message>
    <message>
        <source>The list could not be read to its end. %1 was not written.</source>
        <translation>The list could not be read to its end. %1 was not written.</translation>
    </message>
    <message>
        <source>%1 is not in every cell as the list has it: %2.</source>
        <translation>%1 is not in every cell as the list has it: %2.</translation>
    </message>
    <message>
        <source>looks and pictures</source>
        <translation>looks and pictures</translation>
    </message>
    <message numerus="yes">
        <source>%Ln cell(s) cut to 32,767 characters</source>
        <translation>
            <numerusform>%Ln cell cut to 32,767 characters</numerusform>
            <numerusform>%Ln cells cut to 32,767 characters</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln cell(s) with replaced characters</source>
        <translation>
            <numerusform>%Ln cell with replaced characters</numerusform>
            <numerusform>%Ln cells with replaced characters</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln link(s) as plain text</source>
        <translation>
            <numerusform>%Ln link as plain text</numerusform>
            <numerusform>%Ln links as plain text</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 %2 was not written.</source>
        <translation>%1 %2 was not written.</translation>
    </message>
</context>
<context>
    <name>ServerExport</name>
    <message>
        <source>Rows that the server sent: %1 of %2.</source>
        <translation>Rows that the server sent: %1 of %2.</translation>
    </message>
    <message>
        <source>The columns of the server's list have changed.</source>
        <translation>The columns of the server's list have changed.</translation>
    </message>
</context>
<context>
    <name>Client::CProgressDialog</name>
    <message numerus="yes">
        <source>%Ln row(s) done</source>
        <translation>
            <numerusform>%Ln row done</numerusform>
            <numerusform>%Ln rows done</numerusform>
        </translation>
    </message>
</context>
</TS>
