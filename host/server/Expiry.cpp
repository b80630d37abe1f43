// SPDX-License-Identifier: MIT
#include "Expiry.h"

#include "Store.h"

namespace Server {
namespace {

struct Expiring
{
    const char *table;
    const char *key;
    const char *end;
};

constexpr Expiring kExpiring[] = {
    {"attempt", "address, name", "until"},
    {"familiar", "address, name", "until"},
    {"session", "token", "expires"},
    {"verify_code", "id", "expires"},
};

} // namespace

void DropExpired(CStore &store, qint64 now)
{
    store.Write([&store, now] {
        for (const Expiring &expiring : kExpiring) {
            // Rows that another transaction holds are left for the next time.
            store.Run(
                QStringLiteral("DELETE FROM %1 WHERE (%2) IN (SELECT %2 FROM %1 WHERE %3 <= ? "
                               "{skip locked})")
                    .arg(QLatin1String(expiring.table), QLatin1String(expiring.key),
                         QLatin1String(expiring.end)),
                {now});
        }
    });
}

} // namespace Server
