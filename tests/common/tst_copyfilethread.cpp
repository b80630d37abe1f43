// SPDX-License-Identifier: MIT
#include "support/Files.h"
#include "support/TestGuard.h"

#include <Vantor/CCopyFileThread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFileInfo>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <atomic>
#include <csignal>
#include <memory>
#include <thread>
#include <vector>

using Vantor::CCopyFileThread;

namespace {

constexpr int kNobody = 65534;

// Runs as somebody whom permissions stop, also when the tests run as root.
class CPoorUser
{
public:
    CPoorUser()
    {
        if (was_root_ && seteuid(kNobody) != 0)
            qFatal("cannot become another user");
    }
    ~CPoorUser()
    {
        if (was_root_ && seteuid(0) != 0)
            qFatal("cannot become root again");
    }

private:
    const bool was_root_ = geteuid() == 0;
};

// No file may grow beyond `bytes`, as if the disk were full.
class CFullDisk
{
public:
    explicit CFullDisk(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &old_limit_);
        rlimit limit = old_limit_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~CFullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &old_limit_);
        std::signal(SIGXFSZ, old_handler_);
    }

private:
    rlimit old_limit_{};
    void (*const old_handler_)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

} // namespace

class TestCopyFileThread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        folder_ = std::make_unique<QTemporaryDir>();
        QCOMPARE(chmod(qPrintable(folder_->path()), 0777), 0);
        QVERIFY(QDir(folder_->path()).mkdir("out"));
        QCOMPARE(chmod(qPrintable(Path("out")), 0777), 0);
    }

    void cleanup()
    {
        folder_.reset();
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void anExistingNameGetsANumber_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("existing");
        QTest::addColumn<bool>("keep_existing");
        QTest::addColumn<QString>("expected"); // empty: the copy fails
        const auto row = [](const char *what, const char *name, const QStringList &existing,
                            bool keep, const char *expected) {
            QTest::newRow(what) << name << existing << keep << expected;
        };
        row("free", "a.jpg", {}, false, "a.jpg");
        row("taken", "a.jpg", {"a.jpg"}, false, "a(1).jpg");
        row("taken twice", "a.jpg", {"a.jpg", "a(1).jpg"}, false, "a(2).jpg");
        row("a gap is filled", "a.jpg", {"a.jpg", "a(2).jpg"}, false, "a(1).jpg");
        row("a long extension is cut", "photo.jpeg", {"photo.jpeg"}, false, "photo(1).jpe");
        row("only the last dot counts", "a.tar.gz", {"a.tar.gz"}, false, "a.tar(1).gz");
        row("a dot at the end", "a.", {"a."}, false, "a(1).");
        row("a dot at the beginning", ".hidden", {".hidden"}, false, "(1).hid");
        row("cut between characters", "x.ab\xC3\xA9", {"x.ab\xC3\xA9"}, false, "x(1).ab");
        row("a character of three bytes", "x.\xE4\xB8\xAD\xE6\x96\x87",
            {"x.\xE4\xB8\xAD\xE6\x96\x87"}, false, "x(1).\xE4\xB8\xAD");
        row("without a dot it is replaced", "noext", {"noext"}, false, "noext");
        row("a dot in the folder's name is the last", "v.1/noext", {"v.1/noext"}, false, "");
        row("kept: without a dot", "noext", {"noext", "noext(1)"}, true, "noext(2)");
        row("kept: a long extension", "photo.jpeg", {"photo.jpeg"}, true, "photo(1).jpeg");
        row("kept: a dot in the folder's name", "v.1/noext", {"v.1/noext"}, true, "v.1/noext(1)");
        row("kept: a dot at the beginning", ".hidden", {".hidden"}, true, ".hidden(1)");
    }

    void anExistingNameGetsANumber()
    {
        QFETCH(QString, name);
        QFETCH(QStringList, existing);
        QFETCH(bool, keep_existing);
        QFETCH(QString, expected);
        Write("source", "new");
        for (const QString &old : existing) {
            QVERIFY(QDir().mkpath(QFileInfo(Path("out/" + old)).path()));
            Write("out/" + old, "old");
        }

        CCopyFileThread thread;
        thread.SetKeepExisting(keep_existing);
        const QStringList failed = Copy(thread, {Path("source")}, {Path("out/" + name)});

        QCOMPARE(failed.isEmpty(), !expected.isEmpty());
        if (!expected.isEmpty()) {
            QCOMPARE(thread.Results().constFirst().target, Path("out/" + expected));
            QCOMPARE(FileBytes(Path("out/" + expected)), QByteArray("new"));
            existing.removeOne(expected);
        }
        for (const QString &old : existing)
            QCOMPARE(FileBytes(Path("out/" + old)), QByteArray("old"));
    }

    void aFaultIsReportedAndHarmsNothing_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("destination");
        QTest::newRow("missing") << "missing"
                                 << "out/a.jpg";
        QTest::newRow("a folder") << "folder"
                                  << "out/a.jpg";
        QTest::newRow("a pipe nobody writes to") << "pipe"
                                                 << "out/a.jpg";
        QTest::newRow("unreadable") << "secret"
                                    << "out/a.jpg";
        QTest::newRow("an unwritable folder") << "source"
                                              << "locked/a.jpg";
        QTest::newRow("a folder that is gone") << "source"
                                               << "gone/a.jpg";
        QTest::newRow("a folder in place of the file") << "source"
                                                       << "out/sub";
        QTest::newRow("a full disk") << "large"
                                     << "out/b.jpg";
        QTest::newRow("a full disk, replacing") << "large"
                                                << "out/old";
        QTest::newRow("no destination") << "source"
                                        << "";
        QTest::newRow("a zero byte") << "source" << QString("out/a") + QChar(0) + "b";
        QTest::newRow("half a character") << "source" << QString("out/a") + QChar(0xD800);
        QTest::newRow("another spelling of the source") << "out/old"
                                                        << "out/./old";
        QTest::newRow("a hard link to the source") << "out/old"
                                                   << "out/hard";
        QTest::newRow("a symbolic link to the source") << "out/old"
                                                       << "out/soft";
    }

    void aFaultIsReportedAndHarmsNothing()
    {
        QFETCH(QString, source);
        QFETCH(QString, destination);
        Write("source", "new");
        Write("secret", "new");
        Write("large", QByteArray(300000, 'x'));
        Write("out/a.jpg", "old");
        Write("out/old", "old");
        QVERIFY(QDir(folder_->path()).mkdir("folder") && QDir(Path("out")).mkdir("sub"));
        QVERIFY(QDir(folder_->path()).mkdir("locked"));
        QCOMPARE(chmod(qPrintable(Path("locked")), 0555), 0);
        QCOMPARE(chmod(qPrintable(Path("secret")), 0200), 0);
        QCOMPARE(mkfifo(qPrintable(Path("pipe")), 0666), 0);
        QCOMPARE(link(qPrintable(Path("out/old")), qPrintable(Path("out/hard"))), 0);
        QCOMPARE(symlink(qPrintable(Path("out/old")), qPrintable(Path("out/soft"))), 0);
        const QStringList before = Tree();
        if (!destination.isEmpty())
            destination = Path(destination);

        CCopyFileThread thread;
        QStringList failed;
        {
            const CPoorUser poor;
            const CFullDisk full(100000);
            failed = Copy(thread, {Path(source)}, {destination}, true);
        }

        QCOMPARE(failed, QStringList(Path(source)));
        QVERIFY(!thread.Results().constFirst().error.isEmpty());
        QCOMPARE(Tree(), before);
        QCOMPARE(FileBytes(Path("out/old")), QByteArray("old"));
        QCOMPARE(FileBytes(Path("out/a.jpg")), QByteArray("old"));
    }

    void whatCannotBeCopiedStopsNobodyElse()
    {
        Write("a", "1");
        Write("b", "2");

        CCopyFileThread thread;
        const QStringList failed = Copy(thread, {Path("a"), Path("missing"), Path("b"), Path("b")},
                                        {Path("out/a"), Path("out/m"), Path("out/b"), Path("b")});

        QCOMPARE(failed, QStringList(Path("missing")));
        QCOMPARE(FileBytes(Path("out/a")) + FileBytes(Path("out/b")), QByteArray("12"));
        QCOMPARE(FileBytes(Path("b")), QByteArray("2")); // onto itself
    }

    void pathsEndAt260Bytes()
    {
        const QString folder = Path(QString(253 - folder_->path().size(), 'f'));
        QVERIFY(QDir().mkpath(folder));
        const QString longest = folder + "/n.txt"; // 260 bytes
        QCOMPARE(longest.size(), 260);
        Write("source", "new");

        CCopyFileThread thread;
        const QStringList failed =
            Copy(thread, {Path("source"), Path("source"), longest + "x", Path("source")},
                 {longest, longest + "x", Path("out/x"), longest});

        QCOMPARE(failed, QStringList({Path("source"), longest + "x"}));
        QCOMPARE(thread.Results().at(3).target, folder + "/n(1).txt"); // the number is not counted
    }

    void listsOfUnequalLengthAreNotStored()
    {
        CCopyFileThread thread;

        QVERIFY(Copy(thread, {Path("a"), Path("b")}, {Path("out/a")}).isEmpty());
        QVERIFY(thread.Results().isEmpty());
    }

    void aStopAtAnyTimeLeavesTheRestWhole()
    {
        constexpr int kFiles = 60;
        const QByteArray bytes(200000, 'x');
        QStringList sources;
        QStringList destinations;
        for (int i = 0; i < kFiles; ++i) {
            sources.append(Path(QString::number(i)));
            destinations.append(Path("out/%1.x").arg(i));
            Write(QString::number(i), bytes);
        }
        for (int delay_us = 0; delay_us < 6000; delay_us += 300) {
            CCopyFileThread thread;
            thread.SetFileInfo(sources, destinations, false);
            QSignalSpy finished(&thread, &CCopyFileThread::SendSaveFinish);
            if (delay_us == 0)
                thread.OnStopCopyFileThread();

            thread.start();
            QThread::usleep(delay_us);
            thread.OnStopCopyFileThread();

            QVERIFY(thread.wait());
            const QFileInfoList arrived = QDir(Path("out")).entryInfoList(QDir::Files);
            QCOMPARE(finished.at(0).at(1).toStringList(), sources.mid(arrived.size()));
            QCOMPARE(finished.at(0).at(0).toBool(), arrived.size() == kFiles);
            QVERIFY(delay_us > 0 || arrived.isEmpty());
            for (const QFileInfo &file : arrived) {
                QCOMPARE(file.size(), qint64(bytes.size()));
                QVERIFY(QFile::remove(file.filePath()));
            }
            thread.run(); // the request stays for good
            QVERIFY(QDir(Path("out")).isEmpty());
        }
    }

    void aThreadThatIsDeletedFinishesTheFileAtHand()
    {
        Write("large", QByteArray(5000000, 'x'));
        {
            CCopyFileThread thread;
            thread.SetFileInfo({Path("large")}, {Path("out/large")}, false);
            thread.start();
        }
        const QFileInfoList arrived =
            QDir(Path("out")).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
        QVERIFY(arrived.isEmpty() || arrived.constFirst().size() == 5000000);
        QVERIFY(arrived.size() <= 1);
    }

    void timesAndPermissionsGoAlong()
    {
        Write("source", "x");
        const timespec times[] = {{1000000000, 1}, {1234567890, 123456789}};
        QCOMPARE(utimensat(AT_FDCWD, qPrintable(Path("source")), times, 0), 0);
        QCOMPARE(chmod(qPrintable(Path("source")), 04751), 0);

        CCopyFileThread thread;
        QVERIFY(Copy(thread, {Path("source")}, {Path("out/copy")}).isEmpty());

        struct stat facts = {};
        QCOMPARE(stat(qPrintable(Path("out/copy")), &facts), 0);
        QCOMPARE(facts.st_mode & 07777U, 0751U);
        QCOMPARE(qint64(facts.st_mtim.tv_sec), qint64(1234567890));
        QCOMPARE(qint64(facts.st_mtim.tv_nsec), qint64(123456789));
    }

    void progressEndsAtTheWhole()
    {
        constexpr qint64 kLarge = qint64{40} * 1024 * 1024 + 1;
        Write("small", "12345");
        QFile large(Path("large"));
        QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(kLarge));
        CCopyFileThread thread;
        QSignalSpy told(&thread, &CCopyFileThread::SendSaveProgress);

        Copy(thread, {Path("large"), Path("missing"), Path("small")},
             {Path("out/large"), Path("out/missing"), Path("out/small")});

        QCOMPARE(QFileInfo(Path("out/large")).size(), kLarge);
        QCOMPARE(told.constFirst(), QList<QVariant>({0, kLarge + 5, 0, 3}));
        QCOMPARE(told.constLast(), QList<QVariant>({kLarge + 5, kLarge + 5, 3, 3}));
        for (int i = 1; i < told.size(); ++i)
            QVERIFY(told.at(i).at(0).toLongLong() >= told.at(i - 1).at(0).toLongLong());
    }

    // Cameras write on while an operator copies: what arrives is a beginning of the file.
    void aSourceThatChangesMeanwhileIsCopiedAsFarAsItGoes()
    {
        constexpr int kSize = 8 * 1024 * 1024;
        Write("live", QByteArray(kSize, 'x'));
        std::atomic<bool> is_over{false};
        std::thread writer([this, &is_over] {
            QFile live(Path("live"));
            QVERIFY(live.open(QIODevice::ReadWrite | QIODevice::Append));
            while (!is_over) {
                live.resize(kSize / 2);
                live.write(QByteArray(kSize, 'x'));
                live.flush();
            }
        });
        for (int round = 0; round < 50; ++round) {
            CCopyFileThread thread;
            const QStringList failed = Copy(thread, {Path("live")}, {Path("out/copy.x")});
            if (!failed.isEmpty())
                break;
        }
        is_over = true;
        writer.join();

        const QFileInfoList copies = QDir(Path("out")).entryInfoList(QDir::Files | QDir::Hidden);
        QCOMPARE(copies.size(), 50);
        for (const QFileInfo &copy : copies) {
            const QByteArray bytes = FileBytes(copy.filePath());
            QVERIFY(bytes.size() <= kSize * 3 / 2 && bytes.count('x') == bytes.size());
        }
    }

    void sixteenThreadsMayCopyToOneName()
    {
        constexpr int kThreads = 16;
        constexpr int kRounds = 200;
        for (int i = 0; i < kThreads; ++i)
            Write("s" + QString::number(i), QByteArray::number(i));
        int failed = 0;
        int lost = 0;
        for (int round = 0; round < kRounds; ++round) {
            const QTemporaryDir shared;
            std::vector<std::unique_ptr<CCopyFileThread>> threads;
            for (int i = 0; i < kThreads; ++i) {
                threads.push_back(std::make_unique<CCopyFileThread>());
                threads.back()->SetFileInfo({Path("s" + QString::number(i))},
                                            {shared.filePath("a.jpg")}, i % 2 == 0);
            }
            for (const auto &thread : threads)
                thread->start();
            for (const auto &thread : threads)
                thread->wait();
            for (int i = 0; i < kThreads; ++i) {
                const Vantor::CopiedFile result = threads.at(size_t(i))->Results().constFirst();
                failed += result.error.isEmpty() ? 0 : 1;
                lost += FileBytes(result.target) == QByteArray::number(i) ? 0 : 1;
            }
            QCOMPARE(QDir(shared.path()).entryList(QDir::Files | QDir::Hidden).size(), kThreads);
        }
        QCOMPARE(failed, 0);
        QCOMPARE(lost, 0);
    }

