// SPDX-License-Identifier: MIT
#include "controller/CSV/CsvLine.h"

#include <QtCore/QStringView>

#include <algorithm>

namespace Vantor {
namespace {

constexpr QChar kQuote = QLatin1Char('"');

// Encloses the field that begins at `start` if it holds the separator. Inner quotes stay single,
// and a field that is enclosed already is enclosed again: hosts' import filters were built around
// these lines.
void EncloseSeparator(QString &line, int start, const QString &separator)
{
    if (!QStringView(line).mid(start).contains(separator))
        return;
    line.insert(start, kQuote);
    line.append(kQuote);
}

} // namespace

void AppendField(QString &line, const QString &field, bool guarded, const QString &separator)
{
    const int start = line.size();
    if (guarded && (field.startsWith(QLatin1Char('=')) || field.startsWith(QLatin1Char('@'))))
        line.append(QLatin1Char('\''));
    line.append(field);
    EncloseSeparator(line, start, separator);
}

void AppendModelCell(QString &line, const QString &cell, const QString &separator)
{
    const int start = line.size();
    const int first_break = cell.indexOf(QLatin1Char('\n'));
    if (first_break >= 0 && cell.lastIndexOf(QLatin1Char('\n')) != first_break) {
        QString flat = cell;
        flat.replace(QLatin1Char('\n'), QLatin1Char(' ')).remove(QLatin1Char('='));
        line.append(kQuote).append(flat);
    } else if (cell.contains(QLatin1Char(','))) {
        line.append(kQuote).append(cell);
    } else {
        line.append(QLatin1String("'=\""))
            .append(cell); // the formula text form, behind its apostrophe
    }
    line.append(kQuote);
    EncloseSeparator(line, start, separator);
}

bool IsFormula(const QString &field)
{
    const QStringView starters = u"=+-@\t\r";
    const auto first = std::find_if(field.cbegin(), field.cend(), [starters](QChar c) {
        return starters.contains(c) || !c.isSpace();
    });
    return first != field.cend() && starters.contains(*first);
}

void AppendRfc4180Field(QString &line, const QString &field, bool guarded)
{
    line.append(kQuote);
    if (guarded && IsFormula(field))
        line.append(QLatin1Char('\''));
    if (field.contains(kQuote))
        line.append(QString(field).replace(kQuote, QLatin1String("\"\"")));
    else
        line.append(field);
    line.append(kQuote);
}

} // namespace Vantor
