// SPDX-License-Identifier: MIT
#pragma once

#include "list/IncidentList.h"

#include <Vantor/CListExport>
#include <Vantor/CRowSource>
#include <Vantor/Clxw_format_>

namespace Vantor {
class CExcelControllorWithC;
}

namespace Client {

using CellLook = std::shared_ptr<Vantor::Clxw_format_>;

/// \brief How the cells of a workbook look. Cells that look the same share one record.
struct XlsxLook
{
    XlsxLook();

    CellLook title;
    CellLook header;
    CellLook number_header;
    CellLook cell;
    CellLook number; ///< at the end of its cell in the reading direction
    CellLook fact;   ///< at the beginning, number or text
};

/// \brief A list's sheets: these looks, a frozen header, the direction of the language.
[[nodiscard]] Vantor::ListExportLook ListLook(const XlsxLook &cells);

/// \brief Make the columns of the current sheet fit on the paper.
void FitToPaper(Vantor::CExcelControllorWithC &writer);

/// \brief \a text as a number if that number's text is \a text again, else as it is. For lists
/// whose columns are not known in advance.
[[nodiscard]] QVariant CellValue(const QString &text);

/// \brief Numbers only if each text is the text of its number, so that no leading zero and no
/// digit behind the fifteenth is lost; links when each text is an address of the web.
[[nodiscard]] Vantor::ExportColumnKind KindOf(const CIncidentList &list, int column);

/// \brief The width in characters that shows the title of \a column and most of its \a rows.
[[nodiscard]] int ColumnWidth(const IncidentRows &rows, int column);

} // namespace Client
