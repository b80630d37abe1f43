// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QStringList>
#include <QtCore/QThread>
#include <QtCore/QVector>

#include <memory>

namespace Vantor {

struct CCopyFileThreadPtr;

/// \brief The outcome for one file of a copy.
struct CopiedFile
{
    QString source; ///< The file that was copied, as given to SetFileInfo().
    QString target; ///< The name it was written under; empty when it did not arrive.
    QString error;  ///< The reason, a text for the user; empty when it arrived.
};

/// \brief Copies a list of files to a list of names on a thread of its own and picks a free name
/// where one is taken: "a.jpg", "a(1).jpg", "a(2).jpg".
///
/// A job is: a new object, SetFileInfo(), start(), SendSaveFinish(). Times and permissions go
/// along; a file appears under its name when it is whole, so a failed copy leaves nothing behind.
/// Several threads, processes too, may copy to one name: a name that was found free is taken only
/// if it still is. Sources and names are paths in Qt's form, with "/".
///
/// By default a name without a dot is kept, so an existing file of that name is *replaced*, and an
/// extension is cut to three letters when a number is added; SetKeepExisting() turns the safe way
/// on (docs/known-behaviour.md).
///
/// The object belongs to the GUI thread; its destructor asks a running copy to stop and waits until
/// the current file is done.
// clazy:excludeall=ctor-missing-parent-argument,thread-with-slots
class VANTOR_EXPORT CCopyFileThread : public QThread
{
    Q_OBJECT

public:
    CCopyFileThread();
    ~CCopyFileThread() override;

    /// \brief What to copy; not while the thread runs.
    ///
    /// Lists of unequal length are not stored: there is nothing to copy then, which succeeds.
    ///
    /// \param sources      paths; one of 261 bytes or more in the local 8-bit encoding, or of
    ///                     characters which that encoding lacks, fails.
    /// \param destinations as many, with the same rule; the folders must exist.
    /// \param flag         whether a kept name (one without a dot) is replaced at once. Otherwise
    ///                     the old file is deleted first, and one that comes in between wins.
    void SetFileInfo(const QStringList &sources, const QStringList &destinations, bool flag);

    /// \brief Overwrite nothing: number names without a dot too, at their end, look for the dot in
    /// the file's name only, and keep long extensions. Off by default; call it before start().
    void SetKeepExisting(bool on);
    [[nodiscard]] bool IsKeepExisting() const; ///< See SetKeepExisting().

    /// \brief The outcome for each file, in order, with the reasons for failures and the names that
    /// were taken; complete when SendSaveFinish() is emitted.
    [[nodiscard]] QVector<CopiedFile> Results() const;

    /// \brief The thread's body: copies, then emits SendSaveFinish().
    void run() override;

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// \brief Copy no further file; the current one is finished. Takes effect between any two
    /// files, also while their sizes are still being measured. Safe from any thread.
    ///
    /// The request stays for good: a stopped object copies nothing any more.
    void OnStopCopyFileThread();

Q_SIGNALS:
    /// Emitted once a run, from the copying thread.
    /// \param all_copied     whether every file arrived.
    /// \param failed_sources those that did not, in order, with what a stop left out.
    void SendSaveFinish(bool all_copied, const QStringList &failed_sources);

    /// The progress, emitted from the copying thread: at once with 0, then at most every 50 ms, and
    /// at the end of the last file. It never goes back. Bytes of a file that fails count as done.
    /// \param bytes_total the size of all sources at the start; it grows from 0 while they are
    ///                    being measured, before the first is copied.
    void SendSaveProgress(qint64 bytes_done, qint64 bytes_total, int files_done, int files_total);

private:
    const std::shared_ptr<CCopyFileThreadPtr> d_ptr_;
};

} // namespace Vantor
