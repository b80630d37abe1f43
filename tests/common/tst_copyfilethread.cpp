// SPDX-License-Identifier: MIT
#include "support/Limits.h"
#include "support/Test.h"

#include <Vantor/CCopyFileThread>

#include <QtCore/QDirIterator>

using Vantor::CCopyFileThread;

namespace {

// The failed sources of a whole run on the thread.
QStringList Copy(CCopyFileThread &thread, const QStringList &sources,
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
        qFatal("the result contradicts the list");
    return failed;
}

// destination, existing, keeps_existing, expected; "": the copy fails
const Rows<const char *, QStringList, bool, const char *> kNameRows = {
    {"free", "a.jpg", {}, false, "a.jpg"},
    {"taken twice", "a.jpg", {"a.jpg", "a(1).jpg"}, false, "a(2).jpg"},
    {"a gap is filled", "a.jpg", {"a.jpg", "a(2).jpg"}, false, "a(1).jpg"},
    {"a long extension is cut", "photo.jpeg", {"photo.jpeg"}, false, "photo(1).jpe"},
    {"only the last dot counts", "a.tar.gz", {"a.tar.gz"}, false, "a.tar(1).gz"},
    {"a dot at the end", "a.", {"a."}, false, "a(1)."},
    {"a dot at the beginning", ".hidden", {".hidden"}, false, "(1).hid"},
    {"cut between characters", "x.ab\xC3\xA9", {"x.ab\xC3\xA9"}, false, "x(1).ab"},
    {"without a dot it is replaced", "noext", {"noext"}, false, "noext"},
    {"a dot in the folder's name is the last", "v.1/noext", {"v.1/noext"}, false, ""},
    {"kept: without a dot", "noext", {"noext", "noext(1)"}, true, "noext(2)"},
    {"kept: a long extension", "photo.jpeg", {"photo.jpeg"}, true, "photo(1).jpeg"},
    {"kept: a dot in the folder's name", "v.1/noext", {"v.1/noext"}, true, "v.1/noext(1)"},
    {"kept: a dot at the beginning", ".hidden", {".hidden"}, true, ".hidden(1)"},
};

// source, destination in the folder unless empty, error; 0: any
const Rows<const char *, QString, int> kRefusalRows = {
    {"missing", "missing", "out/a.jpg", ENOENT},
    {"a folder", "out/sub", "out/a.jpg", EISDIR},
    {"a pipe without a writer", "pipe", "out/a.jpg", 0},
    {"unreadable", "secret", "out/a.jpg", EACCES},
    {"an unwritable folder", "source", "locked/a.jpg", EACCES},
    {"an old file in an unwritable folder", "source", "locked/old", EACCES},
    {"a folder that is gone", "source", "gone/a.jpg", ENOENT},
    {"a folder in place of the file", "source", "out/sub", EISDIR},
    {"a full disk", "large", "out/b.jpg", EFBIG},
    {"no destination", "source", "", ENOENT},
    {"a zero byte", "source", QString("out/a") + QChar(0) + "b", EILSEQ},
    {"half a character", "source", QString("out/a") + QChar(0xD800), EILSEQ},
    {"261 bytes", "source", QString(260, 'f'), ENAMETOOLONG},
    {"another spelling of the source", "out/old", "out//old", EEXIST},
    {"a hard link to the source", "out/old", "out/hard", EEXIST},
    {"a symbolic link to the source", "out/old", "out/soft", EEXIST},
};

} // namespace

