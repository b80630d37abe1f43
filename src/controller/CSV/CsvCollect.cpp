// SPDX-License-Identifier: MIT
#include "controller/CSV/CsvCollect.h"

#include "controller/CSV/CsvLine.h"

#include <Nim/Base/OS.h>

#include <QtCore/QAbstractItemModel>

namespace Vantor {

QString JoinFields(const QStringList &fields, bool guarded, bool rfc4180)
{
    const CsvLine separator = Nim::Base::OS::ListSeparator().toStdU16String();
    CsvLine line;
    for (int i = 0; i < fields.size(); ++i) {
        if (i > 0)
            line += u',';
        if (rfc4180)
            AppendRfc4180Field(line, fields.at(i), guarded);
        else
            AppendField(line, fields.at(i), guarded, separator);
    }
    return FinishLine(line);
}

QStringList HeaderTexts(const QAbstractItemModel &model)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column)
        texts.append(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    return texts;
}

void CollectRows(QStringList &lines, const QAbstractItemModel &model, bool rfc4180)
{
    const CsvLine separator = Nim::Base::OS::ListSeparator().toStdU16String();
    const int columns = model.columnCount();
    const int rows = model.rowCount();
    CsvLine line; // reused, so that a row costs one allocation: its own copy
    for (int row = 0; row < rows; ++row) {
        line.clear();
        for (int column = 0; column < columns; ++column) {
            if (column > 0)
                line += u',';
            const QString cell = model.index(row, column).data(Qt::DisplayRole).toString();
            if (rfc4180)
                AppendRfc4180Field(line, cell, true);
            else
                AppendModelCell(line, cell, separator);
        }
        lines.append(FinishLine(line));
    }
}

} // namespace Vantor
