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
        <source>Please wait</source>
        <translation>يرجى الانتظار</translation>
    </message>
</context>
</TS>
