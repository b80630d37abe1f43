// SPDX-License-Identifier: MIT
#include "list/CsvFile.h"
#include "list/ListModel.h"
#include "support/TestGuard.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QTest>

using namespace Client;

namespace {

QStringList Row(const CIncidentList &list, int row)
{
    QStringList cells;
    for (int column = 0; column < list.ColumnCount(); ++column)
        cells.append(list.Text(row, column));
    return cells;
}

QStringList ShownColumn(const CListModel &model, int column)
{
    QStringList cells;
    for (int row = 0; row < model.rowCount(); ++row)
        cells.append(model.index(row, column).data().toString());
    return cells;
}

} // namespace

class tst_client_list : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void readingKeepsTitlesAndCells_data();
    void readingKeepsTitlesAndCells();
    void cellsAcrossBlocksStayWhole();
    void charactersAcrossBlocksStayWhole();
    void openQuoteIsToldWithItsLine_data();
    void openQuoteIsToldWithItsLine();
    void whatIsNoListIsRefusedWithAReason_data();
    void whatIsNoListIsRefusedWithAReason();
    void cancelledReadingGivesNeitherListNorError();

    void sortFollowsTheKindOfTheColumn_data();
    void sortFollowsTheKindOfTheColumn();
    void equalRowsKeepTheOrderTheyHad();
    void sortOutsideTheColumnsBringsBackTheFilesOrder();
    void heldIndexFollowsItsRowThroughSorting();
    void filterKeepsRowsWithTheTextInAnyColumn_data();
    void filterKeepsRowsWithTheTextInAnyColumn();
    void filterAndSortWorkTogetherOnARepeatedList();
    void whatIsTakenForAnExportStaysAsItWas();

private:
    [[nodiscard]] QString Write(const QByteArray &bytes) const;
    [[nodiscard]] IncidentListPtr Read(const QByteArray &bytes) const;

    CTestGuard guard_;
    QTemporaryDir folder_;
};

void tst_client_list::init()
{
    guard_.Begin();
    QLocale::setDefault(QLocale(QStringLiteral("en")));
}

void tst_client_list::cleanup()
{
    const QString fault = guard_.End();
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

QString tst_client_list::Write(const QByteArray &bytes) const
{
    const QString path = folder_.filePath(QStringLiteral("list.csv"));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return path;
}

IncidentListPtr tst_client_list::Read(const QByteArray &bytes) const
{
    return ReadCsvFile(Write(bytes)).list;
}

void tst_client_list::readingKeepsTitlesAndCells_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<QStringList>("cells"); // of the last row
    const auto add = [](const char *name, const QByteArray &bytes, const QStringList &titles,
                        const QStringList &cells) {
        QTest::newRow(name) << bytes << titles << cells;
    };
    const QStringList ab{QStringLiteral("a"), QStringLiteral("b")};
    const QStringList one_two{QStringLiteral("1"), QStringLiteral("2")};

    add("commas", "a,b\n1,2\n", ab, one_two);
    add("semicolons", "a;b\n1;2\n", ab, one_two);
    add("tabs", "a\tb\n1\t2\n", ab, one_two);
    add("a separator in a quoted title does not count", "\"x;y;z\",b\n1,2\n",
        {QStringLiteral("x;y;z"), QStringLiteral("b")}, one_two);
    add("a byte-order mark",
        "\xEF\xBB\xBF"
        "a,b\n1,2\n",
        ab, one_two);
    add("a byte-order mark and a zero byte", QByteArray("\xEF\xBB\xBF\0a,b\n1,2\n", 12), ab,
        one_two);
    add("UTF-16, the low byte first",
        QByteArray("\xFF\xFE"
                   "a\0,\0b\0\n\0"
                   "1\0,\0"
                   "2\0",
                   16),
        ab, one_two);
    add("UTF-16, the high byte first",
        QByteArray("\xFE\xFF\0a\0,\0b\0\n\0"
                   "1\0,\0"
                   "2",
                   16),
        ab, one_two);
    add("no line break at the end", "a,b\r\n1,2", ab, one_two);
    add("quotes, breaks and separators in cells", "a,b\n\"say \"\"hi\"\"\",\"1\r\n2,3\"\n", ab,
        {QStringLiteral("say \"hi\""), QStringLiteral("1\r\n2,3")});
    add("a short row is filled", "a,b\n1\n", ab, {QStringLiteral("1"), QString()});
    add("a long row adds a column without a title", "a,b\n0,0\n1,2,3\n",
        {QStringLiteral("a"), QStringLiteral("b"), QString()},
        {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")});
    add("UTF-8", "a,b\nشكر,2\n", ab, {QStringLiteral("شكر"), QStringLiteral("2")});
    add("Latin-1 where it is no UTF-8", "a,b\nM\xFCnchen,2\n", ab,
        {QStringLiteral("München"), QStringLiteral("2")});
}

void tst_client_list::readingKeepsTitlesAndCells()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, titles);
    QFETCH(QStringList, cells);

    const IncidentListPtr list = Read(bytes);

    QVERIFY(list);
    QStringList read_titles;
    for (int column = 0; column < list->ColumnCount(); ++column)
        read_titles.append(list->Title(column));
    QCOMPARE(read_titles, titles);
    QCOMPARE(Row(*list, list->RowCount() - 1), cells);
}

