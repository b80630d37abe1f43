// SPDX-License-Identifier: MIT
// File systems that cannot do what ours can: without files that have no name, without renaming that
// refuses, without hard links. The system's calls are stood in for, for this program only.
#include "support/Files.h"
#include "support/TestGuard.h"

#include <Nim/Base/FileSystem.h>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <QtCore/QDir>
#include <QtCore/QSet>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <cerrno>
#include <cstdarg>

// Before what the libraries would call.
#define SEEN __attribute__((visibility("default")))

namespace FileSystem = Nim::Base::FileSystem;

namespace {

// The calls that fail now, with what each says.
QHash<QByteArray, int> broken;

bool IsBroken(const char *call)
{
    const auto found = broken.constFind(call);
    if (found == broken.constEnd())
        return false;
    errno = *found;
    return true;
}

template <class Call> Call Next(Call, const char *name)
{
    return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name));
}

} // namespace

// The system's headers name the arguments in their own way.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

SEEN int open(const char *path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const auto mode = va_arg(rest, mode_t);
    va_end(rest);
    if ((flags & O_TMPFILE) == O_TMPFILE && IsBroken("O_TMPFILE"))
        return -1;
    static const auto next = Next(&open, "open");
    return next(path, flags, mode);
}

SEEN ssize_t copy_file_range(int from, off64_t *from_at, int to, off64_t *to_at, size_t size,
                             unsigned flags)
{
    static const auto next = Next(&copy_file_range, "copy_file_range");
    if (lseek(from, 0, SEEK_CUR) > 0 && IsBroken("copy_file_range later"))
        return -1;
    return IsBroken("copy_file_range") ? -1 : next(from, from_at, to, to_at, size, flags);
}

SEEN int renameat2(int from_folder, const char *from, int to_folder, const char *to, unsigned flags)
{
    static const auto next = Next(&renameat2, "renameat2");
    return IsBroken("renameat2") ? -1 : next(from_folder, from, to_folder, to, flags);
}

SEEN int link(const char *from, const char *to) noexcept
{
    static const auto next = Next(&link, "link");
    return IsBroken("link") ? -1 : next(from, to);
}

SEEN int linkat(int from_folder, const char *from, int to_folder, const char *to,
                int flags) noexcept
{
    static const auto next = Next(&linkat, "linkat");
    return IsBroken("linkat") ? -1 : next(from_folder, from, to_folder, to, flags);
}

SEEN ssize_t write(int file, const void *bytes, size_t size)
{
    static const auto next = Next(&write, "write");
    return file > STDERR_FILENO && IsBroken("write") ? -1 : next(file, bytes, size);
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

using Faults = QHash<QByteArray, int>;
Q_DECLARE_METATYPE(Faults)

class TestFileCopy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard_.Begin(); }

    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void poorFileSystemsAreServedToo_data()
    {
        QTest::addColumn<Faults>("faults");
        QTest::addColumn<int>("expected");
        QTest::newRow("nothing is missing") << Faults() << 0;
        QTest::newRow("the kernel cannot copy") << Faults{{"copy_file_range", EXDEV}} << 0;
        QTest::newRow("it can, but not all") << Faults{{"copy_file_range later", EINVAL}} << 0;
        QTest::newRow("a bad block") << Faults{{"copy_file_range later", EIO}} << -EIO;
        QTest::newRow("a full disk") << Faults{{"copy_file_range later", ENOSPC}} << -ENOSPC;
        QTest::newRow("a full disk, not by the kernel")
            << Faults{{"copy_file_range", ENOSYS}, {"write", ENOSPC}} << -ENOSPC;
        QTest::newRow("files need a name") << Faults{{"O_TMPFILE", EOPNOTSUPP}} << 0;
        QTest::newRow("a full disk where files need a name")
            << Faults{{"O_TMPFILE", EOPNOTSUPP}, {"copy_file_range later", ENOSPC}} << -ENOSPC;
        QTest::newRow("files without a name cannot get one") << Faults{{"linkat", ENOENT}} << 0;
        QTest::newRow("no room in the folder") << Faults{{"linkat", ENOSPC}} << -ENOSPC;
        QTest::newRow("no renaming that refuses")
            << Faults{{"O_TMPFILE", EISDIR}, {"renameat2", EINVAL}} << 0;
        QTest::newRow("and no hard links")
            << Faults{{"O_TMPFILE", EISDIR}, {"renameat2", EINVAL}, {"link", EPERM}} << 0;
    }

    void poorFileSystemsAreServedToo()
    {
        QFETCH(Faults, faults);
        QFETCH(int, expected);
        const QByteArray bytes(20 * 1024 * 1024 + 1, 'x'); // more than one call copies
        const QTemporaryDir folder;
        const QByteArray source = folder.filePath("source").toLocal8Bit();
        const QByteArray old = folder.filePath("old").toLocal8Bit();
        const QByteArray fresh = folder.filePath("fresh").toLocal8Bit();
        QFile source_file(source);
        QVERIFY(source_file.open(QIODevice::WriteOnly) && source_file.write(bytes) == bytes.size());
        source_file.close();
        QVERIFY(QFile(old).open(QIODevice::WriteOnly));
        qint64 told = 0;

        broken = faults;
        const int refused = FileSystem::CopyFileW(source.constData(), old.constData(), 1);
        const int made =
            FileSystem::CopyFileWithProgress(source.constData(), fresh.constData(), 1,
                                             [&told](std::int64_t count) { told += count; });
        const QByteArray old_bytes = FileBytes(old);
        const int replaced = FileSystem::CopyFileW(source.constData(), old.constData(), 0);
        broken.clear();

        QCOMPARE(refused, -EEXIST);
        QVERIFY(old_bytes.isEmpty());
        QCOMPARE(made, expected);
        QCOMPARE(replaced, expected);
        QCOMPARE(FileBytes(fresh), expected == 0 ? bytes : QByteArray());
        QCOMPARE(FileBytes(old), expected == 0 ? bytes : QByteArray());
        QVERIFY(expected != 0 || told >= bytes.size());
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(),
                 expected == 0 ? 3 : 2);
    }

private:
    CTestGuard guard_;
};

QTEST_GUILESS_MAIN(TestFileCopy)
#include "tst_filecopy.moc"
