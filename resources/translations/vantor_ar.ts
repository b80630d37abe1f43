<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>SimpleMutiPageWidgetUi</name>
    <message>
        <source>TheTotalNumberOf%ruHYFtyFtVv</source>
        <translation>إجمالي السجلات: %1</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>الإجمالي</translation>
    </message>
    <message>
        <source>TheHomePageIceUgVgXxlcmQes</source>
        <translation>الصفحة الأولى</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>الصفحة السابقة</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>الصفحة التالية</translation>
    </message>
    <message>
        <source>LastPage</source>
        <translation>الصفحة الأخيرة</translation>
    </message>
    <message>
        <source>BatchAlarmConfirmatiglkJZKGR</source>
        <translation>تأكيد الإنذارات</translation>
    </message>
    <message>
        <source>Jumpxomgyeiu</source>
        <translation>انتقال</translation>
    </message>
    <message>
        <source>TheAdaptive1GOQY412</source>
        <translation>تلقائي</translation>
    </message>
    <message>
        <source>ThereIsNoMatchedResultFound</source>
        <translation>لم يُعثر على نتائج مطابقة.</translation>
    </message>
    <message>
        <source>RecordsPerPage</source>
        <translation>السجلات في كل صفحة</translation>
    </message>
    <message>
        <source>CurrentPage</source>
        <translation>الصفحة الحالية</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>تصفية</translation>
    </message>
    <message>
        <source>ClearFilter</source>
        <translation>مسح</translation>
    </message>
    <message>
        <source>MoreFilter</source>
        <translation>المزيد</translation>
    </message>
    <message>
        <source>KeyWord</source>
        <translation>كلمة البحث</translation>
    </message>
    <message>
        <source>ShowFilter</source>
        <translation>إظهار التصفية أو إخفاؤها</translation>
    </message>
    <message>
        <source>All</source>
        <translation>الكل</translation>
    </message>
    <message>
        <source>Blank</source>
        <translation>فارغ</translation>
    </message>
