// SPDX-License-Identifier: MIT
#include "ExcelParts.h"
#include "support/Files.h"
#include "support/Limits.h"
#include "support/TestGuard.h"

#include <Vantor/CExcelControllorWithC>

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <QtCore/QDir>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <cstring>
#include <functional>

using Vantor::CExcelControllorWithC;

namespace {

void WriteBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qWarning("cannot write %s", qPrintable(path));
}

enum class Full { FileLimit, TargetDisk, TemporaryDisk };

using Fill = std::function<void(CExcelControllorWithC &)>;

std::string RandomText(int length)
{
    static QRandomGenerator random(7);
    std::string text;
    for (int i = 0; i < length; ++i)
        text += static_cast<char>('a' + random.bounded(26));
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
    return QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System).size();
}

bool refuse_workbooks = false;

} // namespace

// Stands in for libxlsxwriter's own, which gives none only when memory runs out.
extern "C" Q_DECL_EXPORT lxw_workbook *workbook_new_opt(const char *filename,
                                                        lxw_workbook_options *options)
{
    static const auto next =
        reinterpret_cast<decltype(&workbook_new_opt)>(dlsym(RTLD_NEXT, "workbook_new_opt"));
    return refuse_workbooks ? nullptr : next(filename, options);
}

Q_DECLARE_METATYPE(Full)
Q_DECLARE_METATYPE(Fill)

class TestExcelFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        folder_ = std::make_unique<QTemporaryDir>();
        QDir(folder_->path()).mkdir("out");
        target_ = folder_->filePath("out/a.xlsx");
    }

    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void aFileIsWholeOrTheEarlierOneStays_data()
    {
        QTest::addColumn<Full>("full");
        QTest::addColumn<double>("megabytes");
        QTest::addColumn<bool>("is_constant");
        QTest::addColumn<Fill>("fill");
        QTest::addColumn<int>("result");
        const Fill controls = Texts(500, [] { return RandomText(9) + std::string(1000, '\x01'); });
        const Fill equal = Texts(20000, [] { return std::string(150, 'x'); });
        const Fill links = [](CExcelControllorWithC &writer) {
            for (int row = 0; row < 10000; ++row) {
                std::string url = "http://h/" + RandomText(500);
                std::string text = "x";
                writer.SetLinkString(row, 0, url, text);
            }
        };
        const auto temporary = Full::TemporaryDisk;
        QTest::newRow("a file limit") << Full::FileLimit << 1.0 << false << Much() << 3;
        QTest::newRow("one in constant memory") << Full::FileLimit << 1.0 << true << Much() << 3;
        QTest::newRow("no room for the file") << Full::TargetDisk << 1.0 << false << Much() << 5;
        QTest::newRow("none, in constant memory") << Full::TargetDisk << 1.0 << true << Much() << 5;
        QTest::newRow("no room for texts") << temporary << 4.0 << false << Much() << 3;
        QTest::newRow("none for rows") << temporary << 4.0 << true << Much() << 3;
        QTest::newRow("rows fit, their copy not") << temporary << 8.0 << true << Much() << 3;
        QTest::newRow("texts that grow") << temporary << 2.0 << false << controls << 3;
        QTest::newRow("the addresses of links") << temporary << 4.5 << true << links << 3;
        QTest::newRow("equal texts take little") << temporary << 2.0 << false << equal << 0;
    }

    void aFileIsWholeOrTheEarlierOneStays()
    {
        QFETCH(Full, full);
        QFETCH(double, megabytes);
        QFETCH(bool, is_constant);
        QFETCH(Fill, fill);
        QFETCH(int, result);
        guard_.AnnounceLogLines();
        const int bytes = static_cast<int>(megabytes * 1024 * 1024);
        const int open_files = OpenFiles();
        const QString cache = folder_->filePath("cache/");
        std::unique_ptr<CSmallDisk> disk;
        std::unique_ptr<CFileLimit> limit;
        if (full == Full::TemporaryDisk) {
            disk = std::make_unique<CSmallDisk>(cache, bytes);
            qputenv("TMPDIR", cache.toLocal8Bit());
        } else if (full == Full::TargetDisk) {
            disk = std::make_unique<CSmallDisk>(folder_->filePath("out"), bytes);
        }
        WriteBytes(target_, "earlier");
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
        writer.Init(target_.toStdString(), folder_->filePath("cache/").toStdString());
        for (int sheet = 0; sheet < 100; ++sheet) {
            writer.AddSheetByName(std::to_string(sheet));
            if (sheet != 50) // an empty one too
                writer.SetCellString(0, 0, "x", nullptr);
        }
        writer.Close();
        const int left_open = OpenFiles();
        const int result = writer.LastCloseResult();

        writer.Init(target_.toStdString(), folder_->filePath("cache/").toStdString());
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
        const QString made = folder_->filePath("cache/FileGenerateCach");
        CExcelControllorWithC writer;
        refuse_workbooks = true;
        QVERIFY(writer.Init(target_.toStdString(), folder_->filePath("cache/").toStdString()));
        refuse_workbooks = false;
        QVERIFY(!writer.AddSheetByName("A"));
        writer.Close();
        QVERIFY(writer.LastCloseResult() != 0);
        QVERIFY(!QFile::exists(made));

        refuse_workbooks = true;
        writer.Init(target_.toStdString(), folder_->filePath("cache/").toStdString());
        refuse_workbooks = false;
        writer.Init(target_.toStdString(), "");
        QVERIFY(!QFile::exists(made));
        writer.Close();
        QCOMPARE(writer.LastCloseResult(), 0);
    }

    void pathsThatCannotBeWrittenShowAtClose_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("result");
        QTest::newRow("a missing directory") << "missing/a.xlsx" << 2;
        QTest::newRow("a directory") << "out" << 2;
        QTest::newRow("no path") << QString() << 2;
        QTest::newRow("a full device") << "/dev/full" << 5;
    }

    void pathsThatCannotBeWrittenShowAtClose()
    {
        QFETCH(QString, path);
        QFETCH(int, result);
        guard_.AnnounceLogLines();
        CExcelControllorWithC writer;
        const bool is_below = !path.isEmpty() && QDir::isRelativePath(path);
        const QString whole = is_below ? folder_->filePath(path) : path;
        QVERIFY(writer.Init(whole.toStdString(), ""));
        QVERIFY(writer.AddSheetByName("A"));
        writer.Close();

        QCOMPARE(writer.LastCloseResult(), result);
        const QString wanted = QString("file  close success, file_path_ = %1 , close result = %2")
                                   .arg(whole)
                                   .arg(result);
        QCOMPARE(guard_.LogLines().filter(wanted).size(), 1);
        QCOMPARE(guard_.LogLines().filter("was not saved").size(), 1);
        QCOMPARE(Left(), QStringList());
        QVERIFY(QDir(folder_->filePath("out")).exists());
        QVERIFY(QFile::exists("/dev/full"));
    }

    void aWriteProtectedFileIsLeftAlone()
    {
        guard_.AnnounceLogLines();
        WriteBytes(target_, "protected");
        QVERIFY(QFile::setPermissions(target_, QFile::ReadOwner | QFile::ReadOther));
        chmod(qPrintable(folder_->path()), 0777);
        chmod(qPrintable(folder_->filePath("out")), 0777);
        // Root may write everything, so this runs as another user.
        const bool is_root = geteuid() == 0;
        QVERIFY(!is_root || setresuid(65534, 65534, 0) == 0);
        CExcelControllorWithC writer;
        writer.Init(target_.toStdString(), "");
        writer.AddSheetByName("A");
        writer.Close();
        QVERIFY(!is_root || setresuid(0, 0, 0) == 0);

        QCOMPARE(writer.LastCloseResult(), 2);
        QCOMPARE(FileBytes(target_), QByteArray("protected"));
        QCOMPARE(Left(), QStringList{"a.xlsx"});
    }

    void linksAreFollowedByHand_data()
    {
        QTest::addColumn<QByteArray>("leads_to");
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("result");
        QTest::newRow("to a file, whose permissions stay") << QByteArray("a.xlsx") << "link" << 0;
        QTest::newRow("to a file that is still to come") << QByteArray("new.xlsx") << "link" << 0;
        QTest::newRow("into a missing folder") << QByteArray("missing/new.xlsx") << "link" << 2;
        QTest::newRow("to itself") << QByteArray("link") << "link" << 2;
        QTest::newRow("back from a missing folder") << QByteArray() << "missing/../a.xlsx" << 2;
    }

    void linksAreFollowedByHand()
    {
        QFETCH(QByteArray, leads_to);
        QFETCH(QString, path);
        QFETCH(int, result);
        if (result != 0)
            guard_.AnnounceLogLines();
        WriteBytes(target_, "earlier");
        chmod(qPrintable(target_), 0600);
        const QByteArray link = folder_->filePath("out/link").toLocal8Bit();
        QVERIFY(leads_to.isEmpty() || symlink(leads_to, link) == 0);
        CExcelControllorWithC writer;
        writer.Init(folder_->filePath("out/" + path).toStdString(), "");
        writer.Close();

        QCOMPARE(writer.LastCloseResult(), result);
        QCOMPARE(QFileInfo(link).isSymLink(), !leads_to.isEmpty());
        const bool is_saved = ReadParts(folder_->filePath("out/" + leads_to)).size() > 1;
        QCOMPARE(is_saved, result == 0);
        struct stat status
        {
        };
        QCOMPARE(stat(qPrintable(target_), &status), 0);
        QCOMPARE(int(status.st_mode & 0777), 0600);
    }

    void aNameMayBeLongAndAnyBytes()
    {
        const std::string path =
            folder_->path().toStdString() + "/out/\xFF" + std::string(249, 'n');
        CExcelControllorWithC writer;
        for (int round = 0; round < 2; ++round) { // the second finds a file there
            writer.Init(path, "");
            writer.Close();
            QCOMPARE(writer.LastCloseResult(), 0);
        }

        QCOMPARE(unlink(path.c_str()), 0);
    }

    void withoutACacheDirectoryTheSystemsServes()
    {
        guard_.AnnounceLogLines();
        WriteBytes(folder_->filePath("cache"), "in the way");
        CExcelControllorWithC writer;
        WriteMuch(writer);
        writer.Close();

        QCOMPARE(writer.LastCloseResult(), 0);
        QCOMPARE(guard_.LogLines().filter("No cache directory: ").size(), 1);
        QCOMPARE(ReadParts(target_).value("xl/worksheets/sheet1.xml").count("<row "), 2000);
        QCOMPARE(FileBytes(folder_->filePath("cache")), QByteArray("in the way"));
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

private:
    void WriteMuch(CExcelControllorWithC &writer) const
    {
        writer.Init(target_.toStdString(), folder_->filePath("cache/").toStdString());
        writer.AddSheetByName("A");
        Much()(writer);
    }

    // What lies in the folder of the file, hidden files too.
    [[nodiscard]] QStringList Left() const
    {
        return QDir(folder_->filePath("out"))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    CTestGuard guard_;
    std::unique_ptr<QTemporaryDir> folder_;
    QString target_;
};

int main(int argc, char **argv)
{
    AllowMounts();
    TestExcelFaults test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_excel_faults.moc"
