// SPDX-License-Identifier: MIT
#include "app/Batch.h"

#include "app/Console.h"
#include "app/StopSignals.h"
#include "export/TimeLeft.h"
#include "list/CsvFile.h"
#include "list/ListModel.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QLocale>

namespace Client {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Batch)
};

QString ProgressText(const QString &percent, const QString &time_left)
{
    if (time_left.isEmpty())
        return Texts::tr("Exporting: %1").arg(percent);
    return Texts::tr("Exporting: %1, %2").arg(percent, time_left);
}

// `stop_status` becomes the exit status of a signal that ended the export.
ExportResult WaitForExport(const IncidentRows &rows, const QString &path, int &stop_status)
{
    ExportResult result;
    CProgressLine line;
    QEventLoop loop;
    CListExport job(rows, nullptr);
    QElapsedTimer since_start;
    since_start.start();
    CTimeLeft estimate;
    QObject::connect(&job, &CListExport::SignalProgress, &loop, [&](int done, int total) {
        estimate.Note(since_start.elapsed(), total > 0 ? double(done) / total : 1);
        line.Show(ProgressText(Percent(done, total), TimeLeftText(estimate.Seconds())));
    });
    QObject::connect(&job, &CListExport::SignalWriting, &loop, [&line](qint64 bytes) {
        line.Show(Texts::tr("Writing: %1").arg(QLocale().formattedDataSize(bytes)));
    });
    QObject::connect(&job, &CListExport::SignalFinished, &loop,
                     [&loop, &result](const ExportResult &outcome) {
                         result = outcome;
                         loop.quit();
                     });
    const CStopSignals stop_signals;
    QObject::connect(&stop_signals, &CStopSignals::SignalStop, &job, &CListExport::Cancel);
    job.Start(path);
    loop.exec();
    stop_status = stop_signals.Status();
    return result;
}

} // namespace

IncidentListPtr LoadList(const Options &options)
{
    const QString path = options.ListPath();
    ReadResult result;
    {
        CProgressLine line;
        const QString name = options.ListName();
        result = ReadCsvFile(path, [&line, &name](qint64 done, qint64 total) {
            line.Show(Texts::tr("Reading %1: %2").arg(name, Percent(done, total)));
            return true;
        });
    }
    if (result.list && options.rows > 0) {
        result.list = result.list->Resized(options.rows);
        if (!result.list)
            result.error =
                Texts::tr("%1 has no row to repeat.").arg(QDir::toNativeSeparators(path));
    }
    const QString message = result.list ? result.warning : result.error;
    if (!message.isEmpty())
        PrintError(message);
    return result.list;
}

int ExportRows(const IncidentRows &rows, const QString &path)
{
    int stop_status = kExitDone;
    const ExportResult result = WaitForExport(rows, path, stop_status);
    if (stop_status != kExitDone)
        return stop_status;
    if (!result.is_done) {
        PrintError(result.error);
        return kExitFileFailed;
    }
    PrintLine(ExportedText(result));
    return kExitDone;
}

int RunExport(const Options &options, const IncidentListPtr &list)
{
    CListModel model;
    model.SetList(list);
    model.SetFilter(options.filter.trimmed());
    return ExportRows(model.Rows(), options.export_path);
}

} // namespace Client
