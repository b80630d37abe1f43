// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <string>

namespace Vantor {

// How cells become a collected line: fields joined with "," whatever the locale, "\n" at the end.
// Each function appends one field to `line` and writes no comma. `separator` is the list separator
// of the user's locale.
//
// A line is a std::u16string while it is built: its appends are inlined, and a list of a million
// rows is made of little else. FinishLine() makes it a QString.
using CsvLine = std::u16string;

// A field as AppendLine() takes it; `guarded` puts an apostrophe before a leading "=" or "@".
void AppendField(CsvLine &line, const QString &field, bool guarded, const CsvLine &separator);

// A cell of a model: the formula text form, or plain quotes for a comma or several line breaks,
// then AppendField().
void AppendModelCell(CsvLine &line, const QString &cell, const CsvLine &separator);

// A field as RFC 4180 writes it, quoted once with inner quotes doubled; `guarded` puts an
// apostrophe before what a spreadsheet would run as a formula.
void AppendRfc4180Field(CsvLine &line, const QString &field, bool guarded);

// Ends the line; a copy that takes no more memory than it needs.
QString FinishLine(CsvLine &line);

// Whether a spreadsheet may run `field` as a formula: = + - @ (full-width too), tab or CR first, or
// after blanks and characters that do not show. A plain number such as "-5" is no formula.
bool IsFormula(const QString &field);

} // namespace Vantor
