// SPDX-License-Identifier: MIT
#pragma once

#include "list/CsvFile.h"

#include <QtCore/QFutureWatcher>
#include <QtCore/QPointer>

#include <atomic>
#include <memory>

QT_BEGIN_NAMESPACE
class QDialog;
QT_END_NAMESPACE

namespace Client {

/// \brief Reads a CSV file on another thread, behind a dialog that can cancel.
///
/// The dialog opens if reading takes long. Deleting this object cancels the reading,
/// does not wait for it and emits no signal.
class CFileReading : public QObject
{
    Q_OBJECT

public:
    /// \brief Begin to read \a path with \a separator, as ReadCsvFile() takes it. \a dialog is in
    /// front of the window; this object deletes it.
    CFileReading(const QString &path, char separator, QDialog *dialog, QObject *parent);
    ~CFileReading() override;

    /// \brief Stop soon. SignalFinished() is then emitted with neither a list nor an error.
    void Cancel();

Q_SIGNALS:
    /// Emitted once. \a result holds the list or an error text.
    void SignalFinished(const Client::ReadResult &result);

private:
    void OnFinished();

    QFutureWatcher<ReadResult> watcher_;
    QPointer<QDialog> dialog_;
    // Set by the GUI thread, read by the reading thread, which may outlive this object.
    const std::shared_ptr<std::atomic<bool>> is_cancelled_;
};

} // namespace Client
