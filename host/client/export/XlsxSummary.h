// SPDX-License-Identifier: MIT
#pragma once

#include "export/ValueCount.h"
#include "list/IncidentList.h"

#include <QtCore/QStringList>

namespace Vantor {
class CExcelControllorWithC;
}

namespace Client {

struct XlsxLook;

/// \brief The \a most frequent values of \a column in \a rows, the most frequent first; empty cells
/// do not count.
[[nodiscard]] QVector<ValueCount> MostFrequent(const IncidentRows &rows, int column, int most);

/// \brief Add a last sheet that sums up \a rows: how many, how found, when, links to their \a
/// sheets, and the most frequent values with charts.
void WriteSummary(Vantor::CExcelControllorWithC &writer, const XlsxLook &look,
                  const IncidentRows &rows, const QStringList &sheets);

} // namespace Client
