// SPDX-License-Identifier: MIT
#include "AccountRecords.h"

#include "Message.h"
#include "SampleAccounts.h"
#include "Sessions.h"
#include "Store.h"

#include <sodium.h>

#include <array>
#include <new>

namespace Server {

QString HashPassword(const std::string &password)
{
    std::array<char, crypto_pwhash_STRBYTES> hash{};
    if (crypto_pwhash_str(hash.data(), password.data(), password.size(),
                          crypto_pwhash_OPSLIMIT_INTERACTIVE, crypto_pwhash_MEMLIMIT_INTERACTIVE)
        != 0)
        throw std::bad_alloc();
    return QLatin1String(hash.data());
}

bool IsRightPassword(const QString &hash, const std::string &password)
{
    return crypto_pwhash_str_verify(hash.toLatin1().constData(), password.data(), password.size())
           == 0;
}

QString PasswordHashOf(CStore &store, const QString &name)
{
    return store.Value(QStringLiteral("SELECT password FROM account WHERE name = ?"), {name})
        .toString();
}

QString AnyPasswordHash(CStore &store)
{
    return store.Value(QStringLiteral("SELECT password FROM account LIMIT 1")).toString();
}

void SetAccount(CStore &store, const QString &name, const std::string &password)
{
    if (name.isEmpty() || size_t(name.toUtf8().size()) > kMaximumName || password.empty()
        || password.size() > kMaximumPassword)
        throw Refused(kBadRequest);
    const QString hash = HashPassword(password);
    store.Write([&] {
        store.Lock(kUserLock, name); // no login with the old password ends meanwhile
        store.Run(
            QStringLiteral("INSERT INTO account (name, password) VALUES (?, ?) ON CONFLICT (name) "
                           "DO UPDATE SET password = excluded.password"),
            {name, hash});
        CSessions::EndAll(store, name);
    });
}

QStringList OpenSampleAccounts(CStore &store)
{
    QStringList names;
    for (const SampleAccount &account : kSampleAccounts) {
        const QString name = QLatin1String(account.name);
        const QString hash = PasswordHashOf(store, name);
        if (!hash.isEmpty() && IsRightPassword(hash, account.password))
            names.append(name);
    }
    return names;
}

} // namespace Server
