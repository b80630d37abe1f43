// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"

namespace Client {

/// \brief Writes CSV files through Vantor::CCSVParser, in the way that keeps every cell as it is.
/// \param window is waited in front of; may be null.
[[nodiscard]] std::unique_ptr<CRowWriter> MakeCsvWriter(QWidget *window);

} // namespace Client
