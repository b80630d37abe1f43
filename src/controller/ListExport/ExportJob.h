// SPDX-License-Identifier: MIT
#pragma once

#include "controller/ListExport/RowStream.h"
#include "controller/ListExport/RowWriter.h"

#include <QtCore/QTemporaryDir>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>

namespace Vantor {

// The rows that the GUI thread has read and the worker has not taken yet: a few slices at most.
class CSliceQueue
{
public:
    // GUI thread.
    [[nodiscard]] bool HasRoom() const;
    void Put(RowSlice slice);
    // No more slices come.
    void End();
    // Worker: waits for the next slice; empty after the end.
    [[nodiscard]] std::optional<RowSlice> Take();

private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<RowSlice> slices_;
    bool has_ended_ = false;
};

// What the worker of one export and its CListExport share; it outlives both.
//
// Cancelling and giving the file its name exclude each other: the thread that first moves `step`
// out of Running has won.
struct ExportJob
{
    enum class Step { Running, Naming, Cancelled };

    // Set before the worker starts.
    QString path;
    ListExportFormat format = ListExportFormat::Csv;
    ListExportLook look;
    ExportTitles titles;
    QVector<int> columns;                     // of the source
    std::shared_ptr<const CRowSource> source; // null: rows come through `slices`
    const CRowStream *stream = nullptr;       // `source`, if it is one
    QString temporary_folder;

    CSliceQueue slices;
    std::atomic<Step> step{Step::Running};
    std::atomic<int> rows{0};              // written so far; by the worker
    std::atomic<bool> is_read{false};      // by the worker, behind the last row
    std::atomic<bool> has_ended{false};    // by the worker, after `result`
    std::atomic<bool> is_changed{false};   // the list changed while it was read; by the GUI thread
    std::atomic<bool> has_thrown{false};   // the model threw; by the GUI thread
    ListExportResult result;               // by the worker
    std::unique_ptr<QTemporaryDir> folder; // holds `built`; the worker's until has_ended
    QString built;                         // the whole file, not named yet; may be empty

    [[nodiscard]] bool IsCancelled() const { return step == Step::Cancelled; }
    // False when the file gets its name already.
    bool Cancel();
    // Worker: whether the file may get its name.
    [[nodiscard]] bool BeginNaming();
};

// Both run on a worker thread and never throw. Write() builds the file and saves it, Save() saves
// what an earlier job has built.
void WriteList(ExportJob &job) noexcept;
void SaveBuilt(ExportJob &job) noexcept;

} // namespace Vantor
