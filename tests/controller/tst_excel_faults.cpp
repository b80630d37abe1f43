// SPDX-License-Identifier: MIT
#include "ExcelParts.h"
#include "support/Files.h"
#include "support/TestGuard.h"

#include <Vantor/CExcelControllorWithC>

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QDir>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <csignal>
#include <cstring>

using Vantor::CExcelControllorWithC;

namespace {

// A file system of its own that holds no more than `bytes`.
class CSmallDisk
{
public:
    CSmallDisk(const QString &path, int bytes) : path_(path.toLocal8Bit())
    {
        const QByteArray options = "size=" + QByteArray::number(bytes);
        is_mounted_ = QDir().mkpath(path)
                      && mount("none", path_.constData(), "tmpfs", 0, options.constData()) == 0;
        if (!is_mounted_)
            qWarning("cannot mount a small disk: %s", std::strerror(errno));
    }
    ~CSmallDisk()
    {
        if (is_mounted_)
            umount2(path_.constData(), MNT_DETACH);
    }
    Q_DISABLE_COPY(CSmallDisk)

private:
    const QByteArray path_;
    bool is_mounted_ = false;
};

// No file of this process grows beyond `bytes`.
class CFileLimit
{
public:
    explicit CFileLimit(rlim_t bytes)
    {
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~CFileLimit()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    Q_DISABLE_COPY(CFileLimit)

private:
    rlimit before_{};
    void (*handler_)(int) = nullptr;
};

void WriteBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qWarning("cannot write %s", qPrintable(path));
}

enum class Full { FileLimit, TargetDisk, CacheDisk, CacheDiskForTheCopy, SystemTemporary };

} // namespace

