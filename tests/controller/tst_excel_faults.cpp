// SPDX-License-Identifier: MIT
#include "ExcelParts.h"
#include "support/Limits.h"
#include "support/Test.h"

#include <Vantor/CExcelControllorWithC>

#include <xlsxwriter.h>

using Vantor::CExcelControllorWithC;

namespace {

enum class Full { FileLimit, TargetDisk, TemporaryDisk };

using Fill = std::function<void(CExcelControllorWithC &)>;

std::string RandomText(size_t length)
{
    static std::mt19937 random(7);
    std::string text(length, ' ');
    std::generate(text.begin(), text.end(), [] { return char('a' + random() % 26); });
    return text;
}

Fill Texts(int rows, const std::function<std::string()> &text)
{
    return [rows, text](CExcelControllorWithC &writer) {
        for (int row = 0; row < rows; ++row)
            writer.SetCellString(row, 0, text(), nullptr);
    };
}

// Five megabytes that cannot be made much smaller.
Fill Much()
{
    return Texts(2000, [] { return RandomText(2500); });
}

int OpenFiles()
{
    return FileNames("/proc/self/fd").size();
}

bool refuse_workbooks = false;

using FullDisk = Row<Full, double, bool, Fill, int>; // full, megabytes, is_constant, fill, result

// leads_to (empty: there is no link), path, result
const Rows<QByteArray, QString, int> kLinkRows = {
    {"to a file, whose permissions stay", "a.xlsx", "link", 0},
    {"to a file that is still to come", "new.xlsx", "link", 0},
    {"into a missing folder", "missing/new.xlsx", "link", 2},
    {"to itself", "link", "link", 2},
    {"back from a missing folder", "", "missing/../a.xlsx", 2},
};

} // namespace

// Replaces libxlsxwriter's own, which returns null only when memory runs out.
extern "C" Q_DECL_EXPORT lxw_workbook *workbook_new_opt(const char *filename,
                                                        lxw_workbook_options *options)
{
    static const auto next =
        reinterpret_cast<decltype(&workbook_new_opt)>(dlsym(RTLD_NEXT, "workbook_new_opt"));
    return refuse_workbooks ? nullptr : next(filename, options);
}

class TestExcelFaults : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        folder_.PutFolder("out");
        target_ = folder_.Path("out/a.xlsx");
    }

    void WriteMuch(CExcelControllorWithC &writer) const
    {
        writer.Init(target_.toStdString(), folder_.Path("cache/").toStdString());
        writer.AddSheetByName("A");
        Much()(writer);
    }

    // The names in the folder of the file, with hidden files.
    [[nodiscard]] QStringList Left() const { return folder_.Files("out"); }

    QString target_;

