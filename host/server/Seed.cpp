// SPDX-License-Identifier: MIT
#include "AccountRecords.h"
#include "IncidentLoad.h"
#include "Records.h"
#include "SampleAccounts.h"
#include "Store.h"

#include <algorithm>

namespace Server {

void Seed(CStore &store, const QString &path, qint64 rows, const IncidentProgress &progress)
{
    const QString accounts = QStringLiteral("SELECT count(*) FROM account");
    const bool is_empty = store.Value(accounts).toInt() == 0;
    if (!is_empty && ReadIncidentState(store).is_ready)
        return;
    const IncidentRows sample = ReadIncidentCsv(path);
    if (is_empty) {
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
            const qint64 all = qint64(sample.size()) - 1;
            CreateIncidents(store, sample.front(), all > 0 && rows > 0 ? rows : all);
        });
    }
    LoadIncidents(store, sample, progress);
}

} // namespace Server