Q_DECLARE_METATYPE(Full)

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

    void withoutRoomTheEarlierFileSurvivesAlone_data()
    {
        QTest::addColumn<Full>("full");
        QTest::addColumn<bool>("is_constant");
        QTest::newRow("a file limit, in memory") << Full::FileLimit << false;
        QTest::newRow("a file limit, in constant memory") << Full::FileLimit << true;
        QTest::newRow("the disk of the file, in memory") << Full::TargetDisk << false;
        QTest::newRow("the disk of the file, in constant memory") << Full::TargetDisk << true;
        QTest::newRow("the disk of the cache directory") << Full::CacheDisk << true;
        QTest::newRow("it holds the rows, but not their copy") << Full::CacheDiskForTheCopy << true;
        QTest::newRow("the system's temporary directory") << Full::SystemTemporary << false;
    }

    void withoutRoomTheEarlierFileSurvivesAlone()
    {
        QFETCH(Full, full);
        QFETCH(bool, is_constant);
        guard_.AnnounceLogLines();
        constexpr int kMegabyte = 1024 * 1024;
        std::unique_ptr<CSmallDisk> disk;
        std::unique_ptr<CFileLimit> limit;
        const QByteArray temporary = qgetenv("TMPDIR");
        if (full == Full::TargetDisk)
            disk = std::make_unique<CSmallDisk>(folder_->filePath("out"), kMegabyte);
        else if (full == Full::CacheDisk || full == Full::SystemTemporary)
            disk = std::make_unique<CSmallDisk>(folder_->filePath("cache"), kMegabyte);
        else if (full == Full::CacheDiskForTheCopy)
            disk = std::make_unique<CSmallDisk>(folder_->filePath("cache"), 8 * kMegabyte);
        if (full == Full::SystemTemporary)
            qputenv("TMPDIR", folder_->filePath("cache").toLocal8Bit());
        WriteBytes(target_, "earlier");
        if (full == Full::FileLimit)
            limit = std::make_unique<CFileLimit>(kMegabyte);

        CExcelControllorWithC writer;
        WriteMuch(writer, is_constant);
        writer.Close();

        limit.reset();
        if (full == Full::SystemTemporary)
            temporary.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", temporary);
        QVERIFY(writer.LastCloseResult() != 0);
        QCOMPARE(FileBytes(target_), QByteArray("earlier"));
        QCOMPARE(Left(), QStringList{"a.xlsx"});
        QCOMPARE(guard_.LogLines().filter("was not saved").size(), 1);
        QVERIFY(!QFile::exists(folder_->filePath("cache/FileGenerateCach")));
        disk.reset();

        WriteMuch(writer, is_constant);
        writer.Close();
        QCOMPARE(writer.LastCloseResult(), 0);
        QCOMPARE(ReadParts(target_).value("xl/worksheets/sheet1.xml").count("<row "), kRows);
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

    void aLinkIsWrittenThroughAndPermissionsStay()
    {
        WriteBytes(target_, "earlier");
        QVERIFY(QFile::setPermissions(target_, QFile::ReadOwner | QFile::WriteOwner));
        const QString link = folder_->filePath("link.xlsx");
        QVERIFY(QFile::link(target_, link));
        CExcelControllorWithC writer;
        writer.Init(link.toStdString(), "");
        writer.AddSheetByName("A");
        writer.Close();

        QVERIFY(QFileInfo(link).isSymLink());
        QVERIFY(ReadParts(target_).contains("xl/workbook.xml"));
        struct stat status
        {
        };
        QCOMPARE(stat(qPrintable(target_), &status), 0);
        QCOMPARE(int(status.st_mode & 0777), 0600);
    }

    void aNameMayBeAsLongAsNamesCanBe()
    {
        const QString path = folder_->filePath("out/" + QString(250, 'n') + ".xlsx");
        CExcelControllorWithC writer;
        writer.Init(path.toStdString(), "");
        writer.AddSheetByName("A");
        writer.Close();

        QCOMPARE(writer.LastCloseResult(), 0);
        QVERIFY(QFile::exists(path));
    }

    void withoutACacheDirectoryTheSystemsServes()
    {
        guard_.AnnounceLogLines();
        WriteBytes(folder_->filePath("cache"), "in the way");
        CExcelControllorWithC writer;
        WriteMuch(writer, true);
        writer.Close();

        QCOMPARE(writer.LastCloseResult(), 0);
        QCOMPARE(guard_.LogLines().filter("No cache directory: ").size(), 1);
        QCOMPARE(ReadParts(target_).value("xl/worksheets/sheet1.xml").count("<row "), kRows);
        QCOMPARE(FileBytes(folder_->filePath("cache")), QByteArray("in the way"));
    }

    void twoWritersMayShareAPathAndACacheDirectory()
    {
        CExcelControllorWithC first;
        CExcelControllorWithC second;
        WriteMuch(first, true);
        WriteMuch(second, true);
        second.AddSheetByName("of the second");
        first.Close();
        second.Close(); // its directory is gone

        QCOMPARE(first.LastCloseResult() + second.LastCloseResult(), 0);
        const Parts parts = ReadParts(target_);
        QVERIFY(parts["xl/workbook.xml"].contains("of the second"));
        QCOMPARE(parts["xl/worksheets/sheet1.xml"].count("<row "), kRows);
    }

private:
    static constexpr int kRows = 2000;

    // Five megabytes that cannot be made much smaller.
    void WriteMuch(CExcelControllorWithC &writer, bool is_constant) const
    {
        QRandomGenerator random(7);
        writer.Init(target_.toStdString(),
                    is_constant ? folder_->filePath("cache/").toStdString() : "");
        writer.AddSheetByName("A");
        for (int row = 0; row < kRows; ++row) {
            std::string text;
            for (int i = 0; i < 2500; ++i)
                text += static_cast<char>('a' + random.bounded(26));
            writer.SetCellString(row, 0, text, nullptr);
        }
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
    // Only root may mount, but anyone may in a namespace of his own, as long as there is one
    // thread.
    const QByteArray user = QByteArray::number(geteuid());
    const QByteArray group = QByteArray::number(getegid());
    if (geteuid() != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0) {
        WriteBytes("/proc/self/uid_map", user + ' ' + user + " 1");
        WriteBytes("/proc/self/setgroups", "deny");
        WriteBytes("/proc/self/gid_map", group + ' ' + group + " 1");
    }
    TestExcelFaults test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_excel_faults.moc"
