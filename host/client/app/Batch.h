// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "export/ListExport.h"
#include "list/IncidentList.h"

namespace Client {

/// \brief Read the list that \a options name. Progress and errors go to the standard error output.
///
/// \return null if the list cannot be read.
[[nodiscard]] IncidentListPtr LoadList(const Options &options);

/// \brief Export \a rows to \a path. The result goes to the standard output, errors to the standard
/// error output.
///
/// \return an exit status; 130 or 143 if SIGINT or SIGTERM ended the export, without a file.
[[nodiscard]] int ExportRows(const IncidentRows &rows, const QString &path);

/// \brief Run --export with the rows of \a list that match the filter of \a options.
[[nodiscard]] int RunExport(const Options &options, const IncidentListPtr &list);

} // namespace Client
