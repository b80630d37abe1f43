// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace Vantor {
struct ListExportResult;
}

namespace Client {

/// \brief For the user: how an export ended, done or failed; empty when it was cancelled.
[[nodiscard]] QString ExportText(const Vantor::ListExportResult &result);

/// \brief For the user: what a workbook does not hold as the list has it; empty when it holds all.
[[nodiscard]] QString LossText(const Vantor::ListExportResult &result);

/// \brief For the user: that files like \a path cannot be written, and which can.
[[nodiscard]] QString UnknownFormatText(const QString &path);

} // namespace Client
