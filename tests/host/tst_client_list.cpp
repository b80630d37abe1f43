// SPDX-License-Identifier: MIT
#include "list/CsvFile.h"
#include "support/TestGuard.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
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
    void aGuessedEncodingIsTold();
    void whatIsNoListIsRefusedWithAReason_data();
    void whatIsNoListIsRefusedWithAReason();
    void cancelledReadingGivesNeitherListNorError();

private:
    [[nodiscard]] QString Write(const QByteArray &bytes) const;
    [[nodiscard]] IncidentListPtr Read(const QByteArray &bytes) const;

    CTestGuard guard_;
    QTemporaryDir folder_;
};

void tst_client_list::init()
{
    guard_.Begin();
    QLocale::setDefault(QLocale("en"));
}

void tst_client_list::cleanup()
{
    const QString fault = guard_.End();
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

QString tst_client_list::Write(const QByteArray &bytes) const
{
    const QString path = folder_.filePath("list.csv");
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
    const QStringList ab{"a", "b"};
    const QStringList one_two{"1", "2"};

    add("commas", "a,b\n1,2\n", ab, one_two);
    add("semicolons", "a;b\n1;2\n", ab, one_two);
    add("tabs", "a\tb\n1\t2\n", ab, one_two);
    add("a separator in a quoted title does not count", "\"x;y;z\",b\n1,2\n", {"x;y;z", "b"},
        one_two);
    add("semicolons, and a comma in a title", "a;b, EUR\n1;2.5\n", {"a", "b, EUR"}, {"1", "2.5"});
    add("vertical bars", "a|b\n1|2\n", ab, one_two);
    add("a line that names the separator", "sep=|\r\na|b\r\n1|2\r\n", ab, one_two);
    add("blanks around cells", "a,b\n 1 ,2\n", ab, {" 1 ", "2"});
    add("blanks before quotes", "a, \"b\"\n1, \"2\"\n", ab, one_two);
    add("a mark at the start of a cell",
        "a,b\n\xEF\xBB\xBF"
        "1,2\n",
        ab, {QChar(0xFEFF) + QString("1"), "2"});
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
        {"say \"hi\"", "1\r\n2,3"});
    add("a short row is filled", "a,b\n1\n", ab, {"1", QString()});
    add("a long row adds a column without a title", "a,b\n0,0\n1,2,3\n", {"a", "b", QString()},
        {"1", "2", "3"});
    add("UTF-8", "a,b\nشكر,2\n", ab, {"شكر", "2"});
    add("Windows-1252 where it is no UTF-8", "a,b\nM\xFCnchen \x80\x93,2\n", ab,
        {"München €“", "2"});
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
            || result.list->Text(row, 1) != QString("قيمة, %1").arg(row % 7))
            QFAIL(qPrintable(QString("row %1 differs").arg(row)));
    }
}

void tst_client_list::charactersAcrossBlocksStayWhole()
{
    // The bytes of the first title put the middle of a surrogate pair at one mebibyte.
    const QString title = QString(1024 * 512 - 2, QLatin1Char('x'));
    const QString text = QChar(QChar::ByteOrderMark) + title + "😀\n1\n";
    const QByteArray bytes(reinterpret_cast<const char *>(text.utf16()), 2 * text.size());

    const IncidentListPtr list = Read(bytes);

    QVERIFY(list != nullptr);
    QVERIFY(list->Title(0) == title + "😀");
    QCOMPARE(list->Text(0, 0), "1");
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
    add("behind blanks", "a,b\n1, \"2\n3,4\n", "line 2 ");
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

void tst_client_list::aGuessedEncodingIsTold()
{
    QVERIFY(ReadCsvFile(Write("a\n\x80\n")).warning.contains("windows-1252"));
    QCOMPARE(ReadCsvFile(Write("a\n€\n")).warning, QString());
    QCOMPARE(ReadCsvFile(Write("a;b\n1,2;3\n"), {}, ',').list->ColumnCount(), 2);
}

void tst_client_list::whatIsNoListIsRefusedWithAReason_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("nothing at all") << QByteArray() << "is empty";
    QTest::newRow("only blank lines") << QByteArray("\n\r\n\n") << "is empty";
    QTest::newRow("only a mark") << QByteArray("\xEF\xBB\xBF") << "is empty";
    QTest::newRow("a picture") << QByteArray("GIF89a\0\0\0,\n", 11) << "zero bytes";
    QTest::newRow("UTF-16 without a mark") << QByteArray("a\0,\0", 4) << "zero bytes";
    QTest::newRow("a thousand and one columns") << QByteArray(1000, ',') << "more columns";
}

void tst_client_list::whatIsNoListIsRefusedWithAReason()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);

    const ReadResult result = ReadCsvFile(Write(bytes));

    QVERIFY(!result.list);
    QVERIFY2(result.error.contains(reason), qPrintable(result.error));
    QVERIFY2(result.error.contains("list.csv"), qPrintable(result.error));
}

void tst_client_list::cancelledReadingGivesNeitherListNorError()
{
    const ReadResult result =
        ReadCsvFile(Write("a,b\n1,2\n"), [](qint64, qint64) { return false; });

    QVERIFY(!result.list);
    QCOMPARE(result.error, QString());
}

QTEST_GUILESS_MAIN(tst_client_list)
#include "tst_client_list.moc"
