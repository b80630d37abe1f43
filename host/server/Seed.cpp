// SPDX-License-Identifier: MIT
#include "AccountRecords.h"
#include "Records.h"
#include "SampleAccounts.h"
#include "Store.h"

#include <CsvParse/CsvParse.h>

#include <QtCore/QFile>
#include <QtCore/QStringList>

#include <vector>

namespace Server {
namespace {

constexpr int kMaximumColumns = 100;
constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

using Rows = std::vector<QStringList>;

Rows ReadCsv(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw DatabaseError(QStringLiteral("%1: %2").arg(path, file.errorString()).toStdString());
    const QByteArray bytes = file.readAll();
    const int begin = bytes.startsWith(kByteOrderMark) ? int(sizeof kByteOrderMark) - 1 : 0;
    struct
    {
        Rows rows;
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
    if (read.rows.empty() || read.rows.front().size() > kMaximumColumns)
        throw DatabaseError(QStringLiteral("%1 holds no list").arg(path).toStdString());
    return read.rows;
}

void SeedIncidents(CStore &store, const Rows &rows)
{
    const QStringList &titles = rows.front();
    QStringList columns;
    QStringList names;
    QStringList marks;
    for (int column = 0; column < titles.size(); ++column) {
        store.Run(QStringLiteral("INSERT INTO incident_title VALUES (?, ?)"),
                  {column, titles.at(column)});
        columns.append(QStringLiteral("c%1 {text} NOT NULL").arg(column));
        names.append(QStringLiteral("c%1").arg(column));
        marks.append(QStringLiteral("?"));
    }
    store.Execute(QStringLiteral("CREATE TABLE incident (id {id}, %1)")
                      .arg(columns.join(QLatin1String(", "))));
    const QString insert =
        QStringLiteral("INSERT INTO incident (%1) VALUES (%2)")
            .arg(names.join(QLatin1String(", ")), marks.join(QLatin1String(", ")));
    for (size_t row = 1; row < rows.size(); ++row) {
        QVariantList values;
        for (int column = 0; column < titles.size(); ++column)
            values.append(rows[row].value(column, QLatin1String("")));
        store.Run(insert, values);
    }
}

} // namespace

void Seed(CStore &store, const QString &path)
{
    const QString accounts = QStringLiteral("SELECT count(*) FROM account");
    if (store.Value(accounts).toInt() > 0)
        return;
    const Rows rows = ReadCsv(path);
    QVariantList hashes; // each takes its time, so outside the transaction
    for (const SampleAccount &account : kSampleAccounts)
        hashes.append(HashPassword(account.password));
    store.Write([&] {
        store.Lock(kMigrationLock, QStringLiteral("seed"));
        if (store.Value(accounts).toInt() > 0)
            return; // another process has been quicker
        int next = 0;
        for (const SampleAccount &account : kSampleAccounts)
            store.Run(QStringLiteral("INSERT INTO account (name, password) VALUES (?, ?)"),
                      {QLatin1String(account.name), hashes.at(next++)});
        SeedIncidents(store, rows);
    });
}

} // namespace Server
