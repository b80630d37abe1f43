// SPDX-License-Identifier: MIT
#include "support/Limits.h"
#include "support/Test.h"

#include <CsvParse/CsvParse.h>
#include <Vantor/CCSVParser>

using Vantor::CCSVParser;

// A client's own CSV library in place of ours, for this program: it refuses a line that holds
// "REFUSE" halfway.
extern "C" std::size_t csvparse_parse(csvparse_parser *parser, const void *bytes,
                                      std::size_t length, csvparse_field_callback field,
                                      csvparse_row_callback row, void *user_data)
{
    using Parse = decltype(&csvparse_parse);
    static const auto next = reinterpret_cast<Parse>(dlsym(RTLD_NEXT, "csvparse_parse"));
    const char *const refused = static_cast<const char *>(memmem(bytes, length, "REFUSE", 6));
    const std::size_t taken =
        refused ? static_cast<std::size_t>(refused - static_cast<const char *>(bytes)) : length;
    return next(parser, bytes, taken, field, row, user_data);
}

namespace {

// A host's model that gives up in its third row.
class CThrowingModel : public QStandardItemModel
{
public:
    using QStandardItemModel::QStandardItemModel;

    QVariant data(const QModelIndex &index, int) const override
    {
        if (index.row() == 2)
            throw std::runtime_error("row 2 is gone");
        return index.row();
    }
};

} // namespace

class TestCsvParserFaults : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void aLineThatIsRefusedEndsTheWriteWithOneLogLine()
    {
        guard_.AnnounceLogLines();
        CCSVParser parser(nullptr);
        QVERIFY(parser.OpenFile(folder_.Path("refused.csv")));
        parser.AppendLine({"before"});
        parser.AppendLine({"half", "REFUSE"});
        parser.AppendLine({"after"});

        parser.WriteCSVFile();
        parser.CloseFile();

        // What the library has taken is delivered when it is finished; the line after it is not
        // written.
        QCOMPARE(folder_.Bytes("refused.csv"),
                 QByteArray("\xEF\xBB\xBF\"before\"\r\n\"half\",\"\"\r\n"));
        QCOMPARE(guard_.LogLines().size(), 1);
        QVERIFY(guard_.LogLines().constFirst().startsWith(
            "5 ClientWarningAndMore [Vantor::CCSVParser::DoParserTask]csvparse_parse Error parsing "
            "file.[CsvWrite.cpp("));

        QVERIFY(parser.OpenFile(folder_.Path("whole.csv")));
        parser.AppendLine({"a"});
        parser.WriteCSVFile();
        parser.CloseFile();
        QCOMPARE(folder_.Bytes("whole.csv"), QByteArray("\xEF\xBB\xBF\"a\"\r\n"));
    }

    void aFullDiskIsToldOnceAndShown_data()
    {
        AddRows<Row<int>>({{"found when flushed", 1}, {"found in the middle", 100000}});
    }

    void aFullDiskIsToldOnceAndShown()
    {
        const int lines = std::get<1>(FetchRow<Row<int>>());
        guard_.AnnounceLogLines();
        CCSVParser parser(nullptr);
        QVERIFY(parser.OpenFile("/dev/full"));
        for (int i = 0; i < lines; ++i)
            parser.AppendLine({"a", "b"});

        parser.WriteCSVFile();
        parser.WriteCSVFile();
        parser.CloseFile();

        QVERIFY(parser.HasWriteError());
        QCOMPARE(guard_.LogLines().size(), 1);
        QVERIFY(guard_.LogLines().constFirst().startsWith(
            "5 ClientWarningAndMore [Vantor::CCSVParser::DoParserTask]Writing the CSV file "
            "/dev/full failed: No space left"));
        QVERIFY(parser.WriteErrorText().startsWith("No space left"));
    }

    void aMarkThatDoesNotFitIsFoundWhenTheFileIsClosed()
    {
        guard_.AnnounceLogLines();
        CCSVParser parser(nullptr);
        QVERIFY(parser.OpenFile("/dev/full"));
        QStandardItemModel model(0, 1);
        parser.PrepareSourceData(&model);
        QVERIFY(!parser.HasWriteError());

        parser.CloseFile();

        QVERIFY(parser.HasWriteError());
    }

    void aFileLimitStopsTheWriteAndTheNextFileIsFine()
    {
        guard_.AnnounceLogLines();
        CCSVParser parser(nullptr);
        QVERIFY(parser.OpenFile(folder_.Path("limited.csv")));
        for (int i = 0; i < 1000; ++i)
            parser.AppendLine({"0123456789"});
        {
            const CFileLimit limit(1000);
            parser.WriteCSVFile();
            parser.CloseFile();
        }

        QVERIFY(parser.HasWriteError());
        QCOMPARE(folder_.Bytes("limited.csv").size(), 1000);
        QVERIFY(parser.OpenFile(folder_.Path("next.csv")) && !parser.HasWriteError());
        parser.CloseFile();
    }

    void aModelThatThrowsLosesNoEarlierRow()
    {
        guard_.AnnounceLogLines();
        const QString path = folder_.Path("thrown.csv");
        CCSVParser parser(nullptr);
        QVERIFY(parser.OpenFileWithAppendMode(path));
        CThrowingModel model(5, 1);

        parser.PrepareSourceData(&model);
        parser.WriteCSVFile();
        parser.CloseFile();

        QCOMPARE(FileBytes(path), QByteArray("\"'=\"\"0\"\"\",\r\n\"'=\"\"1\"\"\",\r\n"));
        QCOMPARE(guard_.LogLines().size(), 1);
        QVERIFY(guard_.LogLines().constFirst().contains("row 2 is gone"));
    }

    void streamsAreNotInherited()
    {
        CCSVParser parser(nullptr);
        QVERIFY(parser.OpenFile(folder_.Path("inherited.csv")));

        const int listed = std::system(qPrintable("ls -l /proc/self/fd | grep -q inherited.csv"));

        parser.CloseFile();
        QVERIFY2(listed != 0, "a child process sees the open file");
    }
};

QTEST_MAIN(TestCsvParserFaults)
#include "tst_csvparser_faults.moc"
