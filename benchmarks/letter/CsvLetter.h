// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QStringList>

#include <cstdio>
#include <functional>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
QT_END_NAMESPACE

/// The CSV export in its plainest form, one step after the other as it is documented: what the
/// tests compare bytes with and the benchmarks compare time with.
namespace Letter {

/// The list separator of the user's locale, asked for at every field.
using SeparatorSource = std::function<QString()>;

/// One collected line; \a guarded puts an apostrophe before a leading "=" or "@".
QString JoinLine(QStringList fields, bool guarded, const SeparatorSource &separator);

/// The cells of one model row, in the formula text form or quoted.
QStringList ModelRow(const QAbstractItemModel &model, int row);

/// Header line (when \a with_header) and rows of \a model as collected lines.
QStringList CollectModel(const QAbstractItemModel &model, bool with_header,
                         const SeparatorSource &separator);

/// Parses every line with libcsv and writes field by field, stepping back over the last separator
/// of each row.
void WriteLines(std::FILE *stream, const QStringList &lines, bool with_mark,
                const QString &separator);

} // namespace Letter
