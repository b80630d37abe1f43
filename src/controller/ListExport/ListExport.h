// SPDX-License-Identifier: MIT
#pragma once

#include "controller/ListExport/ListExportTypes.h"

#include <VantorExport.h>

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <functional>
#include <memory>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
class QAbstractItemView;
QT_END_NAMESPACE

namespace Vantor {

class CRowSource;
struct CListExportDataPtr;

/// \brief Writes a whole list to a CSV or XLSX file in the background.
///
/// \code
/// auto *const job = new Vantor::CListExport(this);
/// job->SetView(table);
/// connect(job, &Vantor::CListExport::SignalFinished, this, &Page::OnExported);
/// job->Start(path); // "….csv" or "….xlsx"
/// \endcode
///
/// A worker thread writes. Rows of a model are read on the GUI thread in slices of a few
/// milliseconds; those of a CRowSource on the worker. At most a few slices wait at a time, so
/// memory stays flat. The file is built in a temporary folder and gets its name when it is whole:
/// until then, and whenever the export fails or is cancelled, an earlier file stays as it was.
/// CSV is written as RFC 4180 wants it (CCSVParser::SetRfc4180()).
///
/// One export at a time, any number one after the other. All members belong to the GUI thread. The
/// object may be deleted at any time, also in its own signals: that cancels.
class VANTOR_EXPORT CListExport : public QObject
{
    Q_OBJECT

public:
    using Format = ListExportFormat; ///< The short name.

    explicit CListExport(QObject *parent = nullptr);
    ~CListExport() override;

    /// \brief Export all top-level rows of \a model, the display role of each cell, all columns.
    /// Not owned; null takes the rows away. Rows or columns that come, go or move before all rows
    /// are read end the export with Reason::ListChanged.
    void SetModel(QAbstractItemModel *model);
    /// \brief Export what \a view shows: its model, and the visible columns in the user's order as
    /// they are now. For tables and trees; other views export all columns.
    void SetView(const QAbstractItemView *view);
    /// \brief Export the rows of \a source instead of a model's; null takes them away. A CRowStream
    /// is read once, so each Start() wants a new one.
    void SetSource(std::shared_ptr<const CRowSource> source);
    /// \brief The columns to write, in this order; those that the list does not have are skipped.
    /// Empty: all of them.
    void SetColumns(const QVector<int> &columns);
    /// \brief The columns of SetColumns() or of SetView(); empty: all of them.
    [[nodiscard]] QVector<int> Columns() const;
    /// \brief How a workbook looks, from the next Start() on; CSV has no look.
    void SetLook(const ListExportLook &look);
    /// \brief Where temporary files go; empty (the default): the system's temporary folder.
    void SetTemporaryFolder(const QString &folder);

    /// \return the suffixes that BySuffix knows, with their dots: ".csv", ".xlsx".
    [[nodiscard]] static QStringList Suffixes();
    /// \return the format that the suffix of \a path names, or BySuffix for an unknown suffix.
    [[nodiscard]] static Format FormatOf(const QString &path);

    /// \brief Begin to write the list to \a path.
    /// \return false, and nothing happens, while an export runs. SignalFinished() reports every
    /// other outcome.
    bool Start(const QString &path, Format format = Format::BySuffix);
    /// \brief Save what the last export has built, and could not save, as \a path.
    /// \return false, and nothing happens, without such a file or while an export runs.
    bool SaveAgain(const QString &path);
    /// \brief End without a file. A file that gets its name at this moment is Done instead.
    void Cancel();
    /// \brief Whether an export is under way: from Start() or SaveAgain() until SignalFinished().
    [[nodiscard]] bool IsRunning() const;

Q_SIGNALS:
    /// Emitted now and then while an export runs. Both are in rows; \a total includes a share for
    /// the time that saving a workbook takes, and is 0 while a CRowStream does not know it.
    /// Cancel() and deletion are fine here.
    void SignalProgress(int done, int total);
    /// Emitted once for each Start() and SaveAgain() that returned true, from the event loop.
    void SignalFinished(const Vantor::ListExportResult &result);

private Q_SLOTS:
    void OnTick();
    void OnListChanged();

private:
    void Launch(const std::function<void()> &prepare);
    void PrepareModel();
    void Finish(const ListExportResult &result);

    const std::unique_ptr<CListExportDataPtr> d_ptr_;
};

} // namespace Vantor
