// SPDX-License-Identifier: MIT
#pragma once

#include "list/IncidentList.h"

#include <QtCore/QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Client {

/// \brief Writes rows to a file of one kind. Called in the order of its members; without Close()
/// its destructor discards what was written.
class CRowWriter
{
public:
    CRowWriter() = default;
    virtual ~CRowWriter() = default;
    CRowWriter(const CRowWriter &) = delete;
    CRowWriter &operator=(const CRowWriter &) = delete;

    /// \brief Begin the file \a path that \a rows will go to.
    [[nodiscard]] virtual bool Open(const QString &path, const IncidentRows &rows) = 0;
    /// \brief Take the rows from \a begin to before \a end, which follow those taken before.
    virtual void Append(int begin, int end) = 0;
    /// \brief Write what follows from all rows. On the GUI thread the event loop runs meanwhile.
    virtual void Write() = 0;
    /// \return false when something did not reach the disk.
    [[nodiscard]] virtual bool Close() = 0;
    /// \brief For the user: why Open() or Close() failed. Empty when the writer does not know.
    [[nodiscard]] virtual QString Error() const { return {}; }
    /// \brief The system's words for why Close() failed; empty when it has none.
    [[nodiscard]] virtual QString Reason() const { return {}; }
};

/// \brief Where a writer lives from its making to its end.
enum class WriterThread {
    Gui,   ///< it waits in front of a window
    Worker ///< it blocks
};

/// \brief A kind of file to export to. One line in ExportFormat.cpp adds another.
struct ExportFormat
{
    const char *ending; ///< with its dot, in lower case
    WriterThread thread;
    std::unique_ptr<CRowWriter> (*make_writer)(QWidget *window);
};

/// \brief The kind that the ending of \a path stands for; null when there is none of that ending.
[[nodiscard]] const ExportFormat *FindExportFormat(const QString &path);

/// \brief For the user: that files like \a path cannot be written, and which can.
[[nodiscard]] QString UnknownFormatText(const QString &path);

} // namespace Client
