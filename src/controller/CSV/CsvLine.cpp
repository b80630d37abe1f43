// SPDX-License-Identifier: MIT
#include "controller/CSV/CsvLine.h"

#include <QtCore/QStringView>

#include <algorithm>

namespace Vantor {
namespace {

void Append(CsvLine &line, const QString &text)
{
    line.append(reinterpret_cast<const char16_t *>(text.utf16()), static_cast<size_t>(text.size()));
}

// Encloses the field that begins at `start` if it holds the separator. Inner quotes stay single,
// and a field that is enclosed already is enclosed again: hosts' import filters were built around
// these lines.
void EncloseSeparator(CsvLine &line, size_t start, const CsvLine &separator)
{
    const bool holds_it =
        separator.size() == 1
            ? std::find(line.begin() + static_cast<CsvLine::difference_type>(start), line.end(),
                        separator.front())
                  != line.end()
            : line.find(separator, start) != CsvLine::npos;
    if (!holds_it)
        return;
    line.insert(start, 1, u'"');
    line += u'"';
}

struct CellMarks
{
    bool has_comma = false;
    int line_breaks = 0;
};

CellMarks MarksOf(const QString &cell)
{
    CellMarks marks;
    for (const QChar c :
         cell) { // without a branch, so that the compiler takes many characters at once
        marks.has_comma |= c == QLatin1Char(',');
        marks.line_breaks += c == QLatin1Char('\n') ? 1 : 0;
    }
    return marks;
}

// Blanks, and what spreadsheets drop: zero bytes and other controls, marks, zero-width characters.
bool IsUnseen(QChar c)
{
    return c.isSpace() || c.category() == QChar::Other_Control
           || c.category() == QChar::Other_Format;
}

// A sign and digits, with at most one point or comma between them: nothing that computes.
bool IsPlainNumber(QStringView text)
{
    int digits = 0;
    int points = 0;
    for (const QChar c : text.mid(1)) {
        digits += c >= QLatin1Char('0') && c <= QLatin1Char('9') ? 1 : 0;
        points += c == QLatin1Char('.') || c == QLatin1Char(',') ? 1 : 0;
    }
    const bool has_sign = text.startsWith(QLatin1Char('-')) || text.startsWith(QLatin1Char('+'));
    return has_sign && digits > 0 && points <= 1 && digits + points + 1 == text.size()
           && text.at(text.size() - 1).isDigit();
}

} // namespace

void AppendField(CsvLine &line, const QString &field, bool guarded, const CsvLine &separator)
{
    const size_t start = line.size();
    if (guarded && (field.startsWith(QLatin1Char('=')) || field.startsWith(QLatin1Char('@'))))
        line += u'\'';
    Append(line, field);
    EncloseSeparator(line, start, separator);
}

void AppendModelCell(CsvLine &line, const QString &cell, const CsvLine &separator)
{
    const size_t start = line.size();
    const CellMarks marks = MarksOf(cell);
    if (marks.line_breaks >= 2) {
        QString flat = cell;
        flat.replace(QLatin1Char('\n'), QLatin1Char(' ')).remove(QLatin1Char('='));
        line += u'"';
        Append(line, flat);
    } else {
        // Behind the apostrophe: the formula text form, which AppendField() would guard.
        line += marks.has_comma ? u"\"" : u"'=\"";
        Append(line, cell);
    }
    line += u'"';
    EncloseSeparator(line, start, separator);
}

bool IsFormula(const QString &field)
{
    // The full-width forms of = + - @ too: some spreadsheets take them for the plain ones.
    const QStringView starters = u"=+-@\t\r\uFF1D\uFF0B\uFF0D\uFF20";
    const auto first = std::find_if(field.cbegin(), field.cend(), [starters](QChar c) {
        return starters.contains(c) || !IsUnseen(c);
    });
    if (first == field.cend() || !starters.contains(*first))
        return false;
    return !IsPlainNumber(QStringView(field).mid(first - field.cbegin()).trimmed());
}

void AppendRfc4180Field(CsvLine &line, const QString &field, bool guarded)
{
    line += u'"';
    if (guarded && IsFormula(field))
        line += u'\'';
    if (field.contains(QLatin1Char('"')))
        Append(line, QString(field).replace(QLatin1Char('"'), QLatin1String("\"\"")));
    else
        Append(line, field);
    line += u'"';
}

QString FinishLine(CsvLine &line)
{
    line += u'\n';
    return QString(reinterpret_cast<const QChar *>(line.data()), static_cast<int>(line.size()));
}

} // namespace Vantor
