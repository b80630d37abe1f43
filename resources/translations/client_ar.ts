<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>Batch</name>
    <message>
        <source>Reading %1: %2</source>
        <translation>قراءة ‎%1: %2</translation>
    </message>
    <message>
        <source>%1 has no row to repeat.</source>
        <translation>لا يحتوي ‎%1 على أي صف يمكن تكراره.</translation>
    </message>
    <message>
        <source>Exporting: %1</source>
        <translation>التصدير: %1</translation>
    </message>
    <message>
        <source>Exporting: %1, %2</source>
        <translation>التصدير: %1، %2</translation>
    </message>
</context>
<context>
    <name>Client::CListPage</name>
    <message>
        <source>Search all columns</source>
        <translation>البحث في جميع الأعمدة</translation>
    </message>
    <message>
        <source>Shows the incidents that hold this text. Escape clears it.</source>
        <translation>يعرض الحوادث التي تحتوي على هذا النص. يمسحه مفتاح Escape.</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>الحوادث</translation>
    </message>
    <message>
        <source>Shown incidents</source>
        <translation>الحوادث المعروضة</translation>
    </message>
    <message>
        <source>No incident matches</source>
        <translation>لا توجد حوادث مطابقة</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 من %2</translation>
    </message>
</context>
<context>
    <name>Client::CMainWindow</name>
    <message>
        <source>Logged in as %1</source>
        <translation>تم تسجيل الدخول باسم ‎%1</translation>
    </message>
    <message>
        <source>Reading %1…</source>
        <translation>جارٍ قراءة ‎%1…</translation>
    </message>
    <message>
        <source>Exporting…</source>
        <translation>جارٍ التصدير…</translation>
    </message>
    <message>
        <source>Export cancelled</source>
        <translation>أُلغي التصدير</translation>
    </message>
    <message>
        <source>Please wait until the work is done</source>
        <translation>يرجى الانتظار حتى ينتهي العمل</translation>
    </message>
    <message>
        <source>Open a list</source>
        <translation>فتح قائمة</translation>
    </message>
    <message>
        <source>CSV files (*.csv *.txt *.tsv)</source>
        <translation>ملفات CSV (*.csv *.txt *.tsv)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>جميع الملفات (*)</translation>
    </message>
    <message>
        <source>Export as CSV</source>
        <translation>التصدير بصيغة CSV</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>ملفات CSV (*.csv)</translation>
    </message>
    <message>
        <source>About</source>
        <translation>حول البرنامج</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Incidents %1&lt;/h3&gt;&lt;p&gt;Shows, searches and exports incident reports.&lt;/p&gt;&lt;p&gt;The list included holds real wildlife strikes on aircraft, from the public wildlife strike database of the United States.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;الحوادث %1&lt;/h3&gt;&lt;p&gt;يعرض تقارير الحوادث ويبحث فيها ويصدّرها.&lt;/p&gt;&lt;p&gt;تضم القائمة المضمّنة حوادث حقيقية لاصطدام الحيوانات البرية بالطائرات، من قاعدة البيانات العامة لهذه الحوادث في الولايات المتحدة.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>الحوادث</translation>
    </message>
    <message>
        <source>%1 – Incidents</source>
        <translation>%1 – الحوادث</translation>
    </message>
    <message>
        <source>Cancelling the export…</source>
        <translation>جارٍ إلغاء التصدير…</translation>
    </message>
    <message>
        <source>Export as XLSX</source>
        <translation>التصدير بصيغة XLSX</translation>
    </message>
    <message>
        <source>XLSX workbooks (*.xlsx)</source>
        <translation>مصنفات XLSX (*.xlsx)</translation>
    </message>
    <message>
        <source>Stop copying?</source>
        <translation>إيقاف النسخ؟</translation>
    </message>
    <message>
        <source>The current file will be finished.</source>
        <translation>سيُستكمل الملف الحالي.</translation>
    </message>
    <message>
        <source>Not copied then: %1</source>
        <translation>لن يُنسخ عندئذ: %1</translation>
    </message>
    <message>
        <source>, </source>
        <translation>، </translation>
    </message>
    <message>
        <source>&amp;Stop and quit</source>
        <translation>إيقاف وإنهاء (&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Go on copying</source>
        <translation>متابعة النسخ (&amp;G)</translation>
    </message>
    <message numerus="yes">
        <source>, and %Ln more</source>
        <translation>
            <numerusform> و%Ln ملف آخر</numerusform>
            <numerusform> وملف آخر</numerusform>
            <numerusform> وملفان آخران</numerusform>
            <numerusform> و%Ln ملفات أخرى</numerusform>
            <numerusform> و%Ln ملفًا آخر</numerusform>
            <numerusform> و%Ln ملف آخر</numerusform>
        </translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>حفظ باسم…</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>حفظ باسم</translation>
    </message>
    <message>
        <source>Files with commas between the cells (*)</source>
        <translation>ملفات بفواصل بين الخلايا (*)</translation>
    </message>
    <message>
        <source>Files with semicolons between the cells (*)</source>
        <translation>ملفات بفواصل منقوطة بين الخلايا (*)</translation>
    </message>
    <message>
        <source>Files with tabs between the cells (*)</source>
        <translation>ملفات بعلامات جدولة بين الخلايا (*)</translation>
    </message>
    <message>
        <source>Files with vertical bars between the cells (*)</source>
        <translation>ملفات بخطوط عمودية بين الخلايا (*)</translation>
    </message>
</context>
<context>
    <name>Client::CServerLink</name>
    <message>
        <source>There is no server: %1</source>
        <translation>لا يوجد خادم: ‎%1</translation>
    </message>
    <message>
        <source>Cannot log in as %1.</source>
        <translation>تعذّر تسجيل الدخول باسم ‎%1.</translation>
    </message>
    <message>
        <source>Cannot make the folder %1.</source>
        <translation>تعذّر إنشاء المجلد ‎%1.</translation>
    </message>
</context>
<context>
    <name>Client::CWindowActions</name>
    <message>
        <source>Switch &amp;user</source>
        <translation>تبديل المستخدم (&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Go to</source>
        <translation>انتقل إلى (&amp;G)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ملف (&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>فتح (&amp;O)…</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>فتح</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>إنهاء (&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>تحرير (&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>بحث (&amp;F)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>عرض (&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>السمة (&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>فاتحة (&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>داكنة (&amp;D)</translation>
    </message>
    <message>
        <source>High &amp;contrast</source>
        <translation>تباين عالٍ (&amp;C)</translation>
    </message>
    <message>
        <source>Switch theme</source>
        <translation>تبديل السمة</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>السمة</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>اللغة (&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Original order</source>
        <translation>الترتيب الأصلي (&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>مساعدة (&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>حول البرنامج (&amp;A)</translation>
    </message>
    <message>
        <source>Tool bar</source>
        <translation>شريط الأدوات</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>نسخ (&amp;C)</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>تحديد الكل (&amp;A)</translation>
    </message>
    <message>
        <source>Export as &amp;CSV…</source>
        <translation>تصدير بصيغة &amp;CSV…</translation>
    </message>
    <message>
        <source>Export CSV</source>
        <translation>تصدير CSV</translation>
    </message>
    <message>
        <source>Export as &amp;XLSX…</source>
        <translation>تصدير بصيغة &amp;XLSX…</translation>
    </message>
    <message>
        <source>Export XLSX</source>
        <translation>تصدير XLSX</translation>
    </message>
    <message>
        <source>Export &amp;panel</source>
        <translation>لوحة التصدير (&amp;P)</translation>
    </message>
</context>
<context>
    <name>ServerPages</name>
    <message>
        <source>The server did not send the page (error %1).</source>
        <translation>لم يُرسل الخادم الصفحة (الخطأ %1).</translation>
    </message>
    <message>
        <source>The server cannot be reached.</source>
        <translation>يتعذر الوصول إلى الخادم.</translation>
    </message>
    <message>
        <source>The server is busy.</source>
        <translation>الخادم مشغول.</translation>
    </message>
    <message>
        <source>The search took too long. Search for three characters or more.</source>
        <translation>استغرق البحث وقتًا طويلًا. ابحث عن ثلاثة أحرف أو أكثر.</translation>
    </message>
    <message>
        <source>The server needs more time. Try again.</source>
        <translation>يحتاج الخادم إلى مزيد من الوقت. حاول مرة أخرى.</translation>
    </message>
    <message>
        <source>The session has ended. Log in again.</source>
        <translation>انتهت الجلسة. سجّل الدخول مرة أخرى.</translation>
    </message>
</context>
<context>
    <name>Client::CServerListPage</name>
    <message>
        <source>There is no server.</source>
        <translation>لا يوجد خادم.</translation>
    </message>
    <message>
        <source>Loading…</source>
        <translation>جارٍ التحميل…</translation>
    </message>
    <message>
        <source>Search on the server</source>
        <translation>البحث على الخادم</translation>
    </message>
    <message>
        <source>Count the pages</source>
        <translation>عدّ الصفحات</translation>
    </message>
    <message>
        <source>Off: turn page by page, as with a server that cannot count</source>
        <translation>عند الإيقاف: التنقل صفحة بعد صفحة، كما مع خادم لا يستطيع العدّ</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>الحوادث</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>لم يُعثر على شيء</translation>
    </message>
    <message>
        <source>Rows %1 to %2</source>
        <translation>الصفوف من %1 إلى %2</translation>
    </message>
    <message>
        <source>%1 of more than %2</source>
        <translation>%1 من أكثر من %2</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 من %2</translation>
    </message>
    <message numerus="yes">
        <source>%Ln new</source>
        <translation>
            <numerusform>لا جديد</numerusform>
            <numerusform>صف جديد واحد</numerusform>
            <numerusform>صفان جديدان</numerusform>
            <numerusform>%Ln صفوف جديدة</numerusform>
            <numerusform>%Ln صفًا جديدًا</numerusform>
            <numerusform>%Ln صف جديد</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>More than %Ln new</source>
        <translation>
            <numerusform>صفوف جديدة</numerusform>
            <numerusform>أكثر من صف جديد واحد</numerusform>
            <numerusform>أكثر من صفين جديدين</numerusform>
            <numerusform>أكثر من %Ln صفوف جديدة</numerusform>
            <numerusform>أكثر من %Ln صفًا جديدًا</numerusform>
            <numerusform>أكثر من %Ln صف جديد</numerusform>
        </translation>
    </message>
    <message>
        <source>Show the newest rows first</source>
        <translation>عرض أحدث الصفوف أولًا</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>إعادة المحاولة</translation>
    </message>
    <message>
        <source>Newest first</source>
        <translation>الأحدث أولًا</translation>
    </message>
    <message>
        <source>Oldest first</source>
        <translation>الأقدم أولًا</translation>
    </message>
    <message>
        <source>Order: %1</source>
        <translation>الترتيب: %1</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>All is done.</source>
        <translation>تم كل شيء.</translation>
    </message>
    <message>
        <source>A file could not be read or written.</source>
        <translation>تعذرت قراءة ملف أو كتابته.</translation>
    </message>
    <message>
        <source>The options are wrong.</source>
        <translation>الخيارات خاطئة.</translation>
    </message>
    <message>
        <source>SIGHUP, SIGINT or SIGTERM ended an export.</source>
        <translation>أنهت الإشارة SIGHUP أو SIGINT أو SIGTERM عملية تصدير.</translation>
    </message>
    <message>
        <source>Exit status:</source>
        <translation>رمز الخروج:</translation>
    </message>
    <message>
        <source>--server takes [https://]HOST:PORT, not “%1”.</source>
        <translation>يأخذ ‎--server القيمة [https://]HOST:PORT وليس “%1”.</translation>
    </message>
    <message>
        <source>Use this management server, [https://]HOST:PORT, instead of one of its own.</source>
        <translation>استخدام خادم الإدارة هذا، [https://]HOST:PORT، بدلًا من خادم البرنامج نفسه.</translation>
    </message>
    <message>
        <source>Begin with this page: %1.</source>
        <translation>ابدأ بهذه الصفحة: %1.</translation>
    </message>
    <message>
        <source>There is no page “%1”, only: %2.</source>
        <translation>لا توجد صفحة باسم “%1”، بل: %2.</translation>
    </message>
    <message>
        <source>Shows, searches and exports incident reports.</source>
        <translation>يعرض تقارير الحوادث ويبحث فيها ويصدّرها.</translation>
    </message>
    <message>
        <source>Open no window: export the list and take screenshots of it.</source>
        <translation>بلا نافذة: تصدير القائمة والتقاط صور للشاشة.</translation>
    </message>
    <message>
        <source>Folder that --headless writes to (default: out).</source>
        <translation>المجلد الذي يكتب فيه --headless (الافتراضي: out).</translation>
    </message>
    <message>
        <source>Show this list instead of the one included.</source>
        <translation>عرض هذه القائمة بدلاً من القائمة المضمّنة.</translation>
    </message>
    <message>
        <source>Repeat or cut the list to N rows.</source>
        <translation>تكرار القائمة أو اقتطاعها حتى يبلغ عدد صفوفها N.</translation>
    </message>
    <message>
        <source>Keep only the rows that hold this text.</source>
        <translation>الإبقاء على الصفوف التي تحتوي على هذا النص فقط.</translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation>عرض هذه المساعدة.</translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation>عرض رقم الإصدار.</translation>
    </message>
    <message>
        <source>Unexpected argument “%1”.</source>
        <translation>وسيطة غير متوقعة «%1».</translation>
    </message>
    <message>
        <source>--%1 needs a name.</source>
        <translation>يحتاج الخيار --%1 إلى اسم.</translation>
    </message>
    <message>
        <source>--rows takes a whole number from 1 to %1, not “%2”.</source>
        <translation>يقبل الخيار --rows عددًا صحيحًا من 1 إلى %1، لا «%2».</translation>
    </message>
    <message>
        <source>--headless and --export cannot be used together.</source>
        <translation>لا يمكن استعمال الخيارين --headless و--export معًا.</translation>
    </message>
    <message>
        <source>Export the list to this .csv or .xlsx file and exit.</source>
        <translation>تصدير القائمة إلى هذا الملف ‎.csv أو ‎.xlsx ثم الخروج.</translation>
    </message>
</context>
<context>
    <name>CsvFile</name>
    <message>
        <source>%1 has more columns than can be shown.</source>
        <translation>يحتوي ‎%1 على أعمدة أكثر مما يمكن عرضه.</translation>
    </message>
    <message>
        <source>%1 has more rows than can be shown.</source>
        <translation>يحتوي ‎%1 على صفوف أكثر مما يمكن عرضه.</translation>
    </message>
    <message>
        <source>%1 is too large for the memory.</source>
        <translation>حجم ‎%1 أكبر من أن تتسع له الذاكرة.</translation>
    </message>
    <message>
        <source>Cannot read %1: %2</source>
        <translation>تعذّرت قراءة ‎%1: %2</translation>
    </message>
    <message>
        <source>%1 is not a CSV file: it holds zero bytes.</source>
        <translation>ليس ‎%1 ملف CSV: فهو يحتوي على بايتات صفرية.</translation>
    </message>
    <message>
        <source>%1 is empty.</source>
        <translation>الملف ‎%1 فارغ.</translation>
    </message>
    <message>
        <source>%1: a quote in line %2 is not closed. The rows after it may be missing.</source>
        <translation>‎%1: توجد علامة اقتباس غير مغلقة في السطر %2. قد تكون الصفوف التي بعدها مفقودة.</translation>
    </message>
    <message>
        <source>%1 ends in the middle of a character. Rows may be missing.</source>
        <translation>ينتهي ‎%1 في منتصف حرف. قد تكون صفوف مفقودة.</translation>
    </message>
    <message>
        <source>%1 is not in UTF-8. It was read as %2, which is a guess.</source>
        <translation>‎%1 ليس بترميز UTF-8. قُرئ على أنه ‎%2، وهذا تخمين.</translation>
    </message>
</context>
<context>
    <name>Headless</name>
    <message>
        <source>Cannot write %1.</source>
        <translation>تعذّرت كتابة ‎%1.</translation>
    </message>
    <message>
        <source>Wrote %1</source>
        <translation>كُتب ‎%1</translation>
    </message>
    <message>
        <source>Cannot make the folder %1: %2</source>
        <translation>تعذّر إنشاء المجلد ‎%1: %2</translation>
    </message>
</context>
<context>
    <name>TimeLeft</name>
    <message>
        <source>a few seconds left</source>
        <translation>بقيت بضع ثوانٍ</translation>
    </message>
    <message numerus="yes">
        <source>about %Ln second(s) left</source>
        <translation>
            <numerusform>أوشك على الانتهاء</numerusform>
            <numerusform>بقيت نحو ثانية واحدة</numerusform>
            <numerusform>بقيت نحو ثانيتين</numerusform>
            <numerusform>بقي نحو %Ln ثوانٍ</numerusform>
            <numerusform>بقي نحو %Ln ثانية</numerusform>
            <numerusform>بقي نحو %Ln ثانية</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %Ln minute(s) left</source>
        <translation>
            <numerusform>بقي أقل من دقيقة</numerusform>
            <numerusform>بقيت نحو دقيقة واحدة</numerusform>
            <numerusform>بقيت نحو دقيقتين</numerusform>
            <numerusform>بقي نحو %Ln دقائق</numerusform>
            <numerusform>بقي نحو %Ln دقيقة</numerusform>
            <numerusform>بقي نحو %Ln دقيقة</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>XlsxExport</name>
    <message>
        <source>Incidents</source>
        <extracomment>Name of a sheet: at most 12 letters that are not Latin, no signs</extracomment>
        <translation>الحوادث</translation>
    </message>
</context>
<context>
    <name>XlsxSummary</name>
    <message>
        <source>Bar chart of the most frequent values in %1</source>
        <translation>مخطط أعمدة لأكثر القيم تكرارًا في %1</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>العدد</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>الحوادث</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>الصفوف</translation>
    </message>
    <message>
        <source>All rows</source>
        <translation>كل الصفوف</translation>
    </message>
    <message>
        <source>Searched for</source>
        <translation>نص البحث</translation>
    </message>
    <message>
        <source>Exported on</source>
        <translation>تاريخ التصدير</translation>
    </message>
    <message>
        <source>Sheet</source>
        <translation>الورقة</translation>
    </message>
    <message>
        <source>Summary</source>
        <extracomment>Name of a sheet: at most 15 letters that are not Latin, no signs</extracomment>
        <translation>الملخص</translation>
    </message>
</context>
<context>
    <name>Pages</name>
    <message>
        <source>Time line</source>
        <translation>الخط الزمني</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>الأجهزة</translation>
    </message>
    <message>
        <source>Incidents</source>
        <translation>الحوادث</translation>
    </message>
    <message>
        <source>Server list</source>
        <translation>قائمة الخادم</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>الألوان</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>الصفحات</translation>
    </message>
    <message>
        <source>Evidence</source>
        <translation>الأدلة</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>تسجيل الدخول</translation>
    </message>
</context>
<context>
    <name>ScreenKeyboard</name>
    <message>
        <source>Up and left</source>
        <translation>أعلى ويسار</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>أعلى</translation>
    </message>
    <message>
        <source>Up and right</source>
        <translation>أعلى ويمين</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>يسار</translation>
    </message>
    <message>
        <source>Switch between camera and windows</source>
        <translation>التبديل بين الكاميرا والنوافذ</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>يمين</translation>
    </message>
    <message>
        <source>Down and left</source>
        <translation>أسفل ويسار</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>أسفل</translation>
    </message>
    <message>
        <source>Down and right</source>
        <translation>أسفل ويمين</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>تكبير</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>تصغير</translation>
    </message>
    <message>
        <source>Select the first window</source>
        <translation>اختيار النافذة الأولى</translation>
    </message>
</context>
<context>
    <name>Client::CScreenKeyboard</name>
    <message>
        <source>&amp;Plugged in</source>
        <translation>موصولة (&amp;P)</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>السرعة</translation>
    </message>
</context>
<context>
    <name>Client::CPtzView</name>
    <message>
        <source>Pan %1°  Tilt %2°  Zoom %3×</source>
        <translation>الدوران ‎%1°  الميل ‎%2°  التكبير ‎%3×</translation>
    </message>
</context>
<context>
    <name>Client::CDevicesPage</name>
    <message>
        <source>Display</source>
        <translation>شاشة</translation>
    </message>
    <message>
        <source>windows</source>
        <translation>النوافذ</translation>
    </message>
    <message>
        <source>camera</source>
        <translation>الكاميرا</translation>
    </message>
    <message>
        <source>%1: %2 × %3 at %4, %5</source>
        <translation>‎%1: %2 × %3 ‎(%4, %5)</translation>
    </message>
    <message>
        <source>%1 (primary)</source>
        <translation>%1 (الأساسية)</translation>
    </message>
    <message>
        <source>A joystick is connected.</source>
        <translation>عصا تحكم متصلة.</translation>
    </message>
    <message>
        <source>A USB keyboard is connected.</source>
        <translation>لوحة مفاتيح USB متصلة.</translation>
    </message>
    <message>
        <source>Keyboard on the screen</source>
        <translation>لوحة مفاتيح على الشاشة</translation>
    </message>
    <message>
        <source>Camera picture</source>
        <translation>صورة الكاميرا</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>الأوامر</translation>
    </message>
    <message>
        <source>Displays</source>
        <translation>الشاشات</translation>
    </message>
    <message>
        <source>No joystick is connected; the keys below take its place.</source>
        <translation>لا توجد عصا تحكم متصلة؛ المفاتيح أدناه تقوم مقامها.</translation>
    </message>
    <message>
        <source>The joystick chooses windows; its button 1 switches to the camera.</source>
        <translation>عصا التحكم تختار النوافذ؛ الزر 1 فيها ينتقل إلى الكاميرا.</translation>
    </message>
    <message>
        <source>The joystick steers the camera; its button 1 switches to the windows.</source>
        <translation>عصا التحكم توجّه الكاميرا؛ الزر 1 فيها ينتقل إلى النوافذ.</translation>
    </message>
    <message>
        <source>The keyboard chooses windows; ⇄ switches to the camera.</source>
        <translation>لوحة المفاتيح تختار النوافذ؛ ⇄ ينتقل إلى الكاميرا.</translation>
    </message>
    <message>
        <source>The keyboard steers the camera; ⇄ switches to the windows.</source>
        <translation>لوحة المفاتيح توجّه الكاميرا؛ ⇄ ينتقل إلى النوافذ.</translation>
    </message>
    <message>
        <source>%1 (%2) – %3</source>
        <translation>%1 (%2) – %3</translation>
    </message>
    <message>
        <source>Listening at %1, %2 baud.</source>
        <translation>الاستماع عند ‎%1‎ بسرعة ‎%2‎ بود.</translation>
    </message>
    <message>
        <source>%1 is lost; it is tried again every second.</source>
        <translation>انقطع ‎%1‎؛ تُعاد المحاولة كل ثانية.</translation>
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
        <translation>جارٍ الاتصال …</translation>
    </message>
    <message>
        <source>Send on to a Pelco-D camera</source>
        <translation>الإرسال إلى كاميرا Pelco-D</translation>
    </message>
    <message>
        <source>Serial keyboard</source>
        <translation>لوحة المفاتيح التسلسلية</translation>
    </message>
    <message>
        <source>&amp;To</source>
        <translation>إلى (&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Port</source>
        <translation>المنفذ (&amp;P)</translation>
    </message>
    <message>
        <source>Port, path or host:port</source>
        <translation>منفذ أو مسار أو host:port</translation>
    </message>
    <message>
        <source>Port or path</source>
        <translation>منفذ أو مسار</translation>
    </message>
    <message>
        <source>Ba&amp;ud</source>
        <translation>السرعة (&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Baud</source>
        <translation>السرعة (&amp;B)</translation>
    </message>
    <message>
        <source>Camera &amp;address</source>
        <translation>العنوان (&amp;A)</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>قطع الاتصال</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>اتصال</translation>
    </message>
</context>
<context>
    <name>Client::CPelcoSender</name>
    <message>
        <source>There is no answer.</source>
        <translation>لا يوجد رد.</translation>
    </message>
    <message>
        <source>The port is lost.</source>
        <translation>انقطع المنفذ.</translation>
    </message>
    <message>
        <source>Sending to %1 at %2 baud.</source>
        <translation>الإرسال إلى ‎%1‎ بسرعة ‎%2‎ بود.</translation>
    </message>
    <message>
        <source>Sending to %1.</source>
        <translation>الإرسال إلى ‎%1‎.</translation>
    </message>
    <message>
        <source>The camera takes no more commands.</source>
        <translation>لم تعد الكاميرا تقبل الأوامر.</translation>
    </message>
</context>
<context>
    <name>PortText</name>
    <message>
        <source>Choose a port or enter its path.</source>
        <translation>اختر منفذًا أو أدخل مساره.</translation>
    </message>
    <message>
        <source>There is no port %1.</source>
        <translation>لا يوجد منفذ ‎%1‎.</translation>
    </message>
    <message>
        <source>You have no permission for %1. Your user must be a member of the group %2.</source>
        <translation>لا تملك صلاحية ‎%1‎. يجب أن يكون مستخدمك عضوًا في المجموعة ‎%2‎.</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>تعذّر فتح ‎%1‎: %2</translation>
    </message>
</context>
<context>
    <name>CommandText</name>
    <message>
        <source>tilt up</source>
        <translation>إمالة إلى أعلى</translation>
    </message>
    <message>
        <source>tilt down</source>
        <translation>إمالة إلى أسفل</translation>
    </message>
    <message>
        <source>pan left</source>
        <translation>دوران إلى اليسار</translation>
    </message>
    <message>
        <source>pan right</source>
        <translation>دوران إلى اليمين</translation>
    </message>
    <message>
        <source>up and left</source>
        <translation>أعلى ويسار</translation>
    </message>
    <message>
        <source>up and right</source>
        <translation>أعلى ويمين</translation>
    </message>
    <message>
        <source>down and left</source>
        <translation>أسفل ويسار</translation>
    </message>
    <message>
        <source>down and right</source>
        <translation>أسفل ويمين</translation>
    </message>
    <message>
        <source>zoom in</source>
        <translation>تقريب</translation>
    </message>
    <message>
        <source>zoom out</source>
        <translation>تبعيد</translation>
    </message>
    <message>
        <source>focus near</source>
        <translation>تركيز قريب</translation>
    </message>
    <message>
        <source>focus far</source>
        <translation>تركيز بعيد</translation>
    </message>
    <message>
        <source>open the iris</source>
        <translation>فتح القزحية</translation>
    </message>
    <message>
        <source>close the iris</source>
        <translation>إغلاق القزحية</translation>
    </message>
    <message>
        <source>select in the first window</source>
        <translation>اختيار في النافذة الأولى</translation>
    </message>
    <message>
        <source>select in the second window</source>
        <translation>اختيار في النافذة الثانية</translation>
    </message>
    <message>
        <source>call the preset</source>
        <translation>استدعاء الموضع المحفوظ</translation>
    </message>
    <message>
        <source>special key</source>
        <translation>مفتاح خاص</translation>
    </message>
    <message>
        <source>stop: %1</source>
        <translation>إيقاف: %1</translation>
    </message>
    <message>
        <source>%1 at speed %2</source>
        <translation>%1 بسرعة %2</translation>
    </message>
    <message>
        <source>%1, number %2</source>
        <translation>%1، رقم %2</translation>
    </message>
</context>
<context>
    <name>Client::CZoneSwitch</name>
    <message>
        <source>The clocks do not change.</source>
        <translation>الساعات لا تتغير.</translation>
    </message>
    <message>
        <source>d MMM yyyy HH:mm</source>
        <translation>d MMM yyyy HH:mm</translation>
    </message>
    <message>
        <source>The clocks go forward on %1.</source>
        <translation>تُقدَّم الساعات في %1.</translation>
    </message>
    <message>
        <source>The clocks go back on %1.</source>
        <translation>تُؤخَّر الساعات في %1.</translation>
    </message>
    <message>
        <source>Time &amp;zone</source>
        <translation>المنطقة الزمنية (&amp;Z)</translation>
    </message>
    <message>
        <source>Time zone</source>
        <translation>المنطقة الزمنية</translation>
    </message>
    <message>
        <source>&amp;Earlier change</source>
        <translation>التغيير السابق (&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Later change</source>
        <translation>التغيير اللاحق (&amp;L)</translation>
    </message>
    <message>
        <source>Go to where the clocks of this zone were changed last</source>
        <translation>انتقل إلى آخر تغيير لساعات هذه المنطقة</translation>
    </message>
    <message>
        <source>Go to where the clocks of this zone are changed next</source>
        <translation>انتقل إلى التغيير القادم لساعات هذه المنطقة</translation>
    </message>
</context>
<context>
    <name>Client::CTableColumns</name>
    <message>
        <source>The column width could not be saved. %1</source>
        <translation>تعذّر حفظ عرض الأعمدة. %1</translation>
    </message>
    <message>
        <source>Choose how wide columns are</source>
        <translation>اختيار عرض الأعمدة</translation>
    </message>
</context>
<context>
    <name>Client::CDetailPanel</name>
    <message>
        <source>The incident is in the clipboard</source>
        <translation>نُسخت الحادثة إلى الحافظة</translation>
    </message>
    <message>
        <source>Incident</source>
        <translation>حادثة</translation>
    </message>
    <message>
        <source>Incident %1</source>
        <translation>الحادثة %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
</context>
<context>
    <name>Client::CExportPanel</name>
    <message>
        <source>Export the list</source>
        <translation>تصدير القائمة</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>تصدير…</translation>
    </message>
    <message>
        <source>Rows that the list shows, in its order: %1</source>
        <translation>الصفوف المعروضة في القائمة، بترتيبها: %1</translation>
    </message>
    <message>
        <source>XLSX workbook</source>
        <translation>مصنف XLSX</translation>
    </message>
    <message>
        <source>With a summary and charts, for a spreadsheet.</source>
        <translation>مع ملخص ومخططات، لبرامج الجداول.</translation>
    </message>
    <message>
        <source>CSV file</source>
        <translation>ملف CSV</translation>
    </message>
    <message>
        <source>Plain text, for other programs.</source>
        <translation>نص عادي، لبرامج أخرى.</translation>
    </message>
    <message>
        <source>Rows that the list shows, in its order: more than %1</source>
        <translation>الصفوف التي تعرضها القائمة بترتيبها: أكثر من %1</translation>
    </message>
</context>
<context>
    <name>Client::CEvidencePage</name>
    <message>
        <source>Add evidence files</source>
        <translation>إضافة ملفات الأدلة</translation>
    </message>
    <message>
        <source>Copy to</source>
        <translation>النسخ إلى</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>تعذّر إنشاء المجلد %1.</translation>
    </message>
    <message>
        <source>Stopping after the current file…</source>
        <translation>سيتوقف بعد الملف الحالي…</translation>
    </message>
    <message>
        <source>Files: %1 of %2, %3 of %4</source>
        <translation>الملفات: %1 من %2، %3 من %4</translation>
    </message>
    <message>
        <source>All files have arrived: %1.</source>
        <translation>وصلت كل الملفات: %1.</translation>
    </message>
    <message>
        <source>Files that have arrived: %1 of %2. The others are listed with the reason.</source>
        <translation>الملفات التي وصلت: %1 من %2. والبقية مدرجة مع السبب.</translation>
    </message>
    <message>
        <source>Copied as %1</source>
        <translation>نُسخ باسم %1</translation>
    </message>
    <message>
        <source>Not copied: %1</source>
        <translation>لم يُنسخ: %1</translation>
    </message>
    <message>
        <source>&amp;Add files…</source>
        <translation>إضافة ملفات (&amp;A)…</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>إزالة (&amp;R)</translation>
    </message>
    <message>
        <source>Copy &amp;to</source>
        <translation>النسخ إلى (&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>استعراض (&amp;B)…</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>نسخ (&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>إيقاف (&amp;S)</translation>
    </message>
    <message>
        <source>Progress of the copy</source>
        <translation>تقدم النسخ</translation>
    </message>
    <message>
        <source>Evidence files</source>
        <translation>ملفات الأدلة</translation>
    </message>
    <message>
        <source>File</source>
        <translation>الملف</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>الحجم</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>النتيجة</translation>
    </message>
    <message>
        <source>Add files, or drop them here</source>
        <translation>أضف ملفات أو أفلتها هنا</translation>
    </message>
    <message>
        <source>The folder %1 cannot be opened.</source>
        <translation>تعذّر فتح المجلد %1.</translation>
    </message>
    <message>
        <source>&amp;Open folder</source>
        <translation>فتح المجلد (&amp;O)</translation>
    </message>
    <message>
        <source>Add &amp;samples</source>
        <translation>إضافة عيّنات (&amp;S)</translation>
    </message>
    <message>
        <source>Copying files: %1 of %2</source>
        <translation>نسخ الملفات: %1 من %2</translation>
    </message>
    <message numerus="yes">
        <source>%Ln of them are not files and were left out.</source>
        <translation>
            <numerusform>لم يُترك شيء.</numerusform>
            <numerusform>عنصر واحد ليس ملفًا وتُرك.</numerusform>
            <numerusform>عنصران ليسا ملفين وتُركا.</numerusform>
            <numerusform>%Ln عناصر ليست ملفات وتُركت.</numerusform>
            <numerusform>%Ln عنصرًا ليست ملفات وتُركت.</numerusform>
            <numerusform>%Ln عنصر ليست ملفات وتُركت.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Client::CTimeLinePage</name>
    <message>
        <source>Making the recordings …</source>
        <translation>جارٍ إعداد التسجيلات …</translation>
    </message>
    <message>
        <source>Recordings: %1</source>
        <translation>التسجيلات: ‎%1</translation>
    </message>
    <message>
        <source>Nothing was recorded at this time.</source>
        <translation>لم يُسجَّل شيء في هذا الوقت.</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>من %1 إلى %2</translation>
    </message>
    <message>
        <source>&amp;Time</source>
        <translation>الوقت (&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Recordings</source>
        <translation>التسجيلات (&amp;R)</translation>
    </message>
    <message>
        <source>Day by day</source>
        <translation>يومًا بيوم</translation>
    </message>
    <message>
        <source>&amp;Second camera</source>
        <translation>الكاميرا الثانية (&amp;S)</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>التسجيلات</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>نظرة عامة</translation>
    </message>
    <message>
        <source>At the cursor line</source>
        <translation>عند خط المؤشر</translation>
    </message>
    <message>
        <source>The wheel zooms about the pointer, dragging pans, a click slides there. Keys: Left and Right move, with Shift by more and with Ctrl to the next recording; Page Up and Page Down by what is visible; Home and End to the first and last recording; + and - zoom, 0 goes back; Space describes what is under the line.</source>
        <translation>تكبّر العجلة حول المؤشر، والسحب يحرّك الخط، والنقر ينتقل إلى الموضع. المفاتيح: يسار ويمين للتحريك، ومع Shift بمقدار أكبر ومع Ctrl إلى التسجيل التالي؛ Page Up وPage Down بمقدار ما يظهر؛ Home وEnd إلى أول تسجيل وآخره؛ + و- للتكبير والتصغير، و0 للعودة؛ والمسافة تعرض ما تحت الخط.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a time such as 2026-03-29 14:30:00.</source>
        <translation>&quot;%1&quot; ليس وقتًا مثل ‎2026-03-29 14:30:00.</translation>
    </message>
    <message>
        <source>d MMM yyyy</source>
        <translation>d MMM yyyy</translation>
    </message>
    <message>
        <source>Recordings of %1: %2</source>
        <translation>تسجيلات %1: ‎%2</translation>
    </message>
    <message>
        <source>Recordings of the day</source>
        <translation>تسجيلات اليوم</translation>
    </message>
</context>
<context>
    <name>Client::CRecordingsModel</name>
    <message>
        <source>Start</source>
        <translation>البداية</translation>
    </message>
    <message>
        <source>End</source>
        <translation>النهاية</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>المدة</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>النوع</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>الكاميرا</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>التسجيل</translation>
    </message>
</context>
<context>
    <name>Recordings</name>
    <message>
        <source>Continuous</source>
        <translation>مستمر</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>حركة</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>إنذار</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>محمي</translation>
    </message>
</context>
<context>
    <name>Client::CLoginPage</name>
    <message>
        <source>Log in</source>
        <translation>تسجيل الدخول</translation>
    </message>
    <message>
        <source>Logged in as %1</source>
        <translation>تم تسجيل الدخول باسم %1</translation>
    </message>
    <message>
        <source>on</source>
        <translation>مفعّل</translation>
    </message>
    <message>
        <source>off</source>
        <translation>معطّل</translation>
    </message>
    <message>
        <source>Lock of an address</source>
        <translation>قفل العنوان</translation>
    </message>
    <message>
        <source>Tries: %1, %2 min</source>
        <translation>المحاولات: %1، %2 دقيقة</translation>
    </message>
    <message>
        <source>Password strength</source>
        <translation>قوة كلمة المرور</translation>
    </message>
    <message>
        <source>level %1</source>
        <translation>المستوى %1</translation>
    </message>
    <message>
        <source>Password expiry</source>
        <translation>انتهاء صلاحية كلمة المرور</translation>
    </message>
    <message numerus="yes">
        <source>after %Ln day(s)</source>
        <translation>
            <numerusform>بعد %Ln يوم</numerusform>
            <numerusform>بعد يوم واحد</numerusform>
            <numerusform>بعد يومين</numerusform>
            <numerusform>بعد %Ln أيام</numerusform>
            <numerusform>بعد %Ln يومًا</numerusform>
            <numerusform>بعد %Ln يوم</numerusform>
        </translation>
    </message>
    <message>
        <source>Lock of the client</source>
        <translation>قفل البرنامج</translation>
    </message>
    <message>
        <source>after %1 min</source>
        <translation>بعد %1 دقيقة</translation>
    </message>
    <message>
        <source>Security setting</source>
        <translation>إعداد الأمان</translation>
    </message>
    <message>
        <source>State</source>
        <translation>الحالة</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>القيم</translation>
    </message>
    <message>
        <source>Security settings</source>
        <translation>إعدادات الأمان</translation>
    </message>
    <message>
        <source>Lock the client</source>
        <translation>قفل البرنامج</translation>
    </message>
</context>
<context>
    <name>Client::CLockWindow</name>
    <message>
        <source>Locked</source>
        <translation>مقفل</translation>
    </message>
    <message>
        <source>Please wait until the work is done</source>
        <translation>يرجى الانتظار حتى ينتهي العمل</translation>
    </message>
    <message>
        <source>Locked by %1</source>
        <translation>مقفل بواسطة %1</translation>
    </message>
    <message>
        <source>Unlock</source>
        <translation>إلغاء القفل</translation>
    </message>
</context>
<context>
    <name>ExportText</name>
    <message numerus="yes">
        <source>%Ln incident(s) exported to %1</source>
        <translation>
            <numerusform>لم يُصدَّر أي حادث إلى ‎%1</numerusform>
            <numerusform>صُدِّر حادث واحد إلى ‎%1</numerusform>
            <numerusform>صُدِّر حادثان إلى ‎%1</numerusform>
            <numerusform>صُدِّرت %Ln حوادث إلى ‎%1</numerusform>
            <numerusform>صُدِّر %Ln حادثًا إلى ‎%1</numerusform>
            <numerusform>صُدِّر %Ln حادث إلى ‎%1</numerusform>
        </translation>
    </message>
    <message>
        <source>The disk is full. %1 was not written.</source>
        <translation>القرص ممتلئ. لم تتم كتابة ‎%1.</translation>
    </message>
    <message>
        <source>Writing failed on the way. %1 was not written.</source>
        <translation>تعذّر إتمام الكتابة. لم تتم كتابة ‎%1.</translation>
    </message>
    <message>
        <source>Writing failed: %1. %2 was not written.</source>
        <translation>تعذّرت الكتابة: %1. لم تتم كتابة ‎%2.</translation>
    </message>
    <message>
        <source>There is not enough memory for this export.</source>
        <translation>الذاكرة لا تكفي لهذا التصدير.</translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation>المجلد ‎%1 غير موجود.</translation>
    </message>
    <message>
        <source>%1 is a link that leads nowhere.</source>
        <translation>‎%1 رابط لا يؤدي إلى شيء.</translation>
    </message>
    <message>
        <source>%1 is a folder.</source>
        <translation>‎%1 مجلد.</translation>
    </message>
    <message>
        <source>%1 is a device, not a file.</source>
        <translation>‎%1 جهاز وليس ملفًا.</translation>
    </message>
    <message>
        <source>%1 is write-protected.</source>
        <translation>‎%1 محمي من الكتابة.</translation>
    </message>
    <message>
        <source>Cannot write to the folder %1: %2</source>
        <translation>تعذّرت الكتابة في المجلد ‎%1: %2</translation>
    </message>
    <message>
        <source>Cannot export to “%1”: the name must end with %2.</source>
        <translation>تعذّر التصدير إلى «‎%1»: يجب أن ينتهي الاسم بـ %2.</translation>
    </message>
    <message>
        <source>There is not enough room for temporary files in %1. Nothing was exported.</source>
        <translation>لا تكفي المساحة للملفات المؤقتة في ‎%1. لم يُصدَّر شيء.</translation>
    </message>
    <message>
        <source>There is no column to export.</source>
        <translation>لا يوجد عمود للتصدير.</translation>
    </message>
    <message>
        <source>The list could not be read to its end. %1 was not written.</source>
        <translation>تعذّرت قراءة القائمة حتى نهايتها. لم تتم كتابة ‎%1.</translation>
    </message>
    <message>
        <source>%1 is not in every cell as the list has it: %2.</source>
        <translation>لا يطابق ‎%1 القائمة في كل خلية: %2.</translation>
    </message>
    <message>
        <source>looks and pictures</source>
        <translation>المظهر والصور</translation>
    </message>
    <message numerus="yes">
        <source>%Ln cell(s) cut to 32,767 characters</source>
        <translation>
            <numerusform>لا خلايا مقصوصة</numerusform>
            <numerusform>خلية واحدة قُصّت إلى ٣٢٬٧٦٧ حرفًا</numerusform>
            <numerusform>خليتان قُصّتا إلى ٣٢٬٧٦٧ حرفًا</numerusform>
            <numerusform>%Ln خلايا قُصّت إلى ٣٢٬٧٦٧ حرفًا</numerusform>
            <numerusform>%Ln خلية قُصّت إلى ٣٢٬٧٦٧ حرفًا</numerusform>
            <numerusform>%Ln خلية قُصّت إلى ٣٢٬٧٦٧ حرفًا</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln cell(s) with replaced characters</source>
        <translation>
            <numerusform>لا خلايا بأحرف مستبدلة</numerusform>
            <numerusform>خلية واحدة بأحرف مستبدلة</numerusform>
            <numerusform>خليتان بأحرف مستبدلة</numerusform>
            <numerusform>%Ln خلايا بأحرف مستبدلة</numerusform>
            <numerusform>%Ln خلية بأحرف مستبدلة</numerusform>
            <numerusform>%Ln خلية بأحرف مستبدلة</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln link(s) as plain text</source>
        <translation>
            <numerusform>لا روابط كنص عادي</numerusform>
            <numerusform>رابط واحد كنص عادي</numerusform>
            <numerusform>رابطان كنص عادي</numerusform>
            <numerusform>%Ln روابط كنص عادي</numerusform>
            <numerusform>%Ln رابطًا كنص عادي</numerusform>
            <numerusform>%Ln رابط كنص عادي</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 %2 was not written.</source>
        <translation>%1 لم يُكتب %2.</translation>
    </message>
</context>
<context>
    <name>ServerExport</name>
    <message>
        <source>Rows that the server sent: %1 of %2.</source>
        <translation>أرسل الخادم %1 من %2 من الصفوف.</translation>
    </message>
    <message>
        <source>The columns of the server's list have changed.</source>
        <translation>تغيّرت أعمدة قائمة الخادم.</translation>
    </message>
</context>
<context>
    <name>Client::CProgressDialog</name>
    <message numerus="yes">
        <source>%Ln row(s) done</source>
        <translation>
            <numerusform>لم يُنجز أي صف</numerusform>
            <numerusform>أُنجز صف واحد</numerusform>
            <numerusform>أُنجز صفان</numerusform>
            <numerusform>أُنجزت %Ln صفوف</numerusform>
            <numerusform>أُنجز %Ln صفًا</numerusform>
            <numerusform>أُنجز %Ln صف</numerusform>
        </translation>
    </message>
</context>
</TS>
