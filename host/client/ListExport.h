// SPDX-License-Identifier: MIT
#pragma once

#include "ExportFormat.h"
#include "ExportTarget.h"
#include "IncidentList.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
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
/// Rows are collected in slices, so a window stays alive and can cancel; what an earlier file held
/// is replaced only by a complete new one. The rows are a snapshot: the list may change meanwhile.
class CListExport : public QObject
{
    Q_OBJECT

public:
    /// \param window waits behind a dialog while the file is written; may be null.
    CListExport(IncidentRows rows, QWidget *window, QObject *parent = nullptr);
    ~CListExport() override;

    /// \brief Begin. The kind of file follows from the ending of \a path.
    void Start(const QString &path);
    /// \brief End without a file; one that is being written is finished first.
    void Cancel();

Q_SIGNALS:
    void SignalCollected(int rows, int total);
    /// Emitted now and then while the file is written.
    void SignalWriting(qint64 bytes);
    /// Emitted once, from the event loop, as the last thing.
    void SignalFinished(const Client::ExportResult &result);

private Q_SLOTS:
    void OnNextSlice();
    void OnWatchFile();

private:
    [[nodiscard]] bool Open();
    void Write();
    [[nodiscard]] QString WriteErrorText() const;
    void Finish(const QString &error);

    const IncidentRows rows_;
    const QPointer<QWidget> window_;
    QString path_;
    CExportTarget target_;
    std::unique_ptr<CRowWriter> writer_; // closed before target_ removes the file
    QTimer slices_;
    int collected_ = 0;
    bool is_cancelled_ = false;
};

} // namespace Client

Q_DECLARE_METATYPE(Client::ExportResult)
