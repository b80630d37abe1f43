// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"
#include "export/ExportTarget.h"
#include "list/IncidentList.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFutureWatcher>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QThreadPool>
#include <QtCore/QTimer>

namespace Client {

/// \brief How an export ended.
struct ExportResult
{
    bool is_done = false; ///< false without an error: it was cancelled
    QString error;        ///< for the user
    QString path;
    int rows = 0;
};

/// \brief For the user: what an export that is done has written.
[[nodiscard]] QString ExportedText(const ExportResult &result);

/// \brief Exports rows to a file while the event loop runs. Use it once.
///
/// A writer that waits in front of a window takes the rows in slices on the GUI thread, one that
/// blocks works on a thread of its own; either way a window stays alive and can cancel. What an
/// earlier file held is replaced only by a complete new one. The rows are a snapshot: the list may
/// change meanwhile.
class CListExport : public QObject
{
    Q_OBJECT

public:
    /// \param window waits behind a dialog while the file is written; may be null.
    CListExport(IncidentRows rows, QWidget *window, QObject *parent = nullptr);
    /// Cancels, and waits for the thread: while a file is being saved that takes as long as it
    /// takes.
    ~CListExport() override;

    /// \brief Begin. The kind of file follows from the ending of \a path.
    void Start(const QString &path);
    /// \brief End without a file; one that is being written is finished first.
    void Cancel();

Q_SIGNALS:
    /// \a done comes in rows; \a total is more than the rows when saving takes its time, too. They
    /// are equal when nothing is left that this signal tells about.
    void SignalProgress(int done, int total);
    /// Emitted now and then while a file is written in front of a window.
    void SignalWriting(qint64 bytes);
    /// Emitted once, from the event loop, as the last thing.
    void SignalFinished(const Client::ExportResult &result);

private Q_SLOTS:
    void OnNextSlice();
    void OnWatchFile();
    void OnWatchWorker();
    void OnWorkerFinished();

private:
    struct Outcome
    {
        bool is_written = false;
        QString error;
    };
    struct WorkerState;

    [[nodiscard]] bool Open();
    void Write();
    void StartWorker();
    [[nodiscard]] static Outcome RunWorker(const ExportFormat &format, const IncidentRows &rows,
                                           const QString &path, WorkerState &state);
    [[nodiscard]] QString WriteErrorText(const QString &writers_error) const;
    void Finish(const QString &error);

    const IncidentRows rows_;
    const QPointer<QWidget> window_;
    QString path_;
    const ExportFormat *format_ = nullptr;
    CExportTarget target_;
    std::unique_ptr<CRowWriter> writer_; // closed before target_ removes the file
    QTimer slices_;
    int collected_ = 0;
    bool is_cancelled_ = false;

    std::shared_ptr<WorkerState> state_;
    QElapsedTimer since_start_;
    qint64 rows_took_ms_ = 0; // 0 while the worker takes rows
    QTimer watch_;
    QFutureWatcher<Outcome> worker_;
    QThreadPool pool_; // last: waits for the thread before anything else goes
};

} // namespace Client

Q_DECLARE_METATYPE(Client::ExportResult)
