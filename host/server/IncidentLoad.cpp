// SPDX-License-Identifier: MIT
#include "IncidentLoad.h"

#include "LongWork.h"
#include "Store.h"

#include <CsvParse/CsvParse.h>

#include <QtCore/QDate>
#include <QtCore/QFile>

#include <algorithm>

namespace Server {
namespace {

constexpr qint64 kBatch = 20'000;
constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
constexpr int kDateCharacters = 10; // 2026-11-22

// Dates go on by one day with each round through the sample.
QString Moved(const QString &cell, qint64 days)
{
    const QDate date = cell.size() == kDateCharacters && cell.at(4) == QLatin1Char('-')
                           ? QDate::fromString(cell, Qt::ISODate)
                           : QDate();
    return date.isValid() ? date.addDays(days).toString(Qt::ISODate) : cell;
}

// Returns false when all rows are there. The state is read in the transaction, because another
// process may be loading into the same SQLite file.
bool AddSomeRows(CStore &store, const IncidentRows &sample, const IncidentProgress &progress)
{
    const IncidentState state = ReadIncidentState(store);
    if (state.row_count >= state.goal)
        return false;
    progress("loading rows", state.row_count, state.goal);
    IncidentRows rows;
    for (qint64 row = state.row_count; row < std::min(state.goal, state.row_count + kBatch); ++row)
        rows.push_back(IncidentSampleRow(sample, row));
    AddIncidents(store, rows);
    return true;
}

} // namespace

IncidentRows ReadIncidentCsv(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw DatabaseError(QStringLiteral("%1: %2").arg(path, file.errorString()).toStdString());
    const QByteArray bytes = file.readAll();
    const int begin = bytes.startsWith(kByteOrderMark) ? int(sizeof kByteOrderMark) - 1 : 0;
    struct
    {
        IncidentRows rows;
        QStringList fields;
    } read;
    const auto on_field = [](void *field, size_t length, void *data) {
        static_cast<decltype(read) *>(data)->fields.append(
            QString::fromUtf8(static_cast<const char *>(field), static_cast<int>(length)));
    };
    const auto on_row = [](int, void *data) {
        auto *const target = static_cast<decltype(read) *>(data);
        target->rows.push_back(target->fields);
        target->fields.clear();
    };
    csvparse_parser parser;
    csvparse_init(&parser, 0);
    csvparse_parse(&parser, bytes.constData() + begin, static_cast<size_t>(bytes.size() - begin),
                   on_field, on_row, &read);
    csvparse_fini(&parser, on_field, on_row, &read);
    csvparse_free(&parser);
    if (read.rows.empty() || read.rows.front().size() > kMaximumIncidentColumns)
        throw DatabaseError(QStringLiteral("%1 holds no list").arg(path).toStdString());
    return read.rows;
}

QStringList IncidentSampleRow(const IncidentRows &sample, qint64 number)
{
    const auto size = qint64(sample.size()) - 1;
    const qint64 round = number / size;
    const int columns = sample.front().size();
    if (round == 0)
        return sample[size_t(number) + 1];
    QStringList row;
    for (int column = 0; column < columns; ++column) {
        constexpr qint64 kStep = 6; // columns part by so many rows in each round
        const qint64 source = (number + round * (1 + kStep * column)) % size;
        row.append(Moved(sample[size_t(source) + 1].value(column), round));
    }
    return row;
}

void LoadIncidents(CStore &store, const IncidentRows &sample, const IncidentProgress &progress)
{
    IncidentState state = ReadIncidentState(store);
    const auto report = [&progress](const char *what, qint64 done, qint64 total) {
        if (progress)
            progress(what, done, total);
    };
    if (state.is_ready || !store.Value(QStringLiteral("{try to load}")).toBool())
        return;
    const CLongWork work(store);
    try {
        while (sample.size() > 1
               && store.Write([&] { return AddSomeRows(store, sample, report); })) {
        }
        state = ReadIncidentState(store);
        if (state.row_count >= state.goal)
            FinishIncidents(store, report);
    } catch (...) {
        store.Execute(QStringLiteral("{end loading}"));
        throw;
    }
    store.Execute(QStringLiteral("{end loading}"));
}

} // namespace Server