void tst_client_list::cellsAcrossBlocksStayWhole()
{
    QByteArray bytes("number,text\n");
    constexpr int kRows = 200000; // some megabytes, so that blocks end within cells
    for (int row = 0; row < kRows; ++row)
        bytes += QByteArray::number(row) + ",\"قيمة, " + QByteArray::number(row % 7) + "\"\n";
    qint64 last_done = 0;

    const ReadResult result = ReadCsvFile(Write(bytes), [&last_done](qint64 done, qint64) {
        last_done = done;
        return true;
    });

    QVERIFY(result.list);
    QCOMPARE(result.list->RowCount(), kRows);
    QCOMPARE(last_done, qint64(bytes.size()));
    for (int row = 0; row < kRows; ++row) {
        if (result.list->Text(row, 0) != QString::number(row)
            || result.list->Text(row, 1) != QStringLiteral("قيمة, %1").arg(row % 7))
            QFAIL(qPrintable(QStringLiteral("row %1 differs").arg(row)));
    }
}

void tst_client_list::charactersAcrossBlocksStayWhole()
{
    // The bytes of the first title put the middle of a surrogate pair at one mebibyte.
    const QString title = QString(1024 * 512 - 2, QLatin1Char('x'));
    const QString text = QChar(QChar::ByteOrderMark) + title + QStringLiteral("😀\n1\n");
    const QByteArray bytes(reinterpret_cast<const char *>(text.utf16()), 2 * text.size());

    const IncidentListPtr list = Read(bytes);

    QVERIFY(list != nullptr);
    QVERIFY(list->Title(0) == title + QStringLiteral("😀"));
    QCOMPARE(list->Text(0, 0), QStringLiteral("1"));
}

void tst_client_list::openQuoteIsToldWithItsLine_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("line"); // empty: nothing to tell
    const auto add = [](const char *name, const QByteArray &bytes, const char *line) {
        QTest::newRow(name) << bytes << QString::fromLatin1(line);
    };
    add("in the first line", "\"a,b\n1,2\n", "line 1 ");
    add("behind a cell with line breaks", "a\n\"1\r\n2\"\r\n\"3\r\n4\r\n", "line 4 ");
    add("behind a doubled quote", "a\n\"1\"\"\n2\n", "line 2 ");
    add("behind a stray quote in a quoted cell", "a\n\"1\"x\n2\n", "line 2 ");
    add("behind blanks", "a,b\n1, \t\"2\n3,4\n", "line 2 ");
    add("lines that end with CR", "a\r1\r\"2\r3\r", "line 3 ");
    add("a closed quote at the end", "a\n\"1\n2\"", "");
    add("blanks behind the closing quote", "a\n\"1\n2\" \n", "");
    add("a stray quote that closes behind blanks", "a\n\"1\n\" \"\n2\n", "");
    add("a quote within a plain cell", "a\n5\" pipe\n2\n", "");
    add("open to the end of the last line", "a\n\"1", "");
}

