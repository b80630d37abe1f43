// SPDX-License-Identifier: MIT
// File systems that lack something: files without a name, renaming that refuses, hard links. This
// program replaces the system's calls for itself.
#include "support/Test.h"

#include <Nim/Base/FileSystem.h>
#include <Vantor/CCopyFileThread>

#include <cstdarg>

// The dynamic linker finds these before the system's.
#define SEEN __attribute__((visibility("default")))

namespace FileSystem = Nim::Base::FileSystem;

namespace {

// The calls that fail now, with their errors.
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

// faults, expected
const Rows<QHash<QByteArray, int>, int> kPoorRows = {
    {"nothing is missing", {}, 0},
    {"the kernel cannot copy", {{"copy_file_range", EXDEV}}, 0},
    {"it can, but not all", {{"copy_file_range later", EINVAL}}, 0},
    {"a bad block", {{"copy_file_range later", EIO}}, -EIO},
    {"a full disk", {{"copy_file_range later", ENOSPC}}, -ENOSPC},
    {"a full disk, not by the kernel", {{"copy_file_range", ENOSYS}, {"write", ENOSPC}}, -ENOSPC},
    {"writes that are short", {{"copy_file_range", ENOSYS}, {"long write", 0}}, 0},
    {"files need a name", {{"O_TMPFILE", EOPNOTSUPP}}, 0},
    {"a full disk, named files",
     {{"O_TMPFILE", EOPNOTSUPP}, {"copy_file_range later", ENOSPC}},
     -ENOSPC},
    {"files without a name cannot get one", {{"linkat", ENOENT}}, 0},
    {"no room in the folder", {{"linkat", ENOSPC}}, -ENOSPC},
    {"no renaming that refuses", {{"O_TMPFILE", EISDIR}, {"renameat2", EINVAL}}, 0},
    {"and no hard links", {{"O_TMPFILE", EISDIR}, {"renameat2", EINVAL}, {"link", EPERM}}, 0},
};

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
    if (file > STDERR_FILENO && IsBroken("write"))
        return -1;
    return next(file, bytes, file > STDERR_FILENO && IsBroken("long write") ? size / 2 + 1 : size);
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

class TestFileCopy : public CGuardedTest
{
    Q_OBJECT

    void TearDown() override { broken.clear(); }

private Q_SLOTS:
    void poorFileSystemsAreServedToo_data() { AddRows(kPoorRows); }

    void poorFileSystemsAreServedToo()
    {
        const auto &[name, faults, expected] = FetchRow(kPoorRows);
        QByteArray bytes(20 * 1024 * 1024 + 1, 'x'); // more than one call copies
        for (int i = 0; i < bytes.size(); i += 999)
            bytes[i] = char(i / 999);
        const QByteArray source = folder_.Put("source", bytes).toLocal8Bit();
        const QByteArray old = folder_.Put("old", {}).toLocal8Bit();
        const QByteArray fresh = folder_.Path("fresh").toLocal8Bit();
        qint64 reported = 0;

        broken = faults;
        const int refused = FileSystem::CopyFileW(source.constData(), old.constData(), 1);
        const int made =
            FileSystem::CopyFileWithProgress(source.constData(), fresh.constData(), 1,
                                             [&](std::int64_t count) { reported += count; });
        const QByteArray old_bytes = FileBytes(old);
        const int replaced = FileSystem::CopyFileW(source.constData(), old.constData(), 0);
        broken.clear();

        QCOMPARE(refused, -EEXIST);
        QVERIFY(old_bytes.isEmpty());
        QCOMPARE(made, expected);
        QCOMPARE(replaced, expected);
        QCOMPARE(FileBytes(fresh), expected == 0 ? bytes : QByteArray());
        QCOMPARE(FileBytes(old), expected == 0 ? bytes : QByteArray());
        QVERIFY(expected != 0 || reported >= bytes.size());
        QCOMPARE(folder_.Files().size(), expected == 0 ? 3 : 2);
    }

    void numbersEndWhereEveryNameIsReportedAsTaken()
    {
        Vantor::CCopyFileThread thread;
        thread.SetFileInfo({folder_.Put("source", "x")}, {folder_.Path("a.jpg")}, false);
        broken = {{"linkat", EEXIST}};
        thread.run();
        QCOMPARE(thread.Results().constFirst().error, qt_error_string(EEXIST));
        QCOMPARE(folder_.Files(), QStringList("source"));
    }
};

QTEST_GUILESS_MAIN(TestFileCopy)
#include "tst_filecopy.moc"