private Q_SLOTS:
    void aFileIsWholeOrTheEarlierOneStays_data()
    {
        const Fill controls = Texts(500, [] { return RandomText(9) + std::string(1000, '\x01'); });
        const Fill equal = Texts(20000, [] { return std::string(150, 'x'); });
        const Fill links = [](CExcelControllorWithC &writer) {
            for (int row = 0; row < 10000; ++row) {
                std::string url = "http://h/" + RandomText(500);
                std::string text = "x";
                writer.SetLinkString(row, 0, url, text);
            }
        };
        const auto target = Full::TargetDisk;
        const auto temporary = Full::TemporaryDisk;
        AddRows<FullDisk>({{"a file limit", Full::FileLimit, 1, false, Much(), 3},
                           {"one in constant memory", Full::FileLimit, 1, true, Much(), 3},
                           {"no room for the file", target, 1, false, Much(), 5},
                           {"none, in constant memory", target, 1, true, Much(), 5},
                           {"no room for texts", temporary, 4, false, Much(), 3},
                           {"none for rows", temporary, 4, true, Much(), 3},
                           {"rows fit, their copy not", temporary, 8, true, Much(), 3},
                           {"texts that grow", temporary, 2, false, controls, 3},
                           {"the addresses of links", temporary, 4.5, true, links, 3},
                           {"equal texts take little", temporary, 2, false, equal, 0}});
    }

    void aFileIsWholeOrTheEarlierOneStays()
    {
        const auto &[name, full, megabytes, is_constant, fill, result] = FetchRow<FullDisk>();
        guard_.AnnounceLogLines();
        const int bytes = static_cast<int>(megabytes * 1024 * 1024);
        const int open_files = OpenFiles();
        const QString cache = folder_.Path("cache/");
        std::unique_ptr<CSmallDisk> disk;
        std::unique_ptr<CFileLimit> limit;
        if (full == Full::TemporaryDisk) {
            disk = std::make_unique<CSmallDisk>(cache, bytes);
            qputenv("TMPDIR", cache.toLocal8Bit());
        } else if (full == Full::TargetDisk) {
            disk = std::make_unique<CSmallDisk>(folder_.Path("out"), bytes);
        }
        folder_.Put("out/a.xlsx", "earlier");
        if (full == Full::FileLimit)
            limit = std::make_unique<CFileLimit>(bytes);

        CExcelControllorWithC writer;
        writer.Init(target_.toStdString(), is_constant ? cache.toStdString() : "");
        writer.AddSheetByName("A");
        fill(writer);
        writer.AddSheetByName("B");
        writer.Close();

        limit.reset();
        qunsetenv("TMPDIR");
        QCOMPARE(writer.LastCloseResult(), result);
        QCOMPARE(FileBytes(target_) == "earlier", result != 0);
        QCOMPARE(Left(), QStringList{"a.xlsx"});
        QCOMPARE(guard_.LogLines().filter("was not saved").size(), result != 0 ? 1 : 0);
        if (full == Full::TargetDisk)
            QCOMPARE(writer.LastCloseErrno(), ENOSPC);
        QVERIFY(!QFile::exists(cache + "FileGenerateCach"));
        QCOMPARE(OpenFiles(), open_files); // one without a name would still fill the disk
    }

    void manySheetsNeedNoMoreDescriptorsThanTheyHave()
    {
        rlimit before{};
        getrlimit(RLIMIT_NOFILE, &before);
        const int open_files = OpenFiles();
        const rlimit limit{static_cast<rlim_t>(open_files + 120), before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &limit);
        guard_.AnnounceLogLines();
        CExcelControllorWithC writer;
        writer.Init(target_.toStdString(), folder_.Path("cache/").toStdString());
        for (int sheet = 0; sheet < 100; ++sheet) {
            writer.AddSheetByName(std::to_string(sheet));
            if (sheet != 50) // an empty one too
                writer.SetCellString(0, 0, "x", nullptr);
        }
        writer.Close();
        const int left_open = OpenFiles();
        const int result = writer.LastCloseResult();

        writer.Init(target_.toStdString(), folder_.Path("cache/").toStdString());
        for (int sheet = 0; sheet < 200; ++sheet)
            writer.AddSheetByName(std::to_string(sheet));
        writer.Discard();
        setrlimit(RLIMIT_NOFILE, &before);

        QCOMPARE(result, 0);
        QCOMPARE(left_open, open_files);
        QCOMPARE(OpenFiles(), open_files);
        QVERIFY(!guard_.LogLines().filter("no temporary file (Too many open files)").isEmpty());
        QVERIFY(guard_.LogLines().filter("the name was refused").isEmpty());
    }

    void aWorkbookThatDidNotComeIsNotSaved()
    {
        const QString made = folder_.Path("cache/FileGenerateCach");
        CExcelControllorWithC writer;
        for (const bool is_repeated : {false, true}) {
            refuse_workbooks = true;
            QVERIFY(writer.Init(target_.toStdString(), folder_.Path("cache/").toStdString()));
            refuse_workbooks = false;
            QVERIFY(is_repeated ? writer.Init(target_.toStdString(), "")
                                : !writer.AddSheetByName("A"));
            writer.Close();
            QCOMPARE(writer.LastCloseResult() == 0, is_repeated);
            QVERIFY(!QFile::exists(made));
        }
    }

    void pathsThatCannotBeWrittenShowAtClose()
    {
        guard_.AnnounceLogLines();
        const std::pair<QString, int> paths[] = {{folder_.Path("missing/a.xlsx"), 2},
                                                 {folder_.Path("out"), 2},
                                                 {"", 2},
                                                 {"/dev/full", 5}};
        for (const auto &[path, result] : paths) {
            CExcelControllorWithC writer;
            QVERIFY(writer.Init(path.toStdString(), "") && writer.AddSheetByName("A"));
            writer.Close();

            QCOMPARE(writer.LastCloseResult(), result);
            const QString line = "file  close success, file_path_ = %1 , close result = %2";
            QCOMPARE(guard_.LogLines().filter(line.arg(path).arg(result)).size(), 1);
        }
        QCOMPARE(guard_.LogLines().filter("was not saved").size(), 4);
        QCOMPARE(Left(), QStringList());
    }

    void aWriteProtectedFileIsLeftAlone()
    {
        guard_.AnnounceLogLines();
        folder_.Put("out/a.xlsx", "protected");
        QVERIFY(QFile::setPermissions(target_, QFile::ReadOwner | QFile::ReadOther));
        chmod(qPrintable(folder_.Path()), 0777);
        chmod(qPrintable(folder_.Path("out")), 0777);
        CExcelControllorWithC writer;
        {
            const CPoorUser user;
            writer.Init(target_.toStdString(), "");
            writer.AddSheetByName("A");
            writer.Close();
        }

        QCOMPARE(writer.LastCloseResult(), 2);
        QCOMPARE(FileBytes(target_), QByteArray("protected"));
        QCOMPARE(Left(), QStringList{"a.xlsx"});
    }

    void linksAreFollowedByHand_data() { AddRows(kLinkRows); }

    void linksAreFollowedByHand()
    {
        const auto &[name, leads_to, path, result] = FetchRow(kLinkRows);
        if (result != 0)
            guard_.AnnounceLogLines();
        folder_.Put("out/a.xlsx", "earlier");
        chmod(qPrintable(target_), 0600);
        const QByteArray link = folder_.Path("out/link").toLocal8Bit();
        QVERIFY(leads_to.isEmpty() || symlink(leads_to, link) == 0);
        CExcelControllorWithC writer;
        writer.Init(folder_.Path("out/" + path).toStdString(), "");
        writer.Close();

        QCOMPARE(writer.LastCloseResult(), result);
        QCOMPARE(QFileInfo(link).isSymLink(), !leads_to.isEmpty());
        const bool is_saved = ReadParts(folder_.Path("out/" + leads_to)).size() > 1;
        QCOMPARE(is_saved, result == 0);
        struct stat status = {};
        QCOMPARE(stat(qPrintable(target_), &status), 0);
        QCOMPARE(int(status.st_mode & 0777), 0600);
    }

    void withoutACacheDirectoryTheSystemsServes()
    {
        guard_.AnnounceLogLines();
        folder_.Put("cache", "in the way");
        CExcelControllorWithC writer;
        WriteMuch(writer);
        writer.Close();

        QCOMPARE(writer.LastCloseResult(), 0);
        QCOMPARE(guard_.LogLines().filter("No cache directory: ").size(), 1);
        QCOMPARE(ReadParts(target_).value("xl/worksheets/sheet1.xml").count("<row "), 2000);
        QCOMPARE(folder_.Bytes("cache"), QByteArray("in the way"));
    }

    void twoWritersMayShareAPathAndACacheDirectory()
    {
        CExcelControllorWithC first;
        CExcelControllorWithC second;
        WriteMuch(first);
        WriteMuch(second);
        second.AddSheetByName("of the second");
        first.Close();
        second.Close(); // its directory is gone

        QCOMPARE(first.LastCloseResult() + second.LastCloseResult(), 0);
        const Parts parts = ReadParts(target_);
        QVERIFY(parts["xl/workbook.xml"].contains("of the second"));
        QCOMPARE(parts["xl/worksheets/sheet1.xml"].count("<row "), 2000);
    }
};

int main(int argc, char **argv)
{
    AllowMounts();
    TestExcelFaults test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_excel_faults.moc"
