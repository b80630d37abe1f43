// SPDX-License-Identifier: MIT
#pragma once

#include "export/ListExport.h"
#include "list/CsvFile.h"
#include "support/Files.h"

#include <QtTest/QSignalSpy>

#include <numeric>

/// \brief All rows of \a list, for an export.
inline Client::IncidentRows AllRows(const Client::IncidentListPtr &list)
{
    QVector<int> rows(list->RowCount());
    std::iota(rows.begin(), rows.end(), 0);
    return {list, rows};
}

/// \brief All rows of the file with the bytes \a csv, repeated until there are \a repeated of them.
inline Client::IncidentRows RowsOf(const QByteArray &csv, int repeated = 0)
{
    const CTestFolder folder;
    const Client::IncidentListPtr list = Client::ReadCsvFile(folder.Put("source.csv", csv)).list;
    return AllRows(repeated > 0 ? list->Resized(repeated) : list);
}

/// \brief Export \a rows to \a path and wait for the end.
inline Client::ExportResult ExportTo(const Client::IncidentRows &rows, const QString &path)
{
    constexpr int kLongExportMs = 30000;
    qRegisterMetaType<Client::ExportResult>();
    Client::CListExport job(rows, nullptr);
    QSignalSpy finished(&job, &Client::CListExport::SignalFinished);
    job.Start(path);
    if (finished.isEmpty() && !finished.wait(kLongExportMs))
        return {};
    return finished.constFirst().constFirst().value<Client::ExportResult>();
}
