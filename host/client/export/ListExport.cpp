// SPDX-License-Identifier: MIT
#include "export/ListExport.h"

#include <QtConcurrent/QtConcurrentRun>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QStorageInfo>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <atomic>
#include <chrono>

namespace Client {
namespace {

using namespace std::chrono_literals;

constexpr int kSliceRows = 2000; // some milliseconds of work
constexpr auto kWatchInterval = 100ms;
constexpr qint64 kFullDiskBytes = qint64{64} * 1024; // less is as good as full
// Packing a workbook takes this many times the time that its rows took, on any machine: both are
// work for the processor alone.
constexpr double kSavingShare = 1.3;
constexpr double kAlmostSaved = 0.99; // as far as a guess may go

} // namespace

struct CListExport::WorkerState
{
    std::atomic<int> rows{0};              // written by the worker
    std::atomic<bool> is_cancelled{false}; // written by the GUI thread
};

QString ExportedText(const ExportResult &result)
{
    return CListExport::tr("%Ln incident(s) exported to %1", nullptr, result.rows)
        .arg(QDir::toNativeSeparators(result.path));
}

CListExport::CListExport(IncidentRows rows, QWidget *window, QObject *parent)
    : QObject(parent), rows_(std::move(rows)), window_(window),
      state_(std::make_shared<WorkerState>())
{
    connect(&slices_, &QTimer::timeout, this, &CListExport::OnNextSlice);
    connect(&watch_, &QTimer::timeout, this, &CListExport::OnWatchWorker);
    connect(&worker_, &QFutureWatcher<Outcome>::finished, this, &CListExport::OnWorkerFinished);
}

CListExport::~CListExport()
{
    state_->is_cancelled = true;
}

void CListExport::Start(const QString &path)
{
    Q_ASSERT(path_.isEmpty());
    path_ = path;
    format_ = FindExportFormat(path);
    Q_ASSERT(format_);
    slices_.start(0ms);
}

void CListExport::Cancel()
{
    is_cancelled_ = true;
    state_->is_cancelled = true;
}

void CListExport::OnNextSlice()
{
    if (is_cancelled_) {
        Finish({});
        return;
    }
    if (format_->thread == WriterThread::Worker) {
        StartWorker();
        return;
    }
    if (!writer_ && !Open()) {
        Finish(target_.Error().isEmpty() ? WriteErrorText(writer_->Error()) : target_.Error());
        return;
    }
    const int total = rows_.rows.size();
    const int end = std::min(collected_ + kSliceRows, total);
    writer_->Append(collected_, end);
    collected_ = end;
    Q_EMIT SignalProgress(collected_, total);
    if (collected_ == total)
        Write();
}

void CListExport::OnWatchFile()
{
    Q_EMIT SignalWriting(QFileInfo(target_.TemporaryPath()).size());
}

bool CListExport::Open()
{
    if (!target_.Open(path_))
        return false;
    writer_ = format_->make_writer(window_);
    return writer_->Open(target_.TemporaryPath(), rows_);
}

void CListExport::Write()
{
    slices_.stop();
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, &CListExport::OnWatchFile);
    watch.start(kWatchInterval);
    const QPointer<CListExport> self(this);
    writer_->Write();
    if (!self)
        return;
    watch.stop();
    if (is_cancelled_) {
        Finish({});
        return;
    }
    if (!writer_->Close())
        Finish(WriteErrorText(writer_->Error()));
    else
        Finish(target_.Commit() ? QString() : target_.Error());
}

void CListExport::StartWorker()
{
    slices_.stop();
    if (!target_.Open(path_)) {
        Finish(target_.Error());
        return;
    }
    since_start_.start();
    watch_.start(kWatchInterval);
    worker_.setFuture(QtConcurrent::run(
        &pool_, [format = format_, rows = rows_, state = state_, path = target_.TemporaryPath()] {
            return RunWorker(*format, rows, path, *state);
        }));
}

CListExport::Outcome CListExport::RunWorker(const ExportFormat &format, const IncidentRows &rows,
                                            const QString &path, WorkerState &state)
{
    try {
        const std::unique_ptr<CRowWriter> writer = format.make_writer(nullptr);
        if (!writer->Open(path, rows))
            return {false, writer->Error()};
        const int total = rows.rows.size();
        for (int begin = 0; begin < total; begin += kSliceRows) {
            if (state.is_cancelled)
                return {};
            const int end = begin + std::min(kSliceRows, total - begin);
            writer->Append(begin, end);
            state.rows = end;
        }
        writer->Write();
        if (state.is_cancelled)
            return {};
        const bool is_written = writer->Close();
        return {is_written, writer->Error()};
    } catch (const std::bad_alloc &) {
        return {false, tr("There is not enough memory for this export.")};
    }
}

void CListExport::OnWatchWorker()
{
    const int rows = rows_.rows.size();
    const int saving = static_cast<int>(rows * kSavingShare);
    collected_ = state_->rows;
    if (collected_ < rows)
        Q_EMIT SignalProgress(collected_, rows + saving);
    if (collected_ < rows || rows == 0)
        return;
    // Nothing tells how far the saving is, but how long it takes is known well enough.
    if (rows_took_ms_ == 0)
        rows_took_ms_ = std::max(since_start_.elapsed(), qint64{1});
    const double expected_ms = static_cast<double>(rows_took_ms_) * kSavingShare;
    const double elapsed_ms = static_cast<double>(since_start_.elapsed() - rows_took_ms_);
    const double share = std::min(elapsed_ms / expected_ms, kAlmostSaved);
    Q_EMIT SignalProgress(rows + static_cast<int>(saving * share), rows + saving);
}

void CListExport::OnWorkerFinished()
{
    watch_.stop();
    collected_ = state_->rows;
    const Outcome outcome = worker_.result();
    if (is_cancelled_)
        Finish({});
    else if (!outcome.is_written)
        Finish(WriteErrorText(outcome.error));
    else
        Finish(target_.Commit() ? QString() : target_.Error());
}

QString CListExport::WriteErrorText(const QString &writers_error) const
{
    if (!writers_error.isEmpty())
        return writers_error;
    const QString shown = QDir::toNativeSeparators(path_);
    const QStorageInfo disk(QFileInfo(target_.TemporaryPath()).absolutePath());
    if (disk.isValid() && disk.bytesAvailable() < kFullDiskBytes)
        return tr("The disk is full. %1 was not written.").arg(shown);
    const QString reason = writer_ ? writer_->Reason() : QString();
    if (reason.isEmpty())
        return tr("Writing failed on the way. %1 was not written.").arg(shown);
    return tr("Writing failed: %1. %2 was not written.").arg(reason, shown);
}

void CListExport::Finish(const QString &error)
{
    slices_.stop();
    writer_.reset();
    target_.Discard();
    ExportResult result;
    result.is_done = error.isEmpty() && !is_cancelled_;
    result.error = error;
    result.path = path_;
    result.rows = collected_;
    Q_EMIT SignalFinished(result);
}

} // namespace Client
