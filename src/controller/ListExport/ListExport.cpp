// SPDX-License-Identifier: MIT
#include "controller/ListExport/ListExport.h"

#include "common/Guard.h"
#include "controller/ListExport/ExportJob.h"
#include "controller/ListExport/ExportWorkers.h"

#include <QtConcurrent/QtConcurrentRun>
#include <QtCore/QAbstractItemModel>
#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableView>
#include <QtWidgets/QTreeView>

#include <algorithm>
#include <chrono>

namespace Vantor {
namespace {

using namespace std::chrono_literals;
using Reason = ListExportResult::Reason;

constexpr auto kTick = 10ms;
constexpr qint64 kBudgetNs = 6'000'000; // of a tick, for reading: a frame has 16 ms
constexpr int kSliceRows = 2000;
constexpr int kRowsPerLook = 8; // rows between two looks at the clock
// Packing a workbook takes this many times the time that its rows took, on any machine: both are
// work for the processor alone.
constexpr double kSavingShare = 1.3;
constexpr double kMostSaving = 1e9;   // rows
constexpr double kAlmostSaved = 0.99; // as far as a guess may go

constexpr struct
{
    CListExport::Format format;
    const char *suffix;
} kSuffixes[] = {{CListExport::Format::Csv, ".csv"}, {CListExport::Format::Xlsx, ".xlsx"}};

// Ends a job that no worker has begun.
void Fail(ExportJob &job, Reason reason)
{
    job.result.reason = reason;
    job.result.path = job.path;
    job.has_ended = true;
}

const QHeaderView *HeaderOf(const QAbstractItemView *view)
{
    if (const auto *const table = qobject_cast<const QTableView *>(view))
        return table->horizontalHeader();
    const auto *const tree = qobject_cast<const QTreeView *>(view);
    return tree ? tree->header() : nullptr;
}

QVector<int> VisibleColumns(const QHeaderView &header)
{
    QVector<int> columns;
    for (int place = 0; place < header.count(); ++place) {
        const int column = header.logicalIndex(place);
        if (!header.isSectionHidden(column))
            columns.append(column);
    }
    return columns;
}

} // namespace

struct CListExportDataPtr
{
    // The source of the next export.
    QPointer<QAbstractItemModel> ptr_model_;
    std::shared_ptr<const CRowSource> ptr_source_;
    QVector<int> vec_columns_;
    ListExportLook look_;
    QString str_temporary_folder_;

    // The export that runs, or the last one if it can be saved again; else null.
    std::shared_ptr<ExportJob> ptr_job_;
    bool b_running_ = false;
    QTimer tick_;

    // How far it is.
    QPointer<QAbstractItemModel> ptr_watched_; // model of this export
    QPointer<QAbstractItemModel> ptr_read_;    // the same until all its rows are read
    int total_ = 0;                            // rows
    int read_ = 0;                             // rows handed to the worker
    QElapsedTimer since_start_;
    qint64 rows_took_ms_ = 0; // 0 until all rows are written

