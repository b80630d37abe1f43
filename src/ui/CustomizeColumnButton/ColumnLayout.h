// SPDX-License-Identifier: MIT
#pragma once

#include "ui/CustomizeColumnButton/ColumnInfo.h"

#include <QtCore/QByteArray>
#include <QtCore/QVector>

namespace Vantor {

// Operations on lists of columns, without widgets. A list always keeps the host's order: a move
// only changes the column_No of its columns, so that a stored layout can be put back entry by
// entry.

/// The layout type of column lists on the server.
constexpr int kColumnLayoutType = 1;

/// \brief The key under which the server keeps the layout of one table.
[[nodiscard]] QString ColumnLayoutKey(const QString &module, const QString &function);

/// \brief The stored form of \a columns: UTF-8 JSON (RFC 8259), indented.
[[nodiscard]] QByteArray ColumnLayoutText(const QVector<CColumnInfo> &columns);

/// \brief \a columns with the stored \a layout put on them, entry by entry.
///
/// Columns beyond the last entry, and entries that are no JSON object, change nothing; a layout
/// that is no stored form changes nothing at all.
[[nodiscard]] QVector<CColumnInfo> WithColumnLayout(const QVector<CColumnInfo> &columns,
                                                    const QString &layout);

/// \brief Whether two lists are the same in every field.
[[nodiscard]] bool AreSameColumns(const QVector<CColumnInfo> &a, const QVector<CColumnInfo> &b);

/// \brief The indexes of \a columns in the order in which they are shown: by column_No, and as in
/// the list where that is equal.
[[nodiscard]] QVector<int> ColumnOrder(const QVector<CColumnInfo> &columns);

/// \brief Whether the column at place \a from of \a order may go to place \a to, both 0-based: it
/// has to be one that the user may move, and no column that keeps its place may be pushed aside.
[[nodiscard]] bool CanMoveColumn(const QVector<CColumnInfo> &columns, const QVector<int> &order,
                                 int from, int to);

/// \brief Number \a columns in the order of \a order, from \a first on.
void NumberColumns(QVector<CColumnInfo> &columns, const QVector<int> &order, int first);

/// \brief The smallest column_No of \a columns; 0 without columns.
[[nodiscard]] int FirstColumnNumber(const QVector<CColumnInfo> &columns);

/// \brief The state of a box above all columns: that of the columns that the user may check or,
/// without such columns, of all.
[[nodiscard]] Qt::CheckState CommonCheckState(const QVector<CColumnInfo> &columns);

} // namespace Vantor
