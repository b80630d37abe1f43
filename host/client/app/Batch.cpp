// SPDX-License-Identifier: MIT
#include "app/Batch.h"

#include "app/Console.h"
#include "app/StopSignals.h"
#include "export/ExportText.h"
#include "export/IncidentExport.h"
#include "export/TimeLeft.h"

#include <Vantor/CListExport>

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
Vantor::ListExportResult WaitForExport(const IncidentRows &rows, const QString &path,
                                       int &stop_status)
{
    using Vantor::CListExport;
    Vantor::ListExportResult result;
    const COwnErrors only_ours; // libraries print what goes wrong, too
    CProgressLine line;
    QEventLoop loop;
    CListExport job;
    SetIncidents(job, rows);
    QElapsedTimer since_start;
    since_start.start();
    CTimeLeft estimate;
    QObject::connect(&job, &CListExport::SignalProgress, &loop, [&](int done, int total) {
        estimate.Note(since_start.elapsed(), total > 0 ? double(done) / total : 1);
        line.Show(ProgressText(Percent(done, total), TimeLeftText(estimate.Seconds())));
    });
    QObject::connect(&job, &CListExport::SignalFinished, &loop,
                     [&loop, &result](const Vantor::ListExportResult &outcome) {
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

ReadResult LoadList(const Options &options)
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
    return result;
}

int ExportRows(const IncidentRows &rows, const QString &path)
{
    int stop_status = kExitDone;
    const Vantor::ListExportResult result = WaitForExport(rows, path, stop_status);
    if (stop_status != kExitDone && result.end == Vantor::ListExportResult::End::Cancelled)
        return stop_status;
    if (result.end != Vantor::ListExportResult::End::Done) {
        PrintError(ExportText(result));
        return kExitFileFailed;
    }
    PrintLine(ExportText(result));
    if (const QString losses = LossText(result); !losses.isEmpty())
        PrintError(losses);
    return stop_status;
}

int RunExport(const Options &options, const IncidentListPtr &list)
{
    return ExportRows(FindRows(list, options.filter.trimmed()), options.export_path);
}

} // namespace Client
