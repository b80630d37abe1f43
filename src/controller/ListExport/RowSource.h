// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QString>
#include <QtCore/QVariant>

namespace Vantor {

/// What the cells of a column are in a workbook.
enum class ExportColumnKind {
    ByCell, ///< Number types are numbers, a QUrl is a link, all else is text.
    Number, ///< Cells that are not empty are numbers, also when they come as text ("12.5").
    Link    ///< Texts are addresses.
};

/// \brief Rows of the host's for CListExport, where they are in no item model.
///
/// All members are called on the export's worker thread, while the host goes on; RowCount() also by
/// Start(). So a source is a snapshot that does not change any more; CRowStream is one that is read
/// while it grows. An exception ends the export with an error.
class VANTOR_EXPORT CRowSource
{
public:
    CRowSource() = default; ///< For derived classes.
    virtual ~CRowSource();
    CRowSource(const CRowSource &) = delete;
    CRowSource &operator=(const CRowSource &) = delete;

    /// \return the number of rows without the titles, 0 or more.
    [[nodiscard]] virtual int RowCount() const = 0;
    /// \return the number of columns; 0 ends the export with NoColumns.
    [[nodiscard]] virtual int ColumnCount() const = 0;
    /// \return the text above \a column, which counts from 0.
    [[nodiscard]] virtual QString Title(int column) const = 0;
    /// \return what toString() makes the text of the cell of; an invalid one leaves it empty.
    [[nodiscard]] virtual QVariant Cell(int row, int column) const = 0;
    /// \return what the cells of \a column are in a workbook; ByCell by default.
    [[nodiscard]] virtual ExportColumnKind Kind(int column) const;
    /// \return the width of a column in a workbook, in characters; 0 fits it to its texts.
    [[nodiscard]] virtual int WidthChars(int column) const;
};

} // namespace Vantor
