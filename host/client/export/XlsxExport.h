// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"

namespace Client {

/// As many rows as a sheet holds below its header.
constexpr int kXlsxRowsPerSheet = 1048575;

/// \brief Writes XLSX workbooks through Vantor::CExcelControllorWithC with flat memory: the rows on
/// as many sheets as they need, then a summary. Blocks, so it belongs on a worker thread.
/// \param rows_per_sheet at most kXlsxRowsPerSheet.
[[nodiscard]] std::unique_ptr<CRowWriter> MakeXlsxRowWriter(int rows_per_sheet);

/// \brief The same as a line of the table of formats wants it.
[[nodiscard]] std::unique_ptr<CRowWriter> MakeXlsxWriter(QWidget *window);

} // namespace Client
