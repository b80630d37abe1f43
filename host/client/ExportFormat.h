// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
class QWidget;
QT_END_NAMESPACE

namespace Client {

/// \brief Writes rows to a file of one kind. Called in the order of its members.
class CRowWriter
{
public:
    CRowWriter() = default;
    virtual ~CRowWriter() = default;
    CRowWriter(const CRowWriter &) = delete;
    CRowWriter &operator=(const CRowWriter &) = delete;

    [[nodiscard]] virtual bool Open(const QString &path) = 0;
    /// \brief Take the next rows; the titles come from the first call.
    virtual void Collect(QAbstractItemModel &rows) = 0;
    /// \brief Write what was collected. The event loop runs meanwhile.
    virtual void Write() = 0;
    /// \return false when something did not reach the disk.
    [[nodiscard]] virtual bool Close() = 0;
    /// \brief The system's words for why it did not; empty when it has none.
    [[nodiscard]] virtual QString Reason() const { return {}; }
};

/// \brief A kind of file to export to. One line in ExportFormat.cpp adds another.
struct ExportFormat
{
    const char *ending; ///< with its dot, in lower case
    std::unique_ptr<CRowWriter> (*make_writer)(QWidget *window);
};

/// \brief The kind that the ending of \a path stands for; null when there is none of that ending.
[[nodiscard]] const ExportFormat *FindExportFormat(const QString &path);

/// \brief For the user: that files like \a path cannot be written, and which can.
[[nodiscard]] QString UnknownFormatText(const QString &path);

} // namespace Client