class TestCopyFileThread : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        folder_.PutFolder("out");
        for (const QString &name : {QString(), QString("out")})
            QCOMPARE(chmod(qPrintable(folder_.Path(name)), 0777), 0);
    }

    // Every file with its inode and size, by which a change shows.
    [[nodiscard]] QStringList Tree() const
    {
        QStringList names;
        QDirIterator all(folder_.Path(),
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
        while (all.hasNext()) {
            struct stat facts = {};
            lstat(QFile::encodeName(all.next()), &facts);
            names.append(
                QString("%1 %2 %3").arg(all.filePath()).arg(facts.st_ino).arg(facts.st_size));
        }
        names.sort();
        return names;
    }

private Q_SLOTS:
    void anExistingNameGetsANumber_data() { AddRows(kNameRows); }

    void anExistingNameGetsANumber()
    {
        const auto &[name, destination, existing, keeps_existing, text] = FetchRow(kNameRows);
        const QString expected(text);
        const QString out = folder_.Path("out/");
        for (const QString &old : existing)
            folder_.Put("out/" + old, "old");

        CCopyFileThread thread;
        thread.SetKeepExisting(keeps_existing);
        const QStringList failed =
            Copy(thread, {folder_.Put("source", "new")}, {out + destination});

        QCOMPARE(failed.isEmpty(), !expected.isEmpty());
        if (!expected.isEmpty()) {
            QCOMPARE(thread.Results().constFirst().target, out + expected);
            QCOMPARE(FileBytes(out + expected), QByteArray("new"));
        }
        for (const QString &old : existing)
            QVERIFY(old == expected || FileBytes(out + old) == "old");
    }

    void aFaultIsReportedAndHarmsNothing_data() { AddRows(kRefusalRows); }

    void aFaultIsReportedAndHarmsNothing()
    {
        const auto &[row_name, source_name, destination, error] = FetchRow(kRefusalRows);
        for (const char *const name : {"out/a.jpg", "out/old", "locked/old"})
            folder_.Put(name, "old");
        folder_.Put("source", "new");
        folder_.PutFolder("out/sub");
        const QByteArray old = folder_.Path("out/old").toLocal8Bit();
        QCOMPARE(chmod(qPrintable(folder_.Put("secret", "new")), 0200), 0);
        QCOMPARE(chmod(qPrintable(folder_.Path("locked")), 0555), 0);
        QCOMPARE(mkfifo(qPrintable(folder_.Path("pipe")), 0666), 0);
        QCOMPARE(link(old.constData(), qPrintable(folder_.Path("out/hard"))), 0);
        QCOMPARE(symlink(old.constData(), qPrintable(folder_.Path("out/soft"))), 0);
        folder_.Put("large", QByteArray(300000, 'x'));
        const QStringList before = Tree();
        const QString source = folder_.Path(source_name);

        CCopyFileThread thread;
        QStringList failed;
        {
            const CPoorUser poor;
            const CFileLimit full(100000);
            failed = Copy(thread, {source},
                          {destination.isEmpty() ? QString() : folder_.Path(destination)});
        }

        QCOMPARE(failed, QStringList(source));
        QCOMPARE(thread.Results().constFirst().error,
                 error != 0 ? qt_error_string(error) : QString("Not a regular file"));
        QCOMPARE(Tree(), before);
    }

    void theOthersAreCopiedWithTimesAndPermissions()
    {
        const QString a = folder_.Put("a", "1");
        const QString b = folder_.Put("b", "22");
        const QString missing = folder_.Path("missing");
        const timespec times[] = {{1000000000, 1}, {1234567890, 123456789}};
        QCOMPARE(utimensat(AT_FDCWD, qPrintable(a), times, 0), 0);
        QCOMPARE(chmod(qPrintable(a), 04751), 0);
        // 260 bytes; the number of the second one is not counted.
        const QString folder = folder_.PutFolder(QString(253 - folder_.Path().size(), 'f'));
        const QString longest = folder + "/n.txt";

        CCopyFileThread thread;
        const QStringList failed = Copy(thread, {a, missing, b, b, a, b},
                                        {folder_.Path("out/a"), folder_.Path("out/m"),
                                         folder_.Path("out/b"), b, longest, longest});

        QCOMPARE(failed, QStringList(missing));
        QCOMPARE(folder_.Bytes("out/a") + folder_.Bytes("out/b"), QByteArray("122"));
        QCOMPARE(FileBytes(b), QByteArray("22")); // onto itself
        QCOMPARE(thread.Results().at(5).target, folder + "/n(1).txt");
        struct stat facts = {};
        QCOMPARE(stat(qPrintable(folder_.Path("out/a")), &facts), 0);
        QCOMPARE(facts.st_mode & 07777U, 0751U);
        QCOMPARE(qint64(facts.st_mtim.tv_sec) + qint64(facts.st_mtim.tv_nsec),
                 qint64(1234567890) + 123456789);
        QVERIFY(Copy(thread, {a, b}, {folder_.Path("out/x")}).isEmpty()); // unequal: not stored
        QVERIFY(thread.Results().isEmpty());
        const QString taken = folder_.Put("out/taken.txt", "");
        const QString large = folder_.Put("large", QByteArray(300000, 'x'));
        const CFileLimit full(100000);
        QCOMPARE(Copy(thread, {large, a}, {taken, taken}), QStringList(large));
        QCOMPARE(thread.Results().at(1).target, folder_.Path("out/taken(1).txt"));
    }

    void aStopAtAnyTimeLeavesTheRestWhole()
    {
        constexpr int kFiles = 60;
        const QByteArray bytes(200000, 'x');
        QStringList sources;
        QStringList destinations;
        for (int i = 0; i < kFiles; ++i) {
            sources.append(folder_.Put(QString::number(i), bytes));
            destinations.append(folder_.Path("out/%1.x").arg(i));
        }
        for (int delay_us = 0; delay_us < 6000; delay_us += 300) {
            CCopyFileThread thread;
            thread.SetFileInfo(sources, destinations, false);
            QSignalSpy finished(&thread, &CCopyFileThread::SendSaveFinish);
            QSignalSpy progress(&thread, &CCopyFileThread::SendSaveProgress);
            if (delay_us == 0) { // while the sources are being measured
                connect(&thread, &CCopyFileThread::SendSaveProgress, &thread,
                        &CCopyFileThread::OnStopCopyFileThread, Qt::DirectConnection);
            }

            thread.start();
            QThread::usleep(delay_us);
            if (delay_us > 0)
                thread.OnStopCopyFileThread();

            QVERIFY(thread.wait());
            QCOMPARE(progress.constFirst(), QList<QVariant>({0, 0, 0, kFiles}));
            const QStringList arrived = folder_.Files("out");
            QCOMPARE(finished.at(0).at(1).toStringList(), sources.mid(arrived.size()));
            QCOMPARE(finished.at(0).at(0).toBool(), arrived.size() == kFiles);
            QVERIFY(delay_us > 0 || (arrived.isEmpty() && progress.constLast().at(1) == 0));
            for (const QString &file : arrived) {
                QCOMPARE(folder_.Bytes("out/" + file).size(), bytes.size());
                QVERIFY(QFile::remove(folder_.Path("out/" + file)));
            }
            thread.run(); // the request stays for good
            QVERIFY(folder_.Files("out").isEmpty());
        }
        const QString large = folder_.Put("large", QByteArray(5000000, 'x'));
        {
            CCopyFileThread deleted; // finishes the current file
            deleted.SetFileInfo({large}, {folder_.Path("out/large")}, false);
            deleted.start();
        }
        QVERIFY(folder_.Files("out").isEmpty() || folder_.Bytes("out/large").size() == 5000000);
    }

    // Cameras write on while an operator copies: the copy is a beginning of the file.
    void aSourceThatChangesMeanwhileIsCopiedAsFarAsItGoes()
    {
        constexpr int kSize = 8 * 1024 * 1024;
        const QString path = folder_.Put("live", QByteArray(kSize, 'x'));
        std::atomic<bool> is_over{false};
        auto writer = std::async(std::launch::async, [&] {
            QFile live(path);
            bool is_written = live.open(QIODevice::ReadWrite | QIODevice::Append);
            while (!is_over)
                is_written &= live.resize(kSize / 2) && live.write(QByteArray(kSize, 'x')) == kSize;
            return is_written;
        });
        CCopyFileThread thread;
        QVector<qint64> seen;
        qint64 whole = 0;
        const auto see = [&](qint64 done, qint64 total, int, int) {
            seen.append(done);
            whole = total;
        };
        connect(&thread, &CCopyFileThread::SendSaveProgress, &thread, see, Qt::DirectConnection);
        QStringList targets;
        for (int round = 0; round < 50; ++round)
            targets.append(folder_.Path("out/%1.x").arg(round));
        const QString missing = folder_.Path("missing");
        QStringList sources{missing};
        while (sources.size() <= 50)
            sources.prepend(path);
        const QStringList failed =
            Copy(thread, sources, targets + QStringList(folder_.Path("out/m")));
        is_over = true;

        QVERIFY(writer.get());
        QCOMPARE(failed, QStringList(missing));
        QCOMPARE(seen.constLast(), whole); // as it was measured at first
        QVERIFY(whole > 0 && std::is_sorted(seen.cbegin(), seen.cend()));
        for (const QString &target : qAsConst(targets)) {
            const QByteArray bytes = FileBytes(target);
            QVERIFY(bytes.size() <= kSize * 3 / 2 && bytes.count('x') == bytes.size());
        }
    }

    void sixteenThreadsMayCopyToOneName()
    {
        constexpr int kThreads = 16;
        QStringList sources;
        for (int i = 0; i < kThreads; ++i)
            sources.append(folder_.Put("s" + QString::number(i), QByteArray::number(i)));
        int lost = 0;
        for (int round = 0; round < 200; ++round) {
            const CTestFolder shared;
            std::array<CCopyFileThread, kThreads> threads;
            for (int i = 0; i < kThreads; ++i)
                threads[size_t(i)].SetFileInfo({sources.at(i)}, {shared.Path("a.jpg")}, i % 2 == 0);
            for (CCopyFileThread &thread : threads)
                thread.start();
            for (size_t i = 0; i < kThreads; ++i) {
                threads[i].wait();
                const QString target = threads[i].Results().constFirst().target;
                lost += FileBytes(target) == QByteArray::number(int(i)) ? 0 : 1;
            }
            QCOMPARE(shared.Files().size(), kThreads);
        }
        QCOMPARE(lost, 0);
    }
};

QTEST_GUILESS_MAIN(TestCopyFileThread)
#include "tst_copyfilethread.moc"
