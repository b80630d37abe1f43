// SPDX-License-Identifier: MIT
#include "ListExport.h"

#include <QtCore/QAbstractTableModel>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QStorageInfo>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <chrono>

namespace Client {
namespace {

using namespace std::chrono_literals;

constexpr int kSliceRows = 2000; // some milliseconds of work
constexpr auto kWatchInterval = 100ms;
constexpr qint64 kFullDiskBytes = qint64{64} * 1024; // less is as good as full

// A few of the rows, as the model the library's writers take.
class CSlice : public QAbstractTableModel // clazy:exclude=ctor-missing-parent-argument
{
public:
    CSlice(const IncidentRows &rows, int begin, int end) : rows_(rows), begin_(begin), end_(end) {}

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : end_ - begin_;
    }
    int columnCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : rows_.list->ColumnCount();
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        return rows_.list->Text(rows_.rows.at(begin_ + index.row()), index.column());
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
            return {};
        return rows_.list->Title(section);
    }

private:
    const IncidentRows &rows_;
    const int begin_;
    const int end_;
};

} // namespace

QString ExportedText(const ExportResult &result)
{
    return CListExport::tr("%Ln incident(s) exported to %1", nullptr, result.rows)
        .arg(QDir::toNativeSeparators(result.path));
}

CListExport::CListExport(IncidentRows rows, QWidget *window, QObject *parent)
    : QObject(parent), rows_(std::move(rows)), window_(window)
{
    connect(&slices_, &QTimer::timeout, this, &CListExport::OnNextSlice);
}

CListExport::~CListExport() = default;

void CListExport::Start(const QString &path)
{
    Q_ASSERT(path_.isEmpty());
    path_ = path;
    slices_.start(0ms);
}

void CListExport::Cancel()
{
    is_cancelled_ = true;
}

void CListExport::OnNextSlice()
{
    if (is_cancelled_) {
        Finish({});
        return;
    }
    if (!writer_ && !Open()) {
        Finish(target_.Error().isEmpty() ? WriteErrorText() : target_.Error());
        return;
    }
    const int total = rows_.rows.size();
    const int end = std::min(collected_ + kSliceRows, total);
    CSlice slice(rows_, collected_, end);
    writer_->Collect(slice);
    collected_ = end;
    Q_EMIT SignalCollected(collected_, total);
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
    const ExportFormat *const format = FindExportFormat(path_);
    Q_ASSERT(format);
    writer_ = format->make_writer(window_);
    return writer_->Open(target_.TemporaryPath());
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
        Finish(WriteErrorText());
    else
        Finish(target_.Commit() ? QString() : target_.Error());
}

QString CListExport::WriteErrorText() const
{
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