private:
    [[nodiscard]] QString Path(const QString &name) const { return folder_->filePath(name); }

    void Write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(Path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    // Every name below the folder with what tells whether it has changed.
    [[nodiscard]] QStringList Tree() const
    {
        QStringList names;
        QDirIterator all(folder_->path(),
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
        while (all.hasNext()) {
            all.next();
            struct stat facts = {};
            lstat(QFile::encodeName(all.filePath()), &facts);
            names.append(QStringLiteral("%1 %2 %3")
                             .arg(all.filePath())
                             .arg(facts.st_ino)
                             .arg(facts.st_size));
        }
        names.sort();
        return names;
    }

    // What failed, after a whole run on the thread.
    static QStringList Copy(CCopyFileThread &thread, const QStringList &sources,
                            const QStringList &destinations, bool flag = false)
    {
        QSignalSpy finished(&thread, &CCopyFileThread::SendSaveFinish);
        thread.SetFileInfo(sources, destinations, flag);
        thread.start();
        thread.wait();
        if (finished.size() != 1)
            qFatal("not finished once");
        const QStringList failed = finished.at(0).at(1).toStringList();
        if (finished.at(0).at(0).toBool() != failed.isEmpty())
            qFatal("the result does not fit the list");
        return failed;
    }

    CTestGuard guard_;
    std::unique_ptr<QTemporaryDir> folder_;
};

QTEST_GUILESS_MAIN(TestCopyFileThread)
#include "tst_copyfilethread.moc"
