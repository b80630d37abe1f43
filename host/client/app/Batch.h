// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "export/ListExport.h"
#include "list/IncidentList.h"

namespace Client {

/// \brief Read the list that \a options ask for, with a progress line and, if need be, an error
/// text on the standard error output. \return null when it cannot be read.
[[nodiscard]] IncidentListPtr LoadList(const Options &options);

/// \brief Export \a rows to \a path, in the same manner, and say so on the standard output.
/// \return an exit status; 130 or 143 when SIGINT or SIGTERM ended it, without a file.
[[nodiscard]] int ExportRows(const IncidentRows &rows, const QString &path);

/// \brief What --export does: the rows of \a list that match the filter of \a options.
[[nodiscard]] int RunExport(const Options &options, const IncidentListPtr &list);

} // namespace Client
