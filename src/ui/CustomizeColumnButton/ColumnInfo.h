// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>
#include <common/Record.h>

#include <QtCore/QString>
#include <QtCore/Qt>

namespace Vantor {

/// One column of a table as hosts describe it to the column chooser.
struct ColumnInfo
{
    int column_No = 0;   ///< Place in the table; hosts may begin at 0 or at 1.
    int column_id = 0;   ///< The host's own number of the column.
    QString column_name; ///< The text of its header.
    Qt::CheckState column_checked = Qt::Checked; ///< Checked: shown; Unchecked: hidden.
    bool b_manual_check = true;                  ///< The user may show and hide it.
    bool b_manual_sort = true; ///< The user may move it; otherwise it keeps its place.
};

/// \brief One column of a table; see ColumnInfo.
class VANTOR_EXPORT CColumnInfo : public CRecord<ColumnInfo>
{
    VANTOR_RECORD(CColumnInfo)
    VANTOR_RECORD_FIELD(column_No)
    VANTOR_RECORD_FIELD(column_id)
    VANTOR_RECORD_FIELD(column_name)
    VANTOR_RECORD_FIELD(column_checked)
    VANTOR_RECORD_FIELD(b_manual_check)
    VANTOR_RECORD_FIELD(b_manual_sort)
};

} // namespace Vantor