void tst_client_list::openQuoteIsToldWithItsLine()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, line);

    const ReadResult result = ReadCsvFile(Write(bytes));

    QVERIFY(result.list != nullptr);
    QCOMPARE(result.warning.isEmpty(), line.isEmpty());
    QVERIFY2(result.warning.contains(line), qPrintable(result.warning));
}

void tst_client_list::whatIsNoListIsRefusedWithAReason_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("nothing at all") << QByteArray() << QStringLiteral("is empty");
    QTest::newRow("only blank lines") << QByteArray("\n\r\n\n") << QStringLiteral("is empty");
    QTest::newRow("only a mark") << QByteArray("\xEF\xBB\xBF") << QStringLiteral("is empty");
    QTest::newRow("a picture") << QByteArray("GIF89a\0\0\0,\n", 11) << QStringLiteral("zero bytes");
    QTest::newRow("UTF-16 without a mark")
        << QByteArray("a\0,\0", 4) << QStringLiteral("zero bytes");
    QTest::newRow("a thousand and one columns")
        << QByteArray(1000, ',') << QStringLiteral("more columns");
}

void tst_client_list::whatIsNoListIsRefusedWithAReason()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);

    const ReadResult result = ReadCsvFile(Write(bytes));

    QVERIFY(!result.list);
    QVERIFY2(result.error.contains(reason), qPrintable(result.error));
    QVERIFY2(result.error.contains(QStringLiteral("list.csv")), qPrintable(result.error));
}

void tst_client_list::cancelledReadingGivesNeitherListNorError()
{
    const ReadResult result =
        ReadCsvFile(Write("a,b\n1,2\n"), [](qint64, qint64) { return false; });

    QVERIFY(!result.list);
    QCOMPARE(result.error, QString());
}

void tst_client_list::sortFollowsTheKindOfTheColumn_data()
{
    QTest::addColumn<QByteArray>("cells");
    QTest::addColumn<Qt::SortOrder>("order");
    QTest::addColumn<QByteArray>("sorted");
    QTest::newRow("numbers by size, not by digits")
        << QByteArray("10 9 -1 1,000 9.5") << Qt::AscendingOrder << QByteArray("-1 9 9.5 10 1,000");
    QTest::newRow("largest first")
        << QByteArray("10 9 100") << Qt::DescendingOrder << QByteArray("100 10 9");
    QTest::newRow("missing numbers first")
        << QByteArray("3 \"\" 1") << Qt::AscendingOrder << QByteArray("\"\" 1 3");
    QTest::newRow("dates") << QByteArray("2002-01-10 1990-12-31 2002-01-09") << Qt::AscendingOrder
                           << QByteArray("1990-12-31 2002-01-09 2002-01-10");
    QTest::newRow("texts without regard to case")
        << QByteArray("b A C a") << Qt::AscendingOrder << QByteArray("A a b C");
    QTest::newRow("numbers within texts")
        << QByteArray("B-727 B-52 A-10") << Qt::AscendingOrder << QByteArray("A-10 B-52 B-727");
    QTest::newRow("a word for a number that is none")
        << QByteArray("nan 10 9") << Qt::AscendingOrder << QByteArray("9 10 nan");
}

