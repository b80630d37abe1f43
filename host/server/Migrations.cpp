// SPDX-License-Identifier: MIT
#include "Migrations.h"

#include "IncidentTable.h"
#include "LongWork.h"
#include "Store.h"

namespace Server {
namespace {

// The tables of the first version were made without a number: "IF NOT EXISTS" takes such a file as
// it is.
void MakeTables(CStore &store)
{
    for (const char *const statement : {
             "CREATE TABLE IF NOT EXISTS account (id {id}, name {text} NOT NULL UNIQUE, "
             "password {text} NOT NULL)",
             "CREATE TABLE IF NOT EXISTS session (token {blob} PRIMARY KEY, account BIGINT NOT "
             "NULL REFERENCES account ON DELETE CASCADE, expires BIGINT NOT NULL) {without rowid}",
             "CREATE TABLE IF NOT EXISTS attempt (address {text}, name {text}, failures INTEGER "
             "NOT NULL, until BIGINT NOT NULL, PRIMARY KEY (address, name)) {without rowid}",
             "CREATE TABLE IF NOT EXISTS familiar (address {text}, name {text}, until BIGINT NOT "
             "NULL, PRIMARY KEY (address, name)) {without rowid}",
             "CREATE TABLE IF NOT EXISTS setting (name {text} PRIMARY KEY, value INTEGER NOT NULL) "
             "{without rowid}",
             "CREATE TABLE IF NOT EXISTS layout (account BIGINT NOT NULL REFERENCES account ON "
             "DELETE CASCADE, name {text} NOT NULL, type INTEGER NOT NULL, text {text} NOT NULL, "
             "PRIMARY KEY (account, name, type))",
             "CREATE TABLE IF NOT EXISTS incident_title (position INTEGER PRIMARY KEY, title "
             "{text} "
             "NOT NULL)",
         })
        store.Execute(QLatin1String(statement));
}

void MakeVerifyCodes(CStore &store)
{
    for (const char *const statement : {
             "CREATE TABLE verify_code (id {id}, address {text} NOT NULL, name {text} NOT NULL, "
             "mark {blob} NOT NULL UNIQUE, text {blob} NOT NULL, expires BIGINT NOT NULL)",
             "CREATE INDEX verify_code_address ON verify_code (address, name)",
             "CREATE INDEX session_account ON session (account, expires)",
         })
        store.Execute(QLatin1String(statement));
}

// In order; the first is number 1. Steps that were released are never changed.
constexpr void (*kSteps[])(CStore &) = {MakeTables, MakeVerifyCodes, MigrateIncidents,
                                        MigrateIncidentKeys};
constexpr int kNewest = int(sizeof kSteps / sizeof *kSteps);

int VersionOf(CStore &store)
{
    return store.HasTable(QStringLiteral("schema_version"))
               ? store.Value(QStringLiteral("SELECT max(number) FROM schema_version")).toInt()
               : 0;
}

void Migrate(CStore &store)
{
    if (VersionOf(store) == kNewest)
        return;
    const CLongWork work(store); // another process may be filling new tables
    store.Write([&store] {
        store.Lock(kMigrationLock, QStringLiteral("schema_version"));
        int version = VersionOf(store);
        if (version > kNewest)
            throw DatabaseError("a newer version of the program has changed the database");
        if (version == 0)
            store.Execute(
                QStringLiteral("CREATE TABLE schema_version (number INTEGER PRIMARY KEY)"));
        for (; version < kNewest; ++version) {
            kSteps[version](store);
            store.Run(QStringLiteral("INSERT INTO schema_version VALUES (?)"), {version + 1});
        }
    });
}

} // namespace

std::unique_ptr<CStore> OpenStore(const StoreAddress &address)
{
    auto store = std::make_unique<CStore>(address);
    Migrate(*store);
    return store;
}

} // namespace Server
