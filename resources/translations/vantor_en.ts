<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>SimpleMutiPageWidgetUi</name>
    <message>
        <source>TheTotalNumberOf%ruHYFtyFtVv</source>
        <translation>%1 records in total</translation>
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
        <source>Please wait</source>
        <translation>Please wait</translation>
    </message>
</context>
</TS>
