// SPDX-License-Identifier: MIT
#pragma once

#include "list/IncidentList.h"

#include <QtCore/QStringList>

namespace Vantor {
class CExcelControllorWithC;
}

namespace Client {

struct XlsxLook;

/// \brief How often a value comes.
struct ValueCount
{
    QString value;
    int count = 0;
};

/// \brief The \a most frequent values of \a column in \a rows, the most frequent first; empty cells
/// do not count.
[[nodiscard]] QVector<ValueCount> MostFrequent(const IncidentRows &rows, int column, int most);

/// \brief Turn the sheet \a name to the reading direction of the language, and make its columns
/// fit on the paper.
void PrepareSheet(Vantor::CExcelControllorWithC &writer, const QString &name);

/// \brief Add a last sheet that tells about \a rows: how many, how found, when, the links to their
/// \a sheets, and what is most frequent, with charts.
void WriteSummary(Vantor::CExcelControllorWithC &writer, const XlsxLook &look,
                  const IncidentRows &rows, const QStringList &sheets);

} // namespace Client
