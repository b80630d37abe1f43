// SPDX-License-Identifier: MIT
#include "IncidentFilter.h"

#include "IncidentTable.h"

#include <QtCore/QStringList>
#include <QtCore/QVector>

namespace Server {
namespace {

constexpr int kTrigram = 3;       // characters
constexpr int kMostTrigrams = 16; // of a long text; the rows that are found are compared anyway
constexpr ushort kSeparator = 0x1f;

QString PatternOf(const QString &text)
{
    QString pattern = text;
    for (const QLatin1Char special : {QLatin1Char('\\'), QLatin1Char('%'), QLatin1Char('_')})
        pattern.replace(special, QLatin1Char('\\') + QString(special));
    return QLatin1Char('%') + pattern + QLatin1Char('%');
}

// As both engines fold it: A to Z only.
QString Folded(QString text)
{
    for (QChar &unit : text)
        if (unit >= QLatin1Char('A') && unit <= QLatin1Char('Z'))
            unit = unit.toLower();
    return text;
}

// All three characters in a row must be there, each in quotes. Phrases would need an index that is
// several times as large.
QString TrigramsOf(const QString &text)
{
    QVector<int> begins; // of characters, whose surrogates come in pairs here
    for (int i = 0; i < text.size(); ++i)
        if (!text.at(i).isLowSurrogate())
            begins.append(i);
    begins.append(text.size());
    const int count = begins.size() - kTrigram;
    const int taken = std::min(count, kMostTrigrams);
    QStringList all;
    for (int i = 0; i < taken; ++i) {
        const int first = taken == 1 ? 0 : i * (count - 1) / (taken - 1);
        const int begin = begins.at(first);
        QString trigram = text.mid(begin, begins.at(first + kTrigram) - begin);
        trigram.replace(QLatin1Char('"'), QLatin1String("\"\""));
        all.append(QLatin1Char('"') + trigram + QLatin1Char('"'));
    }
    return all.join(QLatin1String(" AND "));
}

// PostgreSQL's trigrams are of letters and digits only.
bool HasWord(const QString &text)
{
    int run = 0;
    for (const uint character : text.toUcs4()) {
        run = QChar::isLetterOrNumber(character) ? run + 1 : 0;
        if (run == kTrigram)
            return true;
    }
    return false;
}

} // namespace

IncidentFilter MakeIncidentFilter(Engine engine, int columns, const QString &text)
{
    IncidentFilter filter;
    filter.text = StoredCell(text);
    if (text.isEmpty())
        return filter;
    const QString pattern = PatternOf(Folded(filter.text));
    // The cells as one text are what the index of PostgreSQL is of; a text with the separator in it
    // could be found across two cells.
    if (engine == Engine::Postgres && !filter.text.contains(QChar(kSeparator))) {
        filter.condition = QStringLiteral(" AND %1 LIKE ?").arg(IncidentCells(columns));
        filter.values = {pattern};
        filter.is_indexed = HasWord(filter.text);
        return filter;
    }
    QStringList conditions;
    for (int column = 0; column < columns; ++column) {
        conditions.append(QStringLiteral("lower(c%1) LIKE ? ESCAPE '\\'").arg(column));
        if (engine == Engine::Sqlite) // whose LIKE folds by itself
            conditions.last() = QStringLiteral("c%1 LIKE ? ESCAPE '\\'").arg(column);
        filter.values.append(pattern);
    }
    filter.condition = QStringLiteral(" AND (%1)").arg(conditions.join(QLatin1String(" OR ")));
    filter.is_indexed = engine == Engine::Sqlite && filter.text.toUcs4().size() >= kTrigram;
    if (filter.is_indexed)
        filter.trigrams = TrigramsOf(filter.text);
    return filter;
}

} // namespace Server
