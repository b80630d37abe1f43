// SPDX-License-Identifier: MIT
#include "Attempts.h"

#include "Database.h"

#include <algorithm>
#include <array>

namespace Server {
namespace {

// So many times as often as one user from one address may an address fail for all users, and a user
// from all addresses.
constexpr int kAddressFactor = 4;
constexpr int kUserFactor = 10;
// So long after a right password its address is the user's own.
constexpr qint64 kFamiliar_s = qint64(30) * 24 * 60 * 60;

// A counter of the table. An empty text means all addresses, or all users.
struct Counter
{
    QString address;
    QString user;
    int factor;
    Lock lock;
};

std::array<Counter, 3> CountersOf(const Trier &trier)
{
    const QString all = QLatin1String("");
    return {{{trier.address, all, kAddressFactor, Lock::Address},
             {all, trier.user, kUserFactor, Lock::User},
             {trier.address, trier.user, 1, Lock::User}}};
}

bool IsFamiliar(CDatabase &database, const Trier &trier, qint64 now)
{
    return database
        .Value(
            QStringLiteral("SELECT 1 FROM familiar WHERE address = ? AND name = ? AND until > ?"),
            {trier.address, trier.user, now})
        .isValid();
}

} // namespace

Standing StandingOf(CDatabase &database, const LockSettings &settings, const Trier &trier,
                    qint64 now, int own)
{
    Standing standing;
    if (!settings.is_limited)
        return standing;
    for (const Counter &counter : CountersOf(trier)) {
        QSqlQuery query =
            database.Run(QStringLiteral("SELECT failures, until - ? FROM attempt WHERE address = ? "
                                        "AND name = ? AND until > ?"),
                         {now, counter.address, counter.user, now});
        if (!query.next())
            continue;
        const int failures = query.value(0).toInt() - own;
        if (counter.factor == 1)
            standing.failures = std::max(0, failures);
        if (failures < settings.failures * counter.factor)
            continue;
        // Strangers must not be able to lock a user out of his own place.
        if (counter.factor == kUserFactor && IsFamiliar(database, trier, now))
            continue;
        standing.lock = counter.lock; // the closest lock comes last
        standing.lock_left_s = std::max(standing.lock_left_s, query.value(1).toLongLong());
    }
    standing.remaining = std::max(0, settings.failures - standing.failures);
    return standing;
}

void CountTry(CDatabase &database, const LockSettings &settings, const Trier &trier, qint64 now)
{
    if (!settings.is_limited)
        return;
    database.Run(QStringLiteral("DELETE FROM attempt WHERE until <= ?"), {now});
    for (const Counter &counter : CountersOf(trier)) {
        database.Run(
            QStringLiteral("INSERT INTO attempt VALUES (?, ?, 1, ?) ON CONFLICT (address, name) DO "
                           "UPDATE SET failures = attempt.failures + 1, until = excluded.until"),
            {counter.address, counter.user, now + settings.lock_s});
    }
}

void TakeBackTry(CDatabase &database, const Trier &trier, qint64 now)
{
    for (const Counter &counter : CountersOf(trier)) {
        database.Run(counter.factor == 1
                         ? QStringLiteral("DELETE FROM attempt WHERE address = ? AND name = ?")
                         : QStringLiteral("UPDATE attempt SET failures = max(0, failures - "
                                          "ifnull((SELECT failures FROM attempt WHERE address = ? "
                                          "AND name = ?), 1)) WHERE address = ? AND name = ?"),
                     counter.factor == 1
                         ? QVariantList{trier.address, trier.user}
                         : QVariantList{trier.address, trier.user, counter.address, counter.user});
    }
    database.Run(QStringLiteral("DELETE FROM familiar WHERE until <= ?"), {now});
    database.Run(QStringLiteral("INSERT OR REPLACE INTO familiar VALUES (?, ?, ?)"),
                 {trier.address, trier.user, now + kFamiliar_s});
}

} // namespace Server
