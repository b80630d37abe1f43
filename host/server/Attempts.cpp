// SPDX-License-Identifier: MIT
#include "Attempts.h"

#include "Store.h"

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

bool IsFamiliar(CStore &store, const Trier &trier, qint64 now)
{
    return store
        .Value(
            QStringLiteral("SELECT 1 FROM familiar WHERE address = ? AND name = ? AND until > ?"),
            {trier.address, trier.user, now})
        .isValid();
}

} // namespace

Standing StandingOf(CStore &store, const LockSettings &settings, const Trier &trier, qint64 now,
                    int own)
{
    Standing standing;
    if (!settings.is_limited)
        return standing;
    for (const Counter &counter : CountersOf(trier)) {
        CRows query =
            store.Run(QStringLiteral("SELECT failures, until FROM attempt WHERE address = ? AND "
                                     "name = ? AND until > ?"),
                      {counter.address, counter.user, now});
        if (!query.Next())
            continue;
        const int failures = query.Value(0).toInt() - own;
        if (counter.factor == 1)
            standing.failures = std::max(0, failures);
        if (failures < settings.failures * counter.factor)
            continue;
        // Strangers must not be able to lock a user out of his own place.
        if (counter.factor == kUserFactor && IsFamiliar(store, trier, now))
            continue;
        standing.lock = counter.lock; // the closest lock comes last
        standing.lock_left_s = std::max(standing.lock_left_s, query.Value(1).toLongLong() - now);
    }
    standing.remaining = std::max(0, settings.failures - standing.failures);
    return standing;
}

void LockCounters(CStore &store, const Trier &trier)
{
    store.Lock(kAddressLock, trier.address);
    store.Lock(kUserLock, trier.user);
}

void CountTry(CStore &store, const LockSettings &settings, const Trier &trier, qint64 now)
{
    if (!settings.is_limited)
        return;
    for (const Counter &counter : CountersOf(trier)) {
        store.Run(
            QStringLiteral("INSERT INTO attempt VALUES (?, ?, 1, ?) ON CONFLICT (address, name) DO "
                           "UPDATE SET failures = CASE WHEN attempt.until > ? THEN "
                           "attempt.failures + 1 ELSE 1 END, until = excluded.until"),
            {counter.address, counter.user, now + settings.lock_s, now});
    }
}

void TakeBackTry(CStore &store, const Trier &trier, qint64 now)
{
    const QVariantList own{trier.address, trier.user};
    const QVariant counted = store.Value(
        QStringLiteral("SELECT failures FROM attempt WHERE address = ? AND name = ?"), own);
    const int failures = counted.isValid() ? counted.toInt() : 1;
    store.Run(QStringLiteral("DELETE FROM attempt WHERE address = ? AND name = ?"), own);
    for (const Counter &counter : CountersOf(trier))
        store.Run(QStringLiteral("UPDATE attempt SET failures = CASE WHEN failures > ? THEN "
                                 "failures - ? ELSE 0 END WHERE address = ? AND name = ?"),
                  {failures, failures, counter.address, counter.user});
    store.Run(QStringLiteral("INSERT INTO familiar VALUES (?, ?, ?) ON CONFLICT (address, name) DO "
                             "UPDATE SET until = excluded.until"),
              {trier.address, trier.user, now + kFamiliar_s});
}

} // namespace Server
