// SPDX-License-Identifier: MIT
#pragma once

#include "controller/ListExport/RowSource.h"

namespace Vantor {

/// \brief Rows that come one after the other, such as the pages of a server, whose number may be
/// unknown before the end. CListExport::SetSource() takes it.
///
/// The worker reads each row once: HasRow() for row 0, then its cells, then HasRow() for row 1, and
/// so on. HasRow() may wait as long as it likes, because only the worker waits: Cancel() and
/// progress go on, and a cancelled export does not call it again.
class VANTOR_EXPORT CRowStream : public CRowSource
{
public:
    ~CRowStream() override;

    /// \return about how many rows there are, for the progress; 0 when unknown.
    [[nodiscard]] int RowCount() const override = 0;
    /// \brief Wait until \a row can be read.
    /// \return false behind the last row. A list that cannot be read to its end throws instead: the
    /// export then ends with Reason::ListFailed and what() as its system_text (UTF-8).
    [[nodiscard]] virtual bool HasRow(int row) const = 0;
};

} // namespace Vantor
