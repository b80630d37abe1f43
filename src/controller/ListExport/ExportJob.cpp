// SPDX-License-Identifier: MIT
#include "controller/ListExport/ExportJob.h"

#include "common/Guard.h"

#include <Nim/Base/FileSystem.h>
#include <Nim/Base/WholeFile.h>

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <new>

namespace Vantor {
namespace {

using Reason = ListExportResult::Reason;
using Nim::Base::CWholeFile;
namespace fs = std::filesystem;

constexpr std::size_t kMostSlices = 4;
constexpr int kSliceRows = 2000;
constexpr char kFunction[] = "Vantor::CListExport::Start";

Reason ReasonOf(CWholeFile::Obstacle obstacle)
{
    switch (obstacle) {
    case CWholeFile::Obstacle::None:
        return Reason::None;
    case CWholeFile::Obstacle::NoFolder:
        return Reason::NoFolder;
    case CWholeFile::Obstacle::DeadLink:
        return Reason::DeadLink;
    case CWholeFile::Obstacle::Folder:
        return Reason::Folder;
    case CWholeFile::Obstacle::Device:
        return Reason::Device;
    case CWholeFile::Obstacle::WriteProtected:
        return Reason::WriteProtected;
    case CWholeFile::Obstacle::FolderRefuses:
        return Reason::FolderRefuses;
    }
    return Reason::WriteFailed;
}

WriteFault BeginTarget(CWholeFile &file, const QString &path)
{
    const Reason reason = ReasonOf(file.Begin(QFile::encodeName(path).toStdString()));
    const bool is_full = reason == Reason::FolderRefuses && file.Errno() == ENOSPC;
    return {is_full ? Reason::DiskFull : reason, file.Errno()};
}

// Moves the built file to the temporary name beside the target: within one file system at once.
WriteFault MoveBeside(const QString &built, const CWholeFile &file)
{
    const QByteArray source = QFile::encodeName(built);
    std::error_code error;
    const fs::perms permissions = fs::status(file.TemporaryPath(), error).permissions();
    fs::rename(source.constData(), file.TemporaryPath(), error);
    if (!error) {
        fs::permissions(file.TemporaryPath(), permissions, error);
        return {};
    }
    const int result =
        Nim::Base::FileSystem::CopyFileW(source.constData(), file.TemporaryPath().c_str(), 0);
    if (result == 0) {
        fs::permissions(file.TemporaryPath(), permissions, error);
        return {};
    }
    return {Nim::Base::FileSystem::IsDiskFullError(-result) ? Reason::DiskFull
                                                            : Reason::WriteFailed,
            -result};
}

WriteFault NameFile(ExportJob &job)
{
    CWholeFile file;
    WriteFault fault = BeginTarget(file, job.path);
    if (!fault.IsNone() || !job.BeginNaming())
        return fault;
    fault = MoveBeside(job.built, file);
    if (fault.IsNone() && !file.Commit()) {
        fault = {Reason::WriteFailed, file.Errno()};
        // Kept for another try: it may have moved.
        if (!QFile::exists(job.built))
            QFile::rename(QFile::decodeName(file.TemporaryPath().c_str()), job.built);
    }
    return fault;
}

QString SystemText(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

// Without a `fault` the job is done, unless it was cancelled. `words` is the text of the exception.
void EndJob(ExportJob &job, const WriteFault &fault, const QString &words)
{
    using End = ListExportResult::End;
    ListExportResult &result = job.result;
    result.path = job.path;
    result.rows = job.rows;
    result.end = job.IsCancelled() ? End::Cancelled : fault.IsNone() ? End::Done : End::Failed;
    if (result.end == End::Failed) {
        result.reason = fault.reason;
        result.system_text = fault.error != 0 ? SystemText(fault.error) : words;
    }
    result.can_save_again = result.end == End::Failed && QFile::exists(job.built);
    if (!result.can_save_again) {
        job.built.clear();
        job.folder.reset();
    }
    job.has_ended = true;
}

bool HasRow(const ExportJob &job, int row)
{
    return job.stream ? job.stream->HasRow(row) : row < job.source->RowCount();
}

RowSlice ReadSource(const ExportJob &job, int begin)
{
    RowSlice slice;
    const int end = begin + kSliceRows;
    slice.cells.reserve(kSliceRows * job.columns.size());
    for (int row = begin; row < end && !job.IsCancelled() && HasRow(job, row); ++row) {
        for (const int column : job.columns)
            slice.cells.append(job.source->Cell(row, column));
        ++slice.rows;
    }
    return slice;
}

void ReadTitles(ExportJob &job)
{
    const int count = job.source->ColumnCount();
    QVector<int> columns;
    for (const int column : qAsConst(job.columns)) {
        if (column >= 0 && column < count)
            columns.append(column);
    }
    for (int column = 0; job.columns.isEmpty() && column < count; ++column)
        columns.append(column);
    job.columns = columns;
    for (const int column : qAsConst(job.columns)) {
        job.titles.titles.append(job.source->Title(column));
        job.titles.kinds.append(job.source->Kind(column));
        job.titles.width_chars.append(job.source->WidthChars(column));
    }
}

WriteFault AppendAll(ExportJob &job, CRowWriter &writer)
{
    int rows = 0;
    while (!job.IsCancelled() && !job.is_changed && !job.has_thrown) {
        std::optional<RowSlice> slice;
        if (!job.source)
            slice = job.slices.Take();
        else
            slice = ReadSource(job, rows);
        if (!slice || slice->rows == 0)
            break;
        const WriteFault fault = writer.Append(*slice);
        if (!fault.IsNone())
            return fault;
        rows += slice->rows;
        job.rows = rows;
    }
    if (job.has_thrown)
        return {Reason::ListFailed, 0};
    job.is_read = true;
    return {job.is_changed ? Reason::ListChanged : Reason::None, 0};
}

WriteFault Build(ExportJob &job)
{
    const QString parent = job.temporary_folder.isEmpty() ? QDir::tempPath() : job.temporary_folder;
    job.folder = std::make_unique<QTemporaryDir>(parent + QStringLiteral("/vantor-export-XXXXXX"));
    if (!job.folder->isValid())
        return {Reason::TemporaryDiskFull, errno};
    const bool is_csv = job.format == ListExportFormat::Csv;
    const QString built =
        job.folder->filePath(is_csv ? QStringLiteral("list.csv") : QStringLiteral("list.xlsx"));
    const std::unique_ptr<CRowWriter> writer =
        is_csv ? MakeCsvRowWriter() : MakeXlsxRowWriter(job.look, job.folder->path());
    WriteFault fault = writer->Open(built, job.titles);
    if (fault.IsNone())
        fault = AppendAll(job, *writer);
    if (fault.IsNone() && !job.IsCancelled()) {
        fault = writer->Close();
        job.result.notes = writer->Notes();
        if (fault.IsNone())
            job.built = built;
    }
    // Here a full disk is that of the temporary folder.
    if (fault.reason == Reason::DiskFull)
        fault.reason = Reason::TemporaryDiskFull;
    return fault;
}

WriteFault Write(ExportJob &job)
{
    if (job.source)
        ReadTitles(job);
    if (job.titles.titles.isEmpty())
        return {Reason::NoColumns, 0};
    WriteFault fault;
    {
        CWholeFile probe; // an obstacle shows before the long work
        fault = BeginTarget(probe, job.path);
    }
    if (fault.IsNone())
        fault = Build(job);
    return fault.IsNone() && !job.IsCancelled() ? NameFile(job) : fault;
}

// Runs `write`. It throws when memory runs out, or when the host's source or look throws.
template <class Body> void RunJob(ExportJob &job, Body write)
{
    WriteFault fault{Reason::ListFailed, 0};
    QString words;
    try {
        fault = write();
    } catch (const std::bad_alloc &) {
        fault = {Reason::NoMemory, ENOMEM};
    } catch (const std::exception &failure) {
        words = QString::fromUtf8(failure.what());
        if (!job.IsCancelled()) // a source may throw because it is stopped
            VANTOR_LOG(kFunction, 5, VANTOR_LOG_WARNING, "Stopped by an exception: %s",
                       failure.what());
    } catch (...) {
        VANTOR_LOG(kFunction, 5, VANTOR_LOG_WARNING, "Stopped by an unknown exception.");
    }
    EndJob(job, fault, words);
}

} // namespace

bool CSliceQueue::HasRoom() const
{
    const std::lock_guard<std::mutex> lock(mutex_);
    return slices_.size() < kMostSlices;
}

void CSliceQueue::Put(RowSlice slice)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    slices_.push_back(std::move(slice));
    changed_.notify_one();
}

void CSliceQueue::End()
{
    const std::lock_guard<std::mutex> lock(mutex_);
    has_ended_ = true;
    changed_.notify_one();
}

std::optional<RowSlice> CSliceQueue::Take()
{
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait(lock, [this] { return has_ended_ || !slices_.empty(); });
    if (slices_.empty())
        return std::nullopt;
    RowSlice slice = std::move(slices_.front());
    slices_.pop_front();
    return slice;
}

bool ExportJob::Cancel()
{
    Step running = Step::Running;
    const bool is_cancelled = step.compare_exchange_strong(running, Step::Cancelled);
    slices.End();
    return is_cancelled || running == Step::Cancelled;
}

bool ExportJob::BeginNaming()
{
    Step running = Step::Running;
    return step.compare_exchange_strong(running, Step::Naming);
}

void WriteList(ExportJob &job) noexcept
{
    RunJob(job, [&job] { return Write(job); });
}

void SaveBuilt(ExportJob &job) noexcept
{
    RunJob(job, [&job] { return NameFile(job); });
}

} // namespace Vantor
