// SPDX-License-Identifier: MIT
#include "IncidentTable.h"

#include "Store.h"

#include <sodium.h>

#include <algorithm>

namespace Server {
namespace {

constexpr size_t kInsertedAtOnce = 128;  // rows of one statement
constexpr qint64 kTextsAtOnce = 200'000; // rows of one transaction
constexpr int kSecretBytes = crypto_generichash_KEYBYTES;
constexpr char kSeparator[] = " || '\x1f' || ";

// PostgreSQL has no cast that reads the number at the beginning of a text. A cast that overflows
// would be an error, so large exponents are settled before it.
const char *const kNumberFunction =
    "CREATE OR REPLACE FUNCTION incident_number(cell TEXT) RETURNS DOUBLE PRECISION "
    "LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$\n"
    "DECLARE\n"
    "    parts TEXT[];\n"
    "    exact NUMERIC;\n"
    "BEGIN\n"
    "    IF cell !~ '^[ \\t\\n\\v\\f\\r]*[-+]?\\.?[0-9]' THEN RETURN 0; END IF;\n"
    "    parts := regexp_match(cell, '^[ \\t\\n\\v\\f\\r]*([-+]?([0-9]+\\.?[0-9]*|\\.[0-9]+))"
    "([eE]([-+]?)0*([0-9]+))?');\n"
    "    exact := CAST(parts[1] AS NUMERIC);\n"
    "    IF exact = 0 OR parts[3] IS NULL THEN RETURN CAST(exact AS DOUBLE PRECISION); END IF;\n"
    "    IF length(parts[5]) < 4 THEN\n"
    "        exact := CAST(parts[1] || 'e' || parts[4] || parts[5] AS NUMERIC);\n"
    "    ELSIF parts[4] = '-' THEN\n"
    "        RETURN 0;\n"
    "    ELSE\n"
    "        exact := sign(exact) * 1e400;\n"
    "    END IF;\n"
    "    IF abs(exact) < 2.4703282292062328e-324 THEN RETURN 0; END IF;\n"
    "    IF abs(exact) > 1.7976931348623158e308 THEN\n"
    "        RETURN sign(exact) * CAST('Infinity' AS DOUBLE PRECISION);\n"
    "    END IF;\n"
    "    RETURN CAST(exact AS DOUBLE PRECISION);\n"
    "END $$";

QStringList ColumnNames(int columns)
{
    QStringList names;
    for (int column = 0; column < columns; ++column)
        names.append(QStringLiteral("c%1").arg(column));
    return names;
}

void InsertRows(CStore &store, qint64 first_id, const IncidentRows &rows, int columns)
{
    const QStringList marks = QVector<QString>(columns + 1, QStringLiteral("?")).toList();
    const QString row_marks = QLatin1Char('(') + marks.join(QLatin1Char(',')) + QLatin1Char(')');
    size_t next = 0;
    // Few different statements: each is prepared once.
    for (size_t count = kInsertedAtOnce; count > 0; count /= 2) {
        const QString statement = QStringLiteral("INSERT INTO incident (id, %1) VALUES ")
                                      .arg(ColumnNames(columns).join(QLatin1Char(',')))
                                  + row_marks
                                  + (QLatin1Char(',') + row_marks).repeated(int(count) - 1);
        for (; rows.size() - next >= count;) {
            QVariantList values;
            for (size_t i = 0; i < count; ++i, ++next) {
                values.append(first_id + qint64(next));
                for (int column = 0; column < columns; ++column)
                    values.append(StoredCell(rows[next].value(column, QLatin1String(""))));
            }
            store.Run(statement, values);
        }
    }
}

// In a transaction that is first in line until its end. \return the number of rows before.
qint64 CountRows(CStore &store, size_t more)
{
    const qint64 rows =
        store.Value(QStringLiteral("SELECT row_count FROM incident_state {for update}"))
            .toLongLong();
    store.Run(QStringLiteral("UPDATE incident_state SET row_count = ?"), {rows + qint64(more)});
    return rows;
}

// The text index of SQLite is a table of its own, without the texts.
void AddTexts(CStore &store, qint64 after, qint64 until, int columns)
{
    store.Run(QStringLiteral("INSERT INTO incident_text (rowid, cells) SELECT id, %1 FROM incident "
                             "WHERE id > ? AND id <= ?")
                  .arg(IncidentCells(columns)),
              {after, until});
    store.Run(QStringLiteral("UPDATE incident_state SET text_count = ?"), {until});
}

void MakeTextIndex(CStore &store, int columns, qint64 rows, const IncidentProgress &progress)
{
    if (store.Kind() == Engine::Postgres) {
        store.Execute(QStringLiteral("CREATE INDEX IF NOT EXISTS incident_text ON incident USING "
                                     "gin ((%1) gin_trgm_ops)")
                          .arg(IncidentCells(columns)));
        // More samples let the planner distinguish rare texts from frequent ones.
        store.Execute(
            QStringLiteral("ALTER INDEX incident_text ALTER COLUMN 1 SET STATISTICS 1000"));
        return;
    }
    const auto add_some = [&] {
        // Read in the transaction, because another process may be indexing the same rows.
        const qint64 done =
            store.Value(QStringLiteral("SELECT text_count FROM incident_state")).toLongLong();
        if (progress && done < rows)
            progress("indexing texts", done, rows);
        if (done < rows)
            AddTexts(store, done, std::min(done + kTextsAtOnce, rows), columns);
        return done < rows;
    };
    while (store.Write(add_some)) {
    }
}

void AddKeyColumns(CStore &store, int columns)
{
    QStringList added;
    for (int column = 0; column < columns; ++column)
        added.append(
            QStringLiteral("ADD COLUMN IF NOT EXISTS number%1 DOUBLE PRECISION GENERATED ALWAYS "
                           "AS (incident_number(substr(c%1, 1, 256))) STORED, "
                           "ADD COLUMN IF NOT EXISTS text%1 {text} GENERATED ALWAYS "
                           "AS (lower(substr(c%1, 1, 256))) STORED")
                .arg(column));
    store.Execute(QStringLiteral("ALTER TABLE incident ") + added.join(QLatin1String(", ")));
}

void RequireTrigrams(CStore &store)
{
    if (store.Kind() != Engine::Postgres)
        return;
    try {
        store.Execute(QStringLiteral("CREATE EXTENSION IF NOT EXISTS pg_trgm"));
    } catch (const StoreUnreachable &) {
        throw;
    } catch (const DatabaseError &failure) {
        throw DatabaseError(
            std::string("the incident list needs PostgreSQL's extension pg_trgm, of "
                        "its package \"contrib\"; a role with the right to do so "
                        "runs CREATE EXTENSION pg_trgm in this database: ")
            + failure.what());
    }
}

// Numbers of rows without gaps, also where some were removed by hand.
void CloseGaps(CStore &store)
{
    store.Execute(QStringLiteral(
        "UPDATE incident SET id = -dense.place FROM (SELECT id AS old, row_number() OVER (ORDER BY "
        "id) AS place FROM incident) AS dense WHERE incident.id = dense.old"));
    store.Execute(QStringLiteral("UPDATE incident SET id = -id"));
}

} // namespace

QString StoredCell(QString text)
{
    // At the beginning of a text SQLite takes both for byte order marks: it drops the first, and
    // swaps the bytes of all characters behind the second.
    constexpr ushort kByteOrderMark = 0xfeff;
    constexpr ushort kTurnedMark = 0xfffe;
    constexpr ushort kNoCharacter = 0xffff;
    while (text.startsWith(QChar(kByteOrderMark)))
        text.remove(0, 1);
    if (text.isEmpty())
        return QLatin1String(""); // not null, which would be NULL
    for (int i = 0; i < text.size(); ++i) {
        const QChar unit = text.at(i);
        const bool is_pair =
            unit.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (is_pair)
            ++i;
        else if (unit.isNull() || unit.isSurrogate() || unit == QChar(kTurnedMark)
                 || unit == QChar(kNoCharacter))
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

QString IncidentNumber(Engine engine, int column)
{
    return (engine == Engine::Sqlite ? QStringLiteral("CAST(substr(c%1, 1, 256) AS REAL)")
                                     : QStringLiteral("number%1"))
        .arg(column);
}

QString IncidentText(Engine engine, int column)
{
    return (engine == Engine::Sqlite ? QStringLiteral("lower(substr(c%1, 1, 256))")
                                     : QStringLiteral("text%1"))
        .arg(column);
}

QString IncidentCells(int columns)
{
    return QStringLiteral("lower(%1)").arg(ColumnNames(columns).join(QLatin1String(kSeparator)));
}

IncidentState ReadIncidentState(CStore &store)
{
    IncidentState state;
    CRows rows = store.Run(QStringLiteral("SELECT row_count, goal, is_ready, secret FROM "
                                          "incident_state"));
    if (rows.Next()) {
        state.row_count = rows.Value(0).toLongLong();
        state.goal = rows.Value(1).toLongLong();
        state.is_ready = rows.Value(2).toInt() == 1;
        state.secret = rows.Value(3).toByteArray();
    }
    return state;
}

QStringList ReadIncidentTitles(CStore &store)
{
    QStringList titles;
    CRows rows = store.Run(QStringLiteral("SELECT title FROM incident_title ORDER BY position"));
    while (rows.Next())
        titles.append(rows.Value(0).toString());
    return titles;
}

void MigrateIncidents(CStore &store)
{
    store.Execute(QStringLiteral(
        "CREATE TABLE incident_state (id INTEGER PRIMARY KEY, row_count BIGINT NOT NULL, "
        "text_count BIGINT NOT NULL, goal BIGINT NOT NULL, is_ready INTEGER NOT NULL, "
        "secret {blob} NOT NULL)"));
    QByteArray secret(kSecretBytes, '\0');
    randombytes_buf(secret.data(), size_t(secret.size()));
    store.Run(QStringLiteral("INSERT INTO incident_state VALUES (1, 0, 0, 0, 1, ?)"), {secret});
    if (store.Kind() == Engine::Postgres)
        store.Execute(QLatin1String(kNumberFunction));
    if (!store.HasTable(QStringLiteral("incident")))
        return;
    const qint64 rows = store.Value(QStringLiteral("SELECT count(*) FROM incident")).toLongLong();
    if (store.Value(QStringLiteral("SELECT max(id) FROM incident")).toLongLong() != rows)
        CloseGaps(store);
    store.Run(QStringLiteral("UPDATE incident_state SET is_ready = 0, row_count = ?, goal = ?"),
              {rows, rows});
}

void MigrateIncidentKeys(CStore &store)
{
    const int columns = ReadIncidentTitles(store).size();
    if (store.Kind() == Engine::Sqlite || columns == 0)
        return;
    for (int column = 0; column < columns; ++column)
        store.Execute(QStringLiteral("DROP INDEX IF EXISTS incident_c%1").arg(column));
    store.Run(QStringLiteral("UPDATE incident_state SET is_ready = 0"));
}

void CreateIncidents(CStore &store, const QStringList &titles, qint64 goal)
{
    RequireTrigrams(store);
    for (int column = 0; column < titles.size(); ++column)
        store.Run(QStringLiteral("INSERT INTO incident_title VALUES (?, ?)"),
                  {column, StoredCell(titles.at(column))});
    QStringList columns = ColumnNames(titles.size());
    for (QString &column : columns)
        column += QStringLiteral(" {text} NOT NULL");
    store.Execute(QStringLiteral("CREATE TABLE incident (id {id}, %1)")
                      .arg(columns.join(QLatin1String(", "))));
    store.Run(QStringLiteral("UPDATE incident_state SET is_ready = 0, goal = ?"), {goal});
}

void AddIncidents(CStore &store, const IncidentRows &rows)
{
    const int columns = ReadIncidentTitles(store).size();
    store.Write([&] { InsertRows(store, CountRows(store, rows.size()) + 1, rows, columns); });
}

void FinishIncidents(CStore &store, const IncidentProgress &progress)
{
    const int columns = ReadIncidentTitles(store).size();
    const IncidentState state = ReadIncidentState(store);
    if (state.is_ready || columns == 0)
        return;
    const Engine engine = store.Kind();
    RequireTrigrams(store);
    store.Execute(engine == Engine::Sqlite
                      ? QStringLiteral("CREATE VIRTUAL TABLE IF NOT EXISTS incident_text USING "
                                       "fts5(cells, content='', detail=none, columnsize=0, "
                                       "tokenize='trigram')")
                      : QStringLiteral("SET maintenance_work_mem = '256MB'"));
    if (engine == Engine::Postgres)
        AddKeyColumns(store, columns); // first: it writes all rows again
    MakeTextIndex(store, columns, state.row_count, progress);
    for (int column = 0; column < columns; ++column) {
        if (progress)
            progress("indexing columns", column, columns);
        store.Execute(
            QStringLiteral("CREATE INDEX IF NOT EXISTS incident_c%1 ON incident (%2, %3%4)")
                .arg(column)
                .arg(IncidentNumber(engine, column), IncidentText(engine, column),
                     engine == Engine::Sqlite ? QString() : QStringLiteral(", id")));
    }
    if (engine == Engine::Postgres)
        store.Execute(QStringLiteral("VACUUM (ANALYZE) incident"));
    store.Write([&] { store.Run(QStringLiteral("UPDATE incident_state SET is_ready = 1")); });
    if (progress)
        progress("ready", state.row_count, state.row_count);
}

qint64 AppendIncidents(CStore &store, const IncidentRows &rows)
{
    const int columns = ReadIncidentTitles(store).size();
    return store.Write([&] {
        const qint64 before = CountRows(store, rows.size());
        const qint64 after = before + qint64(rows.size());
        InsertRows(store, before + 1, rows, columns);
        if (store.Kind() == Engine::Sqlite)
            AddTexts(store, before, after, columns);
        return after;
    });
}

IncidentRows ReadIncidentRows(CStore &store, qint64 after, int count)
{
    const int columns = ReadIncidentTitles(store).size();
    CRows read =
        store.Run(QStringLiteral("SELECT %1 FROM incident WHERE id > ? ORDER BY id LIMIT ?")
                      .arg(ColumnNames(columns).join(QLatin1Char(','))),
                  {after, count});
    IncidentRows rows;
    while (read.Next()) {
        QStringList row;
        for (int column = 0; column < columns; ++column)
            row.append(read.Value(column).toString());
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace Server
