// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace Vantor {

// How cells become a collected line: fields joined with "," whatever the locale, "\n" at the end.
// Each function appends one field to `line` and writes no comma. `separator` is the list separator
// of the user's locale.

// A field as AppendLine() takes it; `guarded` puts an apostrophe before a leading "=" or "@".
void AppendField(QString &line, const QString &field, bool guarded, const QString &separator);

// A cell of a model: the formula text form, or plain quotes for a comma or several line breaks,
// then AppendField().
void AppendModelCell(QString &line, const QString &cell, const QString &separator);

// A field as RFC 4180 writes it, quoted once with inner quotes doubled; `guarded` puts an
// apostrophe before what a spreadsheet would run as a formula.
void AppendRfc4180Field(QString &line, const QString &field, bool guarded);

// Whether a spreadsheet may run `field` as a formula: = + - @ tab or CR after any leading blanks.
bool IsFormula(const QString &field);

} // namespace Vantor
