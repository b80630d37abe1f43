// SPDX-License-Identifier: MIT
#include "controller/CSV/CsvWrite.h"

#include "common/Guard.h"
#include "common/LogMacro.h"
#include "common/Translate.h"
#include "controller/CSV/CSVParserData.h"
#include "controller/CSV/CsvTask.h"

#include <Ravel/ChaseDialog.h>
#include <Ravel/WaitWatcher.h>

#include <QtConcurrent/QtConcurrentRun>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QFutureWatcher>
#include <QtCore/QScopedValueRollback>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>

namespace Vantor {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 250ms; // a shorter write shows no dialog
constexpr auto kShortestShow = 300ms;

CsvJob TakeJob(CCSVParserDataPtr &data)
{
    CsvJob job;
    job.lines = data.list_lines_;
    job.stream = data.Stream();
    job.has_mark = !data.b_bom_written_;
    job.is_appending = data.b_append_;
    job.is_rfc4180 = data.b_rfc4180_;
    data.b_bom_written_ = true;
    if (!job.stream && !job.lines.isEmpty())
        KeepWriteError(data, "Vantor::CCSVParser::DoParserTask", EBADF);
    return job;
}

// The write task. Its result says nothing: hosts ask HasWriteError().
bool DoParserTask(CCSVParserDataPtr &data, const CsvJob &job)
{
    static constexpr char kFunction[] = "Vantor::CCSVParser::DoParserTask";
    const bool is_done = RunGuarded(kFunction, [&data, &job] {
        const CsvOutcome outcome = WriteCsvJob(data.parser_, job);
        if (!outcome.is_parsed)
            VANTOR_LOG(kFunction, 5, VANTOR_LOG_WARNING, "csvparse_parse Error parsing file.");
        if (outcome.write_errno != 0)
            KeepWriteError(data, kFunction, outcome.write_errno);
        else if (!outcome.is_parsed)
            KeepWriteError(data, kFunction, ENOMEM, true);
    });
    if (!is_done)
        KeepWriteError(data, kFunction, ENOMEM, true);
    return true;
}

// A dialog that its parent may delete before we do.
class CWaitingDialog
{
public:
    explicit CWaitingDialog(QWidget *parent)
        : dialog_(new Ravel::CChaseDialog(
            parent, QStringLiteral(":/Express/Public/Gif/Images/Public/Gif/Waiting_M_4.gif"),
            Translate(QString()), false))
    {}
    CWaitingDialog(const CWaitingDialog &) = delete;
    CWaitingDialog &operator=(const CWaitingDialog &) = delete;
    ~CWaitingDialog() { delete dialog_.data(); }

    [[nodiscard]] Ravel::CChaseDialog *Get() const { return dialog_; }

    void Run()
    {
        since_shown_.start();
        dialog_->exec();
    }
    // Closes the dialog, but lets the user see it: one that flashes by confuses window managers.
    void Stop()
    {
        const auto shown = std::chrono::milliseconds(
            since_shown_.isValid() ? since_shown_.elapsed() : kShortestShow.count());
        QTimer::singleShot(std::max(kShortestShow - shown, 0ms), dialog_.data(),
                           &Ravel::CChaseDialog::OnStopChaseByAccept);
    }

private:
    const QPointer<Ravel::CChaseDialog> dialog_;
    QElapsedTimer since_shown_;
};

// Whether the task ends before a dialog is worth showing. Windows are painted meanwhile; what the
// user types waits.
bool EndsSoon(const QFutureWatcher<bool> &watcher)
{
    QEventLoop loop;
    QObject::connect(&watcher, &QFutureWatcher<bool>::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(kPatience, &loop, &QEventLoop::quit);
    if (!watcher.isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    return watcher.isFinished();
}

} // namespace

QString WriteErrorTextOf(int error)
{
    if (error == kModelThrew)
        return Translate(QStringLiteral("The list could not be read"));
    return error != 0 ? QString::fromLocal8Bit(std::strerror(error)) : QString();
}

void KeepWriteError(CCSVParserDataPtr &data, const char *function, int error, bool is_logged)
{
    int none = 0;
    if (data.write_errno_.compare_exchange_strong(none, error) && !is_logged)
        VANTOR_LOG(function, 5, VANTOR_LOG_WARNING, "Writing the CSV file %s failed: %s",
                   qUtf8Printable(data.str_file_path_), std::strerror(error));
}

void WriteLines(CCSVParserDataPtr &data)
{
    DoParserTask(data, TakeJob(data));
}

void WriteLinesBehindDialog(const std::shared_ptr<CCSVParserDataPtr> &data)
{
    const QScopedValueRollback<bool> is_waiting(data->b_waiting_, true);
    Ravel::CUiSingleton<Ravel::CWaitWatcher>::Instance();
    const QPointer<QWidget> active = QApplication::activeWindow();
    CWaitingDialog dialog(data->ptr_parent_);
    QFutureWatcher<bool> watcher;
    // Before the future is set: a task that is done at once must not end unheard.
    QObject::connect(&watcher, &QFutureWatcher<bool>::finished, dialog.Get(),
                     [&dialog] { dialog.Stop(); });
    data->future_ =
        QtConcurrent::run([data, job = TakeJob(*data)] { return DoParserTask(*data, job); });
    watcher.setFuture(data->future_);
    if (!EndsSoon(watcher) && dialog.Get()) {
        dialog.Run();
        // Some window managers leave the focus with the dialog that is gone.
        if (active && !QApplication::activeModalWidget())
            active->activateWindow();
    }
    // The dialog may have gone with its parent or the application's end while the task still
    // writes.
    data->future_.waitForFinished();
}

} // namespace Vantor
