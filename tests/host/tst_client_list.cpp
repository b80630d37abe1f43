// SPDX-License-Identifier: MIT
#include "list/CsvFile.h"
#include "support/Test.h"

using namespace Client;

namespace {

using ReadingRow = Row<QByteArray, QString, QString>; // bytes, titles, cells of the last row
using QuoteRow = Row<QByteArray, const char *>;       // bytes, line; "": no message
using RefusedRow = Row<QByteArray, const char *>;     // bytes, reason

// The titles, or the cells of a row, with slashes between them.
QString Joined(const CIncidentList &list, int row = -1)
{
    QStringList texts;
    for (int column = 0; column < list.ColumnCount(); ++column)
        texts.append(row < 0 ? list.Title(column) : list.Text(row, column));
    return texts.join('/');
}

} // namespace

class tst_client_list : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override { QLocale::setDefault(QLocale("en")); }

    QString Write(const QByteArray &bytes) const { return folder_.Put("list.csv", bytes); }

private Q_SLOTS:
    void readingKeepsTitlesAndCells_data()
    {
        AddRows<ReadingRow>({
            {"commas", "a,b\n1,2\n", "a/b", "1/2"},
            {"semicolons", "a;b\n1;2\n", "a/b", "1/2"},
            {"tabs", "a\tb\n1\t2\n", "a/b", "1/2"},
            {"a separator in a quoted title does not count", "\"x;y;z\",b\n1,2\n", "x;y;z/b",
             "1/2"},
            {"semicolons, and a comma in a title", "a;b, EUR\n1;2.5\n", "a/b, EUR", "1/2.5"},
            {"vertical bars", "a|b\n1|2\n", "a/b", "1/2"},
            {"a line that names the separator", "sep=|\r\na|b\r\n1|2\r\n", "a/b", "1/2"},
            {"blanks around cells", "a,b\n 1 ,2\n", "a/b", " 1 /2"},
            {"blanks before quotes", "a, \"b\"\n1, \"2\"\n", "a/b", "1/2"},
            {"a mark at the start of a cell", "a,b\n\xEF\xBB\xBF\x31,2\n", "a/b",
             QChar(0xFEFF) + QString("1/2")},
            {"a byte-order mark", "\xEF\xBB\xBF\x61,b\n1,2\n", "a/b", "1/2"},
            {"a byte-order mark and a zero byte", QByteArray("\xEF\xBB\xBF\0a,b\n1,2\n", 12), "a/b",
             "1/2"},
            {"UTF-16, the low byte first",
             QByteArray("\xFF\xFE\x61\0,\0b\0\n\0\x31\0,\0\x32\0", 16), "a/b", "1/2"},
            {"UTF-16, the high byte first", QByteArray("\xFE\xFF\0a\0,\0b\0\n\0\x31\0,\0\x32", 16),
             "a/b", "1/2"},
            {"no line break at the end", "a,b\r\n1,2", "a/b", "1/2"},
            {"quotes, breaks and separators in cells", "a,b\n\"say \"\"hi\"\"\",\"1\r\n2,3\"\n",
             "a/b", "say \"hi\"/1\r\n2,3"},
            {"a short row is filled", "a,b\n1\n", "a/b", "1/"},
            {"a long row adds a column without a title", "a,b\n0,0\n1,2,3\n", "a/b/", "1/2/3"},
            {"UTF-8", "a,b\nشكر,2\n", "a/b", "شكر/2"},
            {"Windows-1252 where it is no UTF-8", "a,b\nM\xFCnchen \x80\x93,2\n", "a/b",
             "München €“/2"},
        });
    }

    void readingKeepsTitlesAndCells()
    {
        const auto &[name, bytes, titles, cells] = FetchRow<ReadingRow>();

        const IncidentListPtr list = ReadCsvFile(Write(bytes)).list;

        QVERIFY(list);
        QCOMPARE(Joined(*list), titles);
        QCOMPARE(Joined(*list, list->RowCount() - 1), cells);
    }

    void cellsAndCharactersAcrossBlocksStayWhole()
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

        // The bytes of the first title put the middle of a surrogate pair at one mebibyte.
        const QString title = QString(1024 * 512 - 2, QLatin1Char('x'));
        const QString text = QChar(QChar::ByteOrderMark) + title + "😀\n1\n";
        const QByteArray wide(reinterpret_cast<const char *>(text.utf16()), 2 * text.size());

        const IncidentListPtr list = ReadCsvFile(Write(wide)).list;

        QVERIFY(list != nullptr);
        QVERIFY(list->Title(0) == title + "😀");
        QCOMPARE(list->Text(0, 0), "1");
    }

    void openQuoteIsToldWithItsLine_data()
    {
        AddRows<QuoteRow>({
            {"in the first line", "\"a,b\n1,2\n", "line 1 "},
            {"behind a cell with line breaks", "a\n\"1\r\n2\"\r\n\"3\r\n4\r\n", "line 4 "},
            {"behind a doubled quote", "a\n\"1\"\"\n2\n", "line 2 "},
            {"behind a stray quote in a quoted cell", "a\n\"1\"x\n2\n", "line 2 "},
            {"behind blanks", "a,b\n1, \"2\n3,4\n", "line 2 "},
            {"lines that end with CR", "a\r1\r\"2\r3\r", "line 3 "},
            {"a closed quote at the end", "a\n\"1\n2\"", ""},
            {"blanks behind the closing quote", "a\n\"1\n2\" \n", ""},
            {"a stray quote that closes behind blanks", "a\n\"1\n\" \"\n2\n", ""},
            {"a quote within a plain cell", "a\n5\" pipe\n2\n", ""},
            {"open to the end of the last line", "a\n\"1", ""},
        });
    }

    void openQuoteIsToldWithItsLine()
    {
        const auto &[name, bytes, line] = FetchRow<QuoteRow>();

        const ReadResult result = ReadCsvFile(Write(bytes));

        QVERIFY(result.list != nullptr);
        QCOMPARE(result.warning.isEmpty(), !*line);
        QVERIFY2(result.warning.contains(line), qPrintable(result.warning));
    }

    void aGuessedEncodingIsTold()
    {
        QVERIFY(ReadCsvFile(Write("a\n\x80\n")).warning.contains("windows-1252"));
        QCOMPARE(ReadCsvFile(Write("a\n€\n")).warning, QString());
        QCOMPARE(ReadCsvFile(Write("a;b\n1,2;3\n"), {}, ',').list->ColumnCount(), 2);
    }

    void whatIsNoListIsRefusedWithAReason_data()
    {
        AddRows<RefusedRow>(
            {{"nothing at all", {}, "is empty"},
             {"only blank lines", "\n\r\n\n", "is empty"},
             {"only a mark", "\xEF\xBB\xBF", "is empty"},
             {"a picture", QByteArray("GIF89a\0\0\0,\n", 11), "zero bytes"},
             {"UTF-16 without a mark", QByteArray("a\0,\0", 4), "zero bytes"},
             {"a thousand and one columns", QByteArray(1000, ','), "more columns"}});
    }

    void whatIsNoListIsRefusedWithAReason()
    {
        const auto &[name, bytes, reason] = FetchRow<RefusedRow>();

        const ReadResult result = ReadCsvFile(Write(bytes));

        QVERIFY(!result.list);
        QVERIFY2(result.error.contains(reason), qPrintable(result.error));
        QVERIFY2(result.error.contains("list.csv"), qPrintable(result.error));
    }

    void cancelledReadingGivesNeitherListNorError()
    {
        const ReadResult result =
            ReadCsvFile(Write("a,b\n1,2\n"), [](qint64, qint64) { return false; });

        QVERIFY(!result.list);
        QCOMPARE(result.error, QString());
    }
};

QTEST_GUILESS_MAIN(tst_client_list)
#include "tst_client_list.moc"