    void ReadSlices();
    [[nodiscard]] RowSlice ReadSlice(const QElapsedTimer &clock);
    void FollowStream();
    [[nodiscard]] int SavingRows() const;
    [[nodiscard]] int Done();
};

// Reads rows of the model until the time of the tick is used up or enough of them wait.
void CListExportDataPtr::ReadSlices()
{
    QElapsedTimer clock;
    clock.start();
    ExportJob &job = *ptr_job_;
    const bool is_done = RunGuarded("Vantor::CListExport::OnTick", [&] {
        while (ptr_read_ && read_ < total_ && job.slices.HasRoom()
               && clock.nsecsElapsed() < kBudgetNs)
            job.slices.Put(ReadSlice(clock));
    });
    job.has_thrown = job.has_thrown || !is_done;
    if (is_done && ptr_read_ && read_ < total_)
        return;
    ptr_read_.clear();
    job.slices.End();
}

RowSlice CListExportDataPtr::ReadSlice(const QElapsedTimer &clock)
{
    RowSlice slice;
    const QVector<int> &columns = ptr_job_->columns;
    const int most = std::min(kSliceRows, total_ - read_);
    while (slice.rows < most && ptr_read_) { // data() may delete its model
        if (slice.rows % kRowsPerLook == 0 && slice.rows > 0 && clock.nsecsElapsed() >= kBudgetNs)
            break;
        for (int i = 0; i < columns.size() && ptr_read_; ++i)
            slice.cells.append(ptr_read_->index(read_, columns.at(i)).data(Qt::DisplayRole));
        slice.cells.resize((slice.rows + 1) * columns.size());
        ++slice.rows;
        ++read_;
    }
    return slice;
}

// The number of rows was a guess, or not known.
void CListExportDataPtr::FollowStream()
{
    const bool is_read = ptr_job_->is_read;
    const int rows = ptr_job_->rows;
    if (is_read)
        total_ = rows;
    else if (total_ > 0)
        total_ = std::max(total_, rows + 1);
}

int CListExportDataPtr::SavingRows() const
{
    return ptr_job_->format == CListExport::Format::Xlsx
               ? static_cast<int>(std::min(total_ * kSavingShare, kMostSaving))
               : 0;
}

// Rows that are written, and the part of the saving share that is probably over.
int CListExportDataPtr::Done()
{
    const int rows = ptr_job_->rows;
    if (rows < total_ || total_ == 0)
        return rows;
    // The saving reports no progress, but its duration can be estimated well enough.
    if (rows_took_ms_ == 0)
        rows_took_ms_ = std::max(since_start_.elapsed(), qint64{1});
    const double expected_ms = static_cast<double>(rows_took_ms_) * kSavingShare;
    const auto elapsed_ms = static_cast<double>(since_start_.elapsed() - rows_took_ms_);
    return rows + static_cast<int>(SavingRows() * std::min(elapsed_ms / expected_ms, kAlmostSaved));
}

CListExport::CListExport(QObject *parent)
    : QObject(parent), d_ptr_(std::make_unique<CListExportDataPtr>())
{
    qRegisterMetaType<ListExportResult>();
    d_ptr_->tick_.setInterval(kTick);
    connect(&d_ptr_->tick_, &QTimer::timeout, this, &CListExport::OnTick);
}

CListExport::~CListExport()
{
    Cancel();
}

void CListExport::SetModel(QAbstractItemModel *model)
{
    d_ptr_->ptr_model_ = model;
    d_ptr_->ptr_source_.reset();
    d_ptr_->vec_columns_.clear();
}

void CListExport::SetView(const QAbstractItemView *view)
{
    SetModel(view ? view->model() : nullptr);
    if (const QHeaderView *const header = HeaderOf(view))
        d_ptr_->vec_columns_ = VisibleColumns(*header);
}

void CListExport::SetSource(std::shared_ptr<const CRowSource> source)
{
    SetModel(nullptr);
    d_ptr_->ptr_source_ = std::move(source);
}

void CListExport::SetColumns(const QVector<int> &columns)
{
    d_ptr_->vec_columns_ = columns;
}

QVector<int> CListExport::Columns() const
{
    return d_ptr_->vec_columns_;
}

void CListExport::SetLook(const ListExportLook &look)
{
    d_ptr_->look_ = look;
}

void CListExport::SetTemporaryFolder(const QString &folder)
{
    d_ptr_->str_temporary_folder_ = folder;
}

QStringList CListExport::Suffixes()
{
    QStringList suffixes;
    for (const auto &known : kSuffixes)
        suffixes.append(QLatin1String(known.suffix));
    return suffixes;
}

CListExport::Format CListExport::FormatOf(const QString &path)
{
    for (const auto &known : kSuffixes) {
        if (path.endsWith(QLatin1String(known.suffix), Qt::CaseInsensitive))
            return known.format;
    }
    return Format::BySuffix;
}

bool CListExport::Start(const QString &path, Format format)
{
    if (d_ptr_->b_running_)
        return false;
    auto job = std::make_shared<ExportJob>();
    job->path = path;
    job->format = format == Format::BySuffix ? FormatOf(path) : format;
    job->look = d_ptr_->look_;
    job->source = d_ptr_->ptr_source_;
    job->columns = d_ptr_->vec_columns_;
    job->temporary_folder = d_ptr_->str_temporary_folder_;
    d_ptr_->ptr_job_ = job;
    d_ptr_->total_ = 0;
    Launch([this, job] {
        if (job->format == Format::BySuffix) {
            Fail(*job, Reason::UnknownFormat);
            return;
        }
        job->stream = dynamic_cast<const CRowStream *>(job->source.get());
        if (job->source)
            d_ptr_->total_ = job->source->RowCount();
        else
            PrepareModel();
        QtConcurrent::run(&ExportWorkers(), [job] { WriteList(*job); });
    });
    return true;
}

bool CListExport::SaveAgain(const QString &path)
{
    if (d_ptr_->b_running_ || !d_ptr_->ptr_job_)
        return false;
    auto job = std::make_shared<ExportJob>();
    ExportJob &built = *d_ptr_->ptr_job_;
    job->path = path;
    job->format = built.format;
    job->folder = std::move(built.folder);
    job->built = built.built;
    job->rows = int(built.rows);
    job->result.notes = built.result.notes;
    d_ptr_->ptr_job_ = job;
    Launch([job] { QtConcurrent::run(&ExportWorkers(), [job] { SaveBuilt(*job); }); });
    return true;
}

void CListExport::Launch(const std::function<void()> &prepare)
{
    d_ptr_->b_running_ = true;
    d_ptr_->read_ = 0;
    d_ptr_->rows_took_ms_ = 0;
    d_ptr_->since_start_.start();
    const std::shared_ptr<ExportJob> job = d_ptr_->ptr_job_;
    if (!RunGuarded("Vantor::CListExport::Start", prepare))
        Fail(*job, Reason::ListFailed);
    d_ptr_->tick_.start();
}

// Takes the titles and watches the model until its rows are read.
void CListExport::PrepareModel()
{
    ExportJob &job = *d_ptr_->ptr_job_;
    QAbstractItemModel *const model = d_ptr_->ptr_model_;
    if (!model) {
        job.slices.End();
        return;
    }
    const int count = model->columnCount();
    QVector<int> columns;
    for (int column = 0; job.columns.isEmpty() && column < count; ++column)
        columns.append(column);
    for (const int column : qAsConst(job.columns)) {
        if (column >= 0 && column < count)
            columns.append(column);
    }
    job.columns = columns;
    for (const int column : qAsConst(columns))
        job.titles.titles.append(
            model->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    job.titles.kinds.fill(ExportColumnKind::ByCell, columns.size());
    job.titles.width_chars.fill(0, columns.size());
    d_ptr_->total_ = model->rowCount();
    d_ptr_->ptr_watched_ = model;
    d_ptr_->ptr_read_ = model;
    using Model = QAbstractItemModel;
    connect(model, &Model::rowsInserted, this, &CListExport::OnListChanged);
    connect(model, &Model::rowsRemoved, this, &CListExport::OnListChanged);
    connect(model, &Model::rowsMoved, this, &CListExport::OnListChanged);
    connect(model, &Model::columnsInserted, this, &CListExport::OnListChanged);
    connect(model, &Model::columnsRemoved, this, &CListExport::OnListChanged);
    connect(model, &Model::columnsMoved, this, &CListExport::OnListChanged);
    connect(model, &Model::layoutChanged, this, &CListExport::OnListChanged);
    connect(model, &Model::modelReset, this, &CListExport::OnListChanged);
    connect(model, &QObject::destroyed, this, &CListExport::OnListChanged);
}

void CListExport::OnListChanged()
{
    if (!d_ptr_->b_running_ || d_ptr_->read_ >= d_ptr_->total_)
        return;
    d_ptr_->ptr_job_->is_changed = true;
    d_ptr_->ptr_read_.clear();
    d_ptr_->ptr_job_->slices.End();
}

void CListExport::Cancel()
{
    if (d_ptr_->b_running_)
        d_ptr_->ptr_job_->Cancel();
}

bool CListExport::IsRunning() const
{
    return d_ptr_->b_running_;
}

void CListExport::OnTick()
{
    const std::shared_ptr<ExportJob> job = d_ptr_->ptr_job_;
    if (job->IsCancelled()) { // the worker removes its file itself
        ListExportResult result;
        result.end = ListExportResult::End::Cancelled;
        result.path = job->path;
        result.rows = job->rows;
        Finish(result);
        return;
    }
    if (job->has_ended) {
        Finish(job->result);
        return;
    }
    if (!job->source)
        d_ptr_->ReadSlices();
    if (job->stream)
        d_ptr_->FollowStream();
    if (d_ptr_->total_ > 0 || job->stream)
        Q_EMIT SignalProgress(d_ptr_->Done(), d_ptr_->total_ + d_ptr_->SavingRows());
}

void CListExport::Finish(const ListExportResult &result)
{
    d_ptr_->tick_.stop();
    d_ptr_->b_running_ = false;
    d_ptr_->ptr_read_.clear();
    if (d_ptr_->ptr_watched_)
        d_ptr_->ptr_watched_->disconnect(this);
    if (!result.can_save_again)
        d_ptr_->ptr_job_.reset();
    const ListExportResult kept = result; // slots may delete this
    Q_EMIT SignalFinished(kept);
}

} // namespace Vantor
