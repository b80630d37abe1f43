// SPDX-License-Identifier: MIT
// The arithmetic of column lists and drop-downs, without widgets.
#include "ui/CustomizeColumnButton/ColumnLayout.h"
#include "ui/CustomizeColumnButton/DropDownPlace.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QTest>

using Vantor::CColumnInfo;
using Columns = QVector<CColumnInfo>;

namespace {

// "place:check:free to check:free to move", one a column; names and ids follow the list.
Columns Parse(const QString &text)
{
    Columns columns;
    const auto words = text.split(' ', Qt::SkipEmptyParts);
    for (const QString &word : words) {
        const QStringList parts = word.split(':');
        CColumnInfo column;
        column.SetVal_column_id(100 + columns.size());
        column.SetVal_column_name(QString(QChar('A' + columns.size())));
        column.SetVal_column_No(parts.at(0).toInt());
        column.SetVal_column_checked(Qt::CheckState(parts.at(1).toInt()));
        column.SetVal_b_manual_check(parts.at(2) == "y");
        column.SetVal_b_manual_sort(parts.at(3) == "y");
        columns.append(column);
    }
    return columns;
}

QString Text(const Columns &columns)
{
    QStringList words;
    for (const CColumnInfo &column : columns) {
        words.append(QStringLiteral("%1:%2:%3:%4")
                         .arg(column.GetVal_column_No())
                         .arg(column.GetVal_column_checked())
                         .arg(column.GetVal_b_manual_check() ? "y" : "n",
                              column.GetVal_b_manual_sort() ? "y" : "n"));
    }
    return words.join(' ');
}

} // namespace

class TestColumnLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theStoredFormIsWhatOtherClientsRead()
    {
        const QByteArray text = Vantor::ColumnLayoutText(Parse("1:2:y:n 0:0:n:y"));

        QCOMPARE(Vantor::ColumnLayoutKey("Alarm", "History"),
                 QString("CListAlarmHistoryCustomizeList"));
        const QJsonObject first{{"ColumnID", 100},
                                {"ColumnLocation", 1},
                                {"ColumnChecked", 2},
                                {"ColumnManualCheck", "true"},
                                {"ColumnManualSort", "false"}};
        const QJsonObject second{{"ColumnID", 101},
                                 {"ColumnLocation", 0},
                                 {"ColumnChecked", 0},
                                 {"ColumnManualCheck", "false"},
                                 {"ColumnManualSort", "true"}};
        const QJsonObject whole{{"CustomizeListItems", QJsonArray{first, second}}};
        QCOMPARE(QJsonDocument::fromJson(text).object(), whole);
        QVERIFY(text.startsWith("{\n    \"CustomizeListItems\"")); // indented
    }

    void aLayoutIsPutBackEntryByEntry_data()
    {
        QTest::addColumn<QByteArray>("items");
        QTest::addColumn<QString>("expected");
        const QByteArray moved = R"({"ColumnID":7,"ColumnLocation":5,"ColumnChecked":0,)"
                                 R"("ColumnManualCheck":"true","ColumnManualSort":"true"})";
        QTest::newRow("one entry changes the first column, whatever its id")
            << moved << "5:0:y:y 1:2:y:y";
        QTest::newRow("more entries than columns are left out")
            << moved + "," + moved + "," + moved << "5:0:y:y 5:0:y:y";
        QTest::newRow("a flag that is a JSON boolean is false")
            << QByteArray(R"({"ColumnLocation":5,"ColumnChecked":2,"ColumnManualCheck":true,)"
                          R"("ColumnManualSort":"true"})")
            << "5:2:n:y 1:2:y:y";
        QTest::newRow("1 is partially checked")
            << QByteArray(moved).replace(":0", ":1") << "5:1:y:y 1:2:y:y";
        QTest::newRow("any other number is checked")
            << QByteArray(moved).replace(":0", ":-3") << "5:2:y:y 1:2:y:y";
        QTest::newRow("an entry that is no object keeps its column")
            << "7," + moved << "0:2:y:y 5:0:y:y";
        QTest::newRow("no entry") << QByteArray() << "0:2:y:y 1:2:y:y";
    }

    void aLayoutIsPutBackEntryByEntry()
    {
        QFETCH(QByteArray, items);
        QFETCH(QString, expected);

        const QString layout = "{\"CustomizeListItems\":[" + QString::fromUtf8(items) + "]}";
        QCOMPARE(Text(Vantor::WithColumnLayout(Parse("0:2:y:y 1:2:y:y"), layout)), expected);
    }

    void whatIsNoLayoutChangesNothing()
    {
        const QString defaults("0:2:y:y 1:0:n:n");
        const QString deep = QString(100000, '[');
        for (const QString &text : {QString(), QString("{"), QString("[]"), QString("7"), deep,
                                    QString("{\"CustomizeListItems\":{\"a\":1}}"),
                                    QString("{\"customizelistitems\":[{}]}")})
            QCOMPARE(Text(Vantor::WithColumnLayout(Parse(defaults), text)), defaults);
    }

    void aMoveLeavesColumnsInPlaceThatKeepTheirs_data()
    {
        QTest::addColumn<QString>("movable"); // one letter a column
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<bool>("stands");
        QTest::newRow("down among movable ones") << "yyyy" << 0 << 3 << true;
        QTest::newRow("up among movable ones") << "yyyy" << 3 << 0 << true;
        QTest::newRow("one that keeps its place") << "nyyy" << 0 << 2 << false;
        QTest::newRow("onto one that keeps its place") << "yyyn" << 1 << 3 << false;
        QTest::newRow("past one that keeps its place") << "yyny" << 0 << 3 << false;
        QTest::newRow("next to one that keeps its place") << "nyyy" << 3 << 1 << true;
        QTest::newRow("out of the list") << "yyyy" << 0 << 4 << false;
        QTest::newRow("from nowhere") << "yyyy" << -1 << 0 << false;
    }

    void aMoveLeavesColumnsInPlaceThatKeepTheirs()
    {
        QFETCH(QString, movable);
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(bool, stands);
        Columns columns = Parse("3:2:y:y 2:2:y:y 1:2:y:y 0:2:y:y"); // shown in reverse
        const QVector<int> order = Vantor::ColumnOrder(columns);
        for (int place = 0; place < 4; ++place)
            columns[order.at(place)].SetVal_b_manual_sort(movable.at(place) == 'y');

        QCOMPARE(Vantor::CanMoveColumn(columns, order, from, to), stands);
    }

    void theCommonStateIsThatOfTheColumnsOneMayCheck_data()
    {
        QTest::addColumn<QString>("columns");
        QTest::addColumn<int>("state");
        QTest::newRow("all shown") << "0:2:y:y 1:2:y:y" << 2;
        QTest::newRow("some hidden") << "0:2:y:y 1:0:y:y" << 1;
        QTest::newRow("all hidden") << "0:0:y:y 1:0:y:y" << 0;
        QTest::newRow("partially checked alone") << "0:1:y:y" << 1;
        QTest::newRow("a fixed one does not count") << "0:2:n:y 1:0:y:y" << 0;
        QTest::newRow("fixed ones alone do") << "0:2:n:y 1:2:n:y" << 2;
        QTest::newRow("none") << "" << 0;
    }

    void theCommonStateIsThatOfTheColumnsOneMayCheck()
    {
        QFETCH(QString, columns);
        QTEST(int(Vantor::CommonCheckState(Parse(columns))), "state");
    }

    void aDropDownStaysInsideOnEveryEdge_data()
    {
        QTest::addColumn<QRect>("button");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("is_mirrored");
        QTest::addColumn<QRect>("expected");
        const QSize size(200, 300);
        QTest::newRow("below") << QRect(300, 100, 30, 30) << size << false
                               << QRect(300, 130, 200, 300);
        QTest::newRow("below, right to left")
            << QRect(300, 100, 30, 30) << size << true << QRect(130, 130, 200, 300);
        QTest::newRow("at the right edge")
            << QRect(870, 100, 30, 30) << size << false << QRect(700, 130, 200, 300);
        QTest::newRow("at the left edge, right to left")
            << QRect(100, 100, 30, 30) << size << true << QRect(100, 130, 200, 300);
        QTest::newRow("at the lower edge it opens above")
            << QRect(300, 660, 30, 30) << size << false << QRect(300, 360, 200, 300);
        QTest::newRow("no room above or below: shifted")
            << QRect(300, 400, 30, 30) << QSize(200, 590) << false << QRect(300, 110, 200, 590);
        QTest::newRow("larger than the window: cut")
            << QRect(300, 100, 30, 30) << QSize(2000, 2000) << false << QRect(100, 100, 800, 600);
        QTest::newRow("a button outside")
            << QRect(5000, -90, 30, 30) << size << false << QRect(700, 100, 200, 300);
    }

    void aDropDownStaysInsideOnEveryEdge()
    {
        QFETCH(QRect, button);
        QFETCH(QSize, size);
        QFETCH(bool, is_mirrored);
        const auto direction = is_mirrored ? Qt::RightToLeft : Qt::LeftToRight;
        QTEST(Vantor::DropDownPlace(button, size, QRect(100, 100, 800, 600), direction),
              "expected");
    }
};

QTEST_GUILESS_MAIN(TestColumnLayout)
#include "tst_columnlayout.moc"
