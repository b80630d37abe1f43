// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "list/CsvFile.h"

namespace Client {

/// \brief Read the list that \a options name. Progress and errors go to the standard error output.
///
/// \return no list if it cannot be read.
[[nodiscard]] ReadResult LoadList(const Options &options);

/// \brief Export \a rows to \a path. The result goes to the standard output, errors to the standard
/// error output.
///
/// \return an exit status; 129, 130 or 143 if SIGHUP, SIGINT or SIGTERM ended the export, without a file.
[[nodiscard]] int ExportRows(const IncidentRows &rows, const QString &path);

/// \brief Run --export with the rows of \a list that match the filter of \a options.
[[nodiscard]] int RunExport(const Options &options, const IncidentListPtr &list);

} // namespace Client
