// SPDX-License-Identifier: MIT
#include "Main.h"
#include "Pairs.h"

#include <Vantor/CCopyFileThread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <filesystem>

namespace {

constexpr qint64 kLargeBytes = qint64{1024} * 1024 * 1024;
constexpr int kSmallFiles = 10'000;
constexpr int kSmallBytes = 4096;
constexpr int kSameNames = 4'000;
constexpr int kEmptyFiles = 20'000;
// A bar is the least ratio of baseline over ours.
constexpr double kKernelBar = 1 / 1.25;
constexpr double kQtBar = 1 / 0.7;
constexpr double kSmallBar = 1 / 1.4;
constexpr double kSameNameBar = 1 / 3.0;
constexpr double kEmptyBar = 1 / 1.05; // as fast as one-byte files, but for the noise

// On a real disk, to measure the way through its file system, from a warm cache.
class CFolders
{
public:
    CFolders() : from_(QDir::tempPath() + QStringLiteral("/bench_copy-XXXXXX")) {}

    [[nodiscard]] QString From(const QString &name) const { return from_.filePath(name); }
    [[nodiscard]] QString To(const QString &name) const { return To() + QLatin1Char('/') + name; }
    [[nodiscard]] QString To() const { return from_.filePath(QStringLiteral("to")); }

    void Clear() const
    {
        QDir(To()).removeRecursively();
        QDir().mkpath(To());
    }

private:
    QTemporaryDir from_;
};

void Write(const QString &path, qint64 bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(path));
    const QByteArray block(int(qMin<qint64>(bytes, qint64{1024} * 1024)), 'x');
    for (qint64 done = 0; done < bytes; done += block.size())
        file.write(block);
}

bool CopyFiles(const QStringList &sources, const QStringList &targets)
{
    Vantor::CCopyFileThread thread;
    thread.SetFileInfo(sources, targets, false);
    thread.start();
    thread.wait();
    for (const Vantor::CopiedFile &file : thread.Results()) {
        if (!file.error.isEmpty())
            return false;
    }
    return true;
}

void CopyInKernel(const QString &source, const QString &target)
{
    const int from = open(qPrintable(source), O_RDONLY | O_CLOEXEC);
    const int to = open(qPrintable(target), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    while (copy_file_range(from, nullptr, to, nullptr, size_t{kLargeBytes}, 0) > 0) {
    }
    close(from);
    close(to);
}

void OneLargeFile(benchmark::State &state, const char *what, double bar,
                  void (*baseline)(const QString &, const QString &))
{
    const CFolders folders;
    const QString source = folders.From(QStringLiteral("large"));
    const QString theirs = folders.To(QStringLiteral("theirs.bin"));
    const QString ours = folders.To(QStringLiteral("ours.bin"));
    Write(source, kLargeBytes);
    folders.Clear();
    bool is_whole = true;
    // Each side begins without the files of the other: their pages and blocks would be in its way.
    Pairs::ComparePrepared(
        state, what, bar, [&] { folders.Clear(); }, [&] { baseline(source, theirs); },
        [&] { is_whole &= CopyFiles({source}, {ours}); });
    if (!is_whole || QFile(ours).size() != kLargeBytes)
        state.SkipWithError("not copied");
}

void LargeFileBesideTheKernel(benchmark::State &state)
{
    OneLargeFile(state, "copy_1_GB_of_copy_file_range", kKernelBar, CopyInKernel);
}

void LargeFileBesideQt(benchmark::State &state)
{
    OneLargeFile(state, "copy_1_GB_of_QFile", kQtBar,
                 [](const QString &source, const QString &target) { QFile::copy(source, target); });
}

QStringList SmallFiles(const CFolders &folders, int count, int bytes = kSmallBytes)
{
    QStringList sources;
    for (int i = 0; i < count; ++i) {
        sources.append(folders.From(QStringLiteral("%1-%2").arg(bytes).arg(i)));
        Write(sources.constLast(), bytes);
    }
    return sources;
}

QStringList Names(const CFolders &folders, int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.append(folders.To(QStringLiteral("evidence%1.jpg").arg(i)));
    return names;
}

void ManySmallFiles(benchmark::State &state)
{
    const CFolders folders;
    const QStringList sources = SmallFiles(folders, kSmallFiles);
    const QStringList targets = Names(folders, kSmallFiles);
    bool is_whole = true;
    Pairs::ComparePrepared(
        state, "copy_10000_small_files", kSmallBar, [&] { folders.Clear(); },
        [&] {
            for (int i = 0; i < kSmallFiles; ++i)
                std::filesystem::copy_file(sources.at(i).toStdString(),
                                           targets.at(i).toStdString());
        },
        [&] { is_whole &= CopyFiles(sources, targets); });
    if (!is_whole || QFile(targets.constLast()).size() != kSmallBytes)
        state.SkipWithError("not copied");
}

void ManySourcesToOneName(benchmark::State &state)
{
    const CFolders folders;
    const QStringList sources = SmallFiles(folders, kSameNames);
    const QStringList targets = Names(folders, kSameNames);
    QStringList same;
    for (int i = 0; i < kSameNames; ++i)
        same.append(folders.To(QStringLiteral("same.jpg")));
    bool is_whole = true;
    Pairs::ComparePrepared(
        state, "copy_4000_to_one_name", kSameNameBar, [&] { folders.Clear(); },
        [&] { is_whole &= CopyFiles(sources, targets); },
        [&] { is_whole &= CopyFiles(sources, same); });
    if (!is_whole || QDir(folders.To()).entryList(QDir::Files).size() != kSameNames)
        state.SkipWithError("not copied");
}

void EmptyFilesBesideOneByteFiles(benchmark::State &state)
{
    const CFolders folders;
    const QStringList one_byte = SmallFiles(folders, kEmptyFiles, 1);
    const QStringList empty = SmallFiles(folders, kEmptyFiles, 0);
    const QStringList targets = Names(folders, kEmptyFiles);
    bool is_whole = true;
    Pairs::ComparePrepared(
        state, "copy_20000_empty_files", kEmptyBar, [&] { folders.Clear(); },
        [&] { is_whole &= CopyFiles(one_byte, targets); },
        [&] { is_whole &= CopyFiles(empty, targets); });
    if (!is_whole || !QFile::exists(targets.constLast()))
        state.SkipWithError("not copied");
}

BENCHMARK(LargeFileBesideTheKernel)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(LargeFileBesideQt)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(ManySmallFiles)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(ManySourcesToOneName)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(EmptyFilesBesideOneByteFiles)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return RunBenchmarks<QCoreApplication>(argc, argv);
}
