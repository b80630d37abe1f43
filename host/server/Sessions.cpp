// SPDX-License-Identifier: MIT
#include "Sessions.h"

#include "Message.h"
#include "Secrets.h"
#include "Store.h"

namespace Server {
namespace {

constexpr qint64 kLifeS = 12LL * 60 * 60;
constexpr int kMaximumSessions = 100; // of one account

QByteArray HashOfToken(const std::string &token)
{
    return HashOf(QByteArray::fromRawData(token.data(), int(token.size())));
}

} // namespace

QString CSessions::Begin(CStore &store, const QString &name, qint64 now)
{
    QString token = NewSecret();
    const QVariant account =
        store.Value(QStringLiteral("SELECT id FROM account WHERE name = ?"), {name});
    store.Run(QStringLiteral("INSERT INTO session VALUES (?, ?, ?)"),
              {HashOf(token.toLatin1()), account, now + kLifeS});
    store.Run(QStringLiteral("DELETE FROM session WHERE account = ? AND token NOT IN (SELECT token "
                             "FROM session WHERE account = ? ORDER BY expires DESC LIMIT ?)"),
              {account, account, kMaximumSessions});
    return token;
}

qint64 CSessions::AccountOf(CStore &store, const std::string &token, qint64 now) const
{
    const QByteArray hash = HashOfToken(token);
    const QVariant account =
        ended_.count(hash) != 0
            ? QVariant()
            : store.Value(
                QStringLiteral("SELECT account FROM session WHERE token = ? AND expires > ?"),
                {hash, now});
    if (!account.isValid())
        throw Refused(kUnauthorized);
    return account.toLongLong();
}

void CSessions::End(CStore &store, const std::string &token)
{
    ended_.insert(HashOfToken(token));
    WriteEnded(store);
}

void CSessions::WriteEnded(CStore &store)
{
    if (ended_.empty())
        return;
    store.Write([&] {
        for (const QByteArray &hash : ended_)
            store.Run(QStringLiteral("DELETE FROM session WHERE token = ?"), {hash});
    });
    ended_.clear();
}

void CSessions::EndAll(CStore &store, const QString &name)
{
    store.Run(QStringLiteral("DELETE FROM session WHERE account = (SELECT id FROM account WHERE "
                             "name = ?)"),
              {name});
}

} // namespace Server