</context>
<context>
    <name>Vantor</name>
    <message>
        <source>Password</source>
        <translation>كلمة المرور</translation>
    </message>
    <message>
        <source>TheCapsLockKeyOpensPtQBnbXZa</source>
        <translation>مفتاح Caps Lock مفعّل</translation>
    </message>
    <message>
        <source>HidePassword</source>
        <translation>إخفاء كلمة المرور</translation>
    </message>
    <message>
        <source>ShowPassword</source>
        <translation>إظهار كلمة المرور</translation>
    </message>
    <message>
        <source>VerificationCode</source>
        <translation>رمز التحقق</translation>
    </message>
    <message>
        <source>ClickForAnotherImage</source>
        <translation>انقر للحصول على صورة أخرى</translation>
    </message>
    <message>
        <source>ThePasswordIsEmptydADZgBNplv</source>
        <translation>أدخل كلمة المرور.</translation>
    </message>
    <message>
        <source>TheVerificationCodeCannotBeEmpty</source>
        <translation>أدخل رمز التحقق.</translation>
    </message>
    <message>
        <source>TheImageCannotBeShown</source>
        <translation>لا يمكن عرض صورة رمز التحقق. انقر للمحاولة مرة أخرى.</translation>
    </message>
    <message>
        <source>TheCheckFailed</source>
        <translation>تعذّر التحقق من كلمة المرور.</translation>
    </message>
    <message>
        <source>ACheckIsRunning</source>
        <translation>يجري التحقق من كلمة المرور بالفعل.</translation>
    </message>
    <message>
        <source>RequestTimeOut</source>
        <translation>استغرق التحقق وقتًا طويلاً. </translation>
    </message>
    <message>
        <source>UserName</source>
        <translation>اسم المستخدم</translation>
    </message>
    <message>
        <source>RemainingLEesrBBJA</source>
        <translation> المحاولات المتبقية: %1.</translation>
    </message>
    <message>
        <source>Peltra.ee229a03a27748f2bb7b3e2a08484b6a.msg</source>
        <translation>أعد المحاولة بعد %1 ث.</translation>
    </message>
    <message>
        <source>Peltra.41c6a3785fc04331bd942f16e691f805.msg</source>
        <translation>أعد المحاولة بعد %1 د %2 ث.</translation>
    </message>
    <message>
        <source>The user name or the password is wrong.</source>
        <translation>اسم المستخدم أو كلمة المرور غير صحيحة.</translation>
    </message>
    <message>
        <source>The verification code is wrong.</source>
        <translation>رمز التحقق غير صحيح.</translation>
    </message>
    <message>
        <source>A verification code is needed.</source>
        <translation>يلزم رمز التحقق.</translation>
    </message>
    <message>
        <source>This user is locked.</source>
        <translation>هذا المستخدم مقفل.</translation>
    </message>
    <message>
        <source>This address is locked.</source>
        <translation>هذا العنوان مقفل.</translation>
    </message>
    <message>
        <source>TheUSBKeyboardIsDetected</source>
        <translation>اكتُشفت لوحة مفاتيح USB</translation>
    </message>
    <message>
        <source>TheUSBKeyboardDisconnected</source>
        <translation>فُصلت لوحة مفاتيح USB</translation>
    </message>
    <message>
        <source>USBJoystickDeviceIsFound</source>
        <translation>عُثر على عصا تحكم USB</translation>
    </message>
    <message>
        <source>TheUSBJoystickDisconnected</source>
        <translation>فُصلت عصا تحكم USB</translation>
    </message>
    <message>
        <source>USBJoystickIsCurrentjebLzucZ</source>
        <translation>التحكم في النوافذ مفعّل</translation>
    </message>
    <message>
        <source>USBRockerIsCurrentlyDLwSBpeZ</source>
        <translation>التحكم في الكاميرا مفعّل</translation>
    </message>
    <message>
        <source>SwitchToWallModeAJryBrmWGiU</source>
        <translation>وضع الجدار مفعّل</translation>
    </message>
    <message>
        <source>SwitchToVideoModeMrVWQzLOUDm</source>
        <translation>وضع الفيديو مفعّل</translation>
    </message>
    <message>
        <source>Please wait</source>
        <translation>يرجى الانتظار</translation>
    </message>
    <message>
        <source>The list could not be read</source>
        <translation>تعذّرت قراءة القائمة</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>الأعمدة</translation>
    </message>
    <message>
        <source>Choose columns</source>
        <translation>اختيار الأعمدة</translation>
    </message>
    <message>
        <source>All columns</source>
        <translation>كل الأعمدة</translation>
    </message>
    <message>
        <source>Loading…</source>
        <translation>جارٍ التحميل…</translation>
    </message>
    <message>
        <source>Could not be read</source>
        <translation>تعذرت القراءة</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>إعادة المحاولة</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>إعادة الضبط</translation>
    </message>
    <message>
        <source>Shows the columns as they were at first.</source>
        <translation>يعرض الأعمدة كما كانت في البداية.</translation>
    </message>
    <message>
        <source>Space shows and hides a column, Alt and the arrow keys move it.</source>
        <translation>يُظهر مفتاح المسافة العمود ويخفيه، وينقله مفتاح Alt مع مفاتيح الأسهم.</translation>
    </message>
    <message>
        <source>Column width</source>
        <translation>عرض الأعمدة</translation>
    </message>
    <message>
        <source>Minimum width</source>
        <translation>أقل عرض</translation>
    </message>
    <message>
        <source>Maximum width</source>
        <translation>أكبر عرض</translation>
    </message>
    <message>
        <source>Peltra.9778d4835a7946b6ab94c46d137616dc.name</source>
        <translation>تعذّر تحميل اختيار الأعمدة أو حفظه. %1</translation>
    </message>
    <message>
        <source>The server does not answer.</source>
        <translation>الخادم لا يستجيب.</translation>
    </message>
    <message>
        <source>The server cannot be reached.</source>
        <translation>تعذّر الوصول إلى الخادم.</translation>
    </message>
    <message>
        <source>There is no secure connection to the server.</source>
        <translation>لا يوجد اتصال آمن بالخادم.</translation>
    </message>
    <message>
        <source>The certificate of the server is not trusted.</source>
        <translation>شهادة الخادم غير موثوق بها.</translation>
    </message>
    <message>
        <source>The connection to the server broke.</source>
        <translation>انقطع الاتصال بالخادم.</translation>
    </message>
    <message>
        <source>The answer of the server is too large.</source>
        <translation>إجابة الخادم كبيرة جدًا.</translation>
    </message>
    <message>
        <source>The answer of the server makes no sense.</source>
        <translation>إجابة الخادم غير مفهومة.</translation>
    </message>
    <message>
        <source>You are not logged in.</source>
        <translation>لم تسجّل الدخول.</translation>
    </message>
    <message>
        <source>You may not do this.</source>
        <translation>غير مسموح لك بذلك.</translation>
    </message>
    <message>
        <source>This is more than the server takes.</source>
        <translation>هذا أكثر مما يقبله الخادم.</translation>
    </message>
    <message>
        <source>The server refused the request.</source>
        <translation>رفض الخادم الطلب.</translation>
    </message>
    <message>
        <source>Something went wrong.</source>
        <translation>حدث خطأ ما.</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>ليس ملفًا عاديًا</translation>
    </message>
    <message>
        <source>Confirm</source>
        <translation>تأكيد</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
</context>
<context>
    <name>Vantor::CAnimationProgressBar</name>
    <message>
        <source>Time line</source>
        <translation>الخط الزمني</translation>
    </message>
</context>
<context>
    <name>Vantor::CBaseFileProgressBar</name>
    <message>
        <source>Start: %1</source>
        <translation>البداية: %1</translation>
    </message>
    <message>
        <source>End: %1</source>
        <translation>النهاية: %1</translation>
    </message>
</context>
</TS>
