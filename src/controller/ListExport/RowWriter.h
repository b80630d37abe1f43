// SPDX-License-Identifier: MIT
#pragma once

#include "controller/ListExport/ListExportTypes.h"
#include "controller/ListExport/RowSource.h"

#include <QtCore/QVariant>
#include <QtCore/QVector>

#include <memory>

namespace Vantor {

// Some rows of a list, cell by cell.
struct RowSlice
{
    int rows = 0;
    QVector<QVariant> cells;
};

struct ExportTitles
{
    QStringList titles;
    QVector<ExportColumnKind> kinds;
    QVector<int> width_chars; // 0: by the texts
};

// Why a writer cannot go on.
struct WriteFault
{
    ListExportResult::Reason reason = ListExportResult::Reason::None;
    int error = 0; // errno, 0 when it is not known

    [[nodiscard]] bool IsNone() const { return reason == ListExportResult::Reason::None; }
};

// Writes rows to a file of one format, on one thread, in the order of its members. Without Close()
// the destructor drops the rows.
class CRowWriter
{
public:
    CRowWriter() = default;
    virtual ~CRowWriter() = default;
    CRowWriter(const CRowWriter &) = delete;
    CRowWriter &operator=(const CRowWriter &) = delete;

    [[nodiscard]] virtual WriteFault Open(const QString &path, const ExportTitles &titles) = 0;
    [[nodiscard]] virtual WriteFault Append(const RowSlice &slice) = 0;
    [[nodiscard]] virtual WriteFault Close() = 0;
    [[nodiscard]] virtual ExcelCloseNotes Notes() const { return {}; }
};

std::unique_ptr<CRowWriter> MakeCsvRowWriter();
// `cache` is a folder of this writer alone.
std::unique_ptr<CRowWriter> MakeXlsxRowWriter(const ListExportLook &look, const QString &cache);

} // namespace Vantor