void tst_client_list::sortFollowsTheKindOfTheColumn()
{
    QFETCH(QByteArray, cells);
    QFETCH(Qt::SortOrder, order);
    QFETCH(QByteArray, sorted);
    CListModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.SetList(Read("title;other\n" + cells.replace(' ', ";x\n") + ";x\n"));

    model.sort(0, order);

    const QByteArray shown = ShownColumn(model, 0).join(QLatin1Char(' ')).toUtf8();
    QCOMPARE(shown, sorted.replace("\"\"", ""));
}

void tst_client_list::equalRowsKeepTheOrderTheyHad()
{
    CListModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.SetList(Read("city,number\nB,1\nA,2\nB,3\nA,1\n"));

    model.sort(1, Qt::DescendingOrder);
    model.sort(0, Qt::AscendingOrder);

    QCOMPARE(ShownColumn(model, 0).join(QString()), QStringLiteral("AABB"));
    QCOMPARE(ShownColumn(model, 1).join(QString()), QStringLiteral("2131"));
}

void tst_client_list::sortOutsideTheColumnsBringsBackTheFilesOrder()
{
    CListModel model;
    model.SetList(Read("letter\nB\nC\nA\n"));
    model.sort(0);

    model.sort(-1);

    QCOMPARE(ShownColumn(model, 0).join(QString()), QStringLiteral("BCA"));
}

void tst_client_list::heldIndexFollowsItsRowThroughSorting()
{
    CListModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.SetList(Read("letter,place\nC,first\nA,second\nB,third\n"));
    const QPersistentModelIndex held = model.index(0, 1);

    model.sort(0);

    QCOMPARE(held.row(), 2);
    QCOMPARE(held.data().toString(), QStringLiteral("first"));
}

void tst_client_list::filterKeepsRowsWithTheTextInAnyColumn_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("kept");
    QTest::newRow("no text") << QString() << QStringLiteral("123");
    QTest::newRow("in the first column") << QStringLiteral("1") << QStringLiteral("1");
    QTest::newRow("in another case") << QStringLiteral("GULL") << QString();
    QTest::newRow("in this case") << QStringLiteral("ull") << QStringLiteral("13");
    QTest::newRow("a part of a word") << QStringLiteral("ro") << QStringLiteral("2");
    QTest::newRow("only in a title") << QStringLiteral("species") << QString();
    QTest::newRow("letters of two cells") << QStringLiteral("1gull") << QString();
}

void tst_client_list::filterKeepsRowsWithTheTextInAnyColumn()
{
    QFETCH(QString, filter);
    QFETCH(QString, kept);
    CListModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.SetList(Read("number,species\n1,Gull\n2,Crow\n3,Herring gull\n"));

    model.SetFilter(filter);

    QCOMPARE(ShownColumn(model, 0).join(QString()), kept);
    QCOMPARE(model.TotalCount(), 3);
}

void tst_client_list::filterAndSortWorkTogetherOnARepeatedList()
{
    CListModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    const IncidentListPtr list = Read("number,species\n1,Gull\n2,Crow\n3,Gull\n");
    model.SetFilter(QStringLiteral("Gull"));

    model.SetList(list->Resized(8));
    model.sort(0, Qt::DescendingOrder);

    QCOMPARE(model.TotalCount(), 8);
    QCOMPARE(ShownColumn(model, 0).join(QString()), QStringLiteral("33111"));
    QCOMPARE(model.ListRow(0), 2);
    QCOMPARE(model.ListRow(2), 0);
    QCOMPARE(model.RowOf(1), -1);
}

void tst_client_list::whatIsTakenForAnExportStaysAsItWas()
{
    CListModel model;
    model.SetList(Read("letter\nB\nA\n"));
    const IncidentRows taken = model.Rows();

    model.sort(0);
    model.SetFilter(QStringLiteral("A"));
    model.SetList(Read("other\nX\n"));

    QCOMPARE(taken.rows, (QVector<int>{0, 1}));
    QCOMPARE(taken.list->Text(taken.rows.at(1), 0), QStringLiteral("A"));
}

QTEST_GUILESS_MAIN(tst_client_list)
#include "tst_client_list.moc"
