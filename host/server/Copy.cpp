// SPDX-License-Identifier: MIT
#include "Copy.h"

#include "IncidentLoad.h"
#include "LongWork.h"
#include "Store.h"

#include <QtCore/QStringList>

namespace Server {
namespace {

constexpr int kValuesAtATime = 1000; // of a statement that inserts rows
constexpr int kLongRowsAtATime = 10; // their texts may be long
constexpr qint64 kRowsPerReport = 100'000;

struct Table
{
    QString name;
    QStringList key; // in whose order it is read
    QStringList columns;
    int rows_at_a_time;
};

QStringList Words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

Table TableOf(const char *name, const char *key, const char *columns)
{
    const QStringList words = Words(columns);
    return {QLatin1String(name), Words(key), words, kValuesAtATime / words.size()};
}

// Tables that others refer to come first.
std::vector<Table> TablesOf(CStore &store)
{
    std::vector<Table> tables{
        TableOf("account", "id", "id name password"),
        TableOf("session", "token", "token account expires"),
        TableOf("attempt", "address name", "address name failures until"),
        TableOf("familiar", "address name", "address name until"),
        TableOf("verify_code", "id", "id address name mark text expires"),
        TableOf("setting", "name", "name value"),
        TableOf("layout", "account name type", "account name type text"),
        TableOf("incident_title", "position", "position title"),
    };
    QString columns = QStringLiteral("id");
    const int titles = store.Value(QStringLiteral("SELECT count(*) FROM incident_title")).toInt();
    for (int column = 0; column < titles; ++column)
        columns += QStringLiteral(" c%1").arg(column);
    if (titles > 0)
        tables.push_back(TableOf("incident", "id", columns.toLatin1().constData()));
    for (Table &table : tables)
        if (table.name == QLatin1String("layout"))
            table.rows_at_a_time = kLongRowsAtATime;
    return tables;
}

QString Repeated(const QString &text, int count)
{
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts.append(text);
    return texts.join(QLatin1String(", "));
}

bool HasRows(CStore &store, const Table &table)
{
    return store.HasTable(table.name)
           && store.Value(QStringLiteral("SELECT 1 FROM %1 LIMIT 1").arg(table.name)).isValid();
}

// The cells of the next rows, in one list. \a last is the key of the last row before them, and
// becomes that of the last of them; at the beginning it is empty.
QVariantList ReadSome(CStore &store, const Table &table, QVariantList &last)
{
    const QString key = table.key.join(QLatin1String(", "));
    const QString where = last.isEmpty()
                              ? QString()
                              : QStringLiteral("WHERE (%1) > (%2)")
                                    .arg(key, Repeated(QStringLiteral("?"), table.key.size()));
    QVariantList values;
    CRows rows = store.Run(QStringLiteral("SELECT %1 FROM %2 %3 ORDER BY %4 LIMIT %5")
                               .arg(table.columns.join(QLatin1String(", ")), table.name, where, key)
                               .arg(table.rows_at_a_time),
                           last);
    while (rows.Next()) {
        for (int column = 0; column < table.columns.size(); ++column)
            values.append(rows.Value(column));
    }
    if (!values.isEmpty())
        last.clear();
    for (const QString &column : table.key)
        if (!values.isEmpty())
            last.append(
                values.at(values.size() - table.columns.size() + table.columns.indexOf(column)));
    return values;
}

void Insert(CStore &store, const Table &table, const QVariantList &values)
{
    const int width = table.columns.size();
    const QString row = QStringLiteral("(%1)").arg(Repeated(QStringLiteral("?"), width));
    store.Run(QStringLiteral("INSERT INTO %1 (%2) VALUES %3")
                  .arg(table.name, table.columns.join(QLatin1String(", ")),
                       Repeated(row, values.size() / width)),
              values);
}

// Makes the table whose columns depend on the list.
void MakeTable(CStore &store, const Table &table)
{
    QString columns = QStringLiteral("id {id}");
    for (int i = 1; i < table.columns.size(); ++i)
        columns += QStringLiteral(", %1 {text} NOT NULL").arg(table.columns.at(i));
    store.Execute(QStringLiteral("CREATE TABLE %1 (%2)").arg(table.name, columns));
}

void CopyTable(CStore &from, CStore &to, const Table &table, const CopyProgress &progress)
{
    qint64 copied = 0;
    QVariantList last;
    for (;;) {
        const QVariantList values = ReadSome(from, table, last);
        if (values.isEmpty())
            break;
        Insert(to, table, values);
        const qint64 reports = copied / kRowsPerReport;
        copied += values.size() / table.columns.size();
        if (progress && copied / kRowsPerReport != reports)
            progress(table.name, copied);
    }
    // Rows that come with a number do not move PostgreSQL's counter for the next number.
    if (to.Kind() == Engine::Postgres && table.columns.constFirst() == QLatin1String("id"))
        to.Run(QStringLiteral("SELECT setval(pg_get_serial_sequence('%1', 'id'), "
                              "(SELECT max(id) FROM %1))")
                   .arg(table.name));
    if (progress)
        progress(table.name, copied);
}

} // namespace

void CopyRows(CStore &from, CStore &to, const CopyProgress &progress)
{
    const CLongWork work(to);
    from.Read([&] {
        const std::vector<Table> tables = TablesOf(from);
        to.Write([&] {
            // A server that was started there has written its presets.
            to.Run(QStringLiteral("DELETE FROM setting"));
            for (const Table &table : tables) {
                if (HasRows(to, table))
                    throw DatabaseError("the target is not empty: it has rows in "
                                        + table.name.toStdString());
            }
            for (const Table &table : tables) {
                if (!to.HasTable(table.name))
                    MakeTable(to, table);
                try {
                    CopyTable(from, to, table, progress);
                } catch (const UnstorableText &failure) {
                    throw DatabaseError(table.name.toStdString() + ": " + failure.what());
                }
            }
            const IncidentState list = ReadIncidentState(from);
            if (!ReadIncidentTitles(from).isEmpty())
                to.Run(QStringLiteral("UPDATE incident_state SET is_ready = 0, row_count = ?, "
                                      "goal = ?"),
                       {list.row_count, list.goal});
        });
    });
    LoadIncidents(to, {}, [&progress](const char *what, qint64 done, qint64 /*total*/) {
        if (progress)
            progress(QLatin1String(what), done);
    });
}

} // namespace Server
