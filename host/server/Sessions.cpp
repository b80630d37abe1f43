// SPDX-License-Identifier: MIT
#include "Sessions.h"

#include "Database.h"
#include "Message.h"

#include <sodium.h>

#include <array>

namespace Server {
namespace {

constexpr qint64 kLifeS = 12LL * 60 * 60;
constexpr int kMaximumSessions = 100; // of one account
constexpr size_t kTokenBytes = 32;

QByteArray HashOf(const std::string &token)
{
    QByteArray hash(crypto_generichash_BYTES, '\0');
    crypto_generichash(
        reinterpret_cast<unsigned char *>(hash.data()), static_cast<size_t>(hash.size()),
        reinterpret_cast<const unsigned char *>(token.data()), token.size(), nullptr, 0);
    return hash;
}

QString NewToken()
{
    std::array<unsigned char, kTokenBytes> bytes{};
    randombytes_buf(bytes.data(), bytes.size());
    return QString::fromLatin1(
        QByteArray(reinterpret_cast<const char *>(bytes.data()), int(bytes.size()))
            .toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals));
}

} // namespace

QString CSessions::Begin(CDatabase &database, const QString &name, qint64 now)
{
    QString token = NewToken();
    database.Run(QStringLiteral("DELETE FROM session WHERE expires <= ?"), {now});
    database.Run(QStringLiteral("INSERT INTO session SELECT ?, id, ? FROM account WHERE name = ?"),
                 {HashOf(token.toStdString()), now + kLifeS, name});
    database.Run(QStringLiteral(
                     "DELETE FROM session WHERE account = (SELECT id FROM account WHERE name = ?) "
                     "AND token NOT IN (SELECT token FROM session WHERE account = (SELECT id FROM "
                     "account WHERE name = ?) ORDER BY expires DESC LIMIT ?)"),
                 {name, name, kMaximumSessions});
    return token;
}

qint64 CSessions::AccountOf(CDatabase &database, const std::string &token, qint64 now) const
{
    const QByteArray hash = HashOf(token);
    const QVariant account =
        ended_.count(hash) != 0
            ? QVariant()
            : database.Value(
                QStringLiteral("SELECT account FROM session WHERE token = ? AND expires > ?"),
                {hash, now});
    if (!account.isValid())
        throw Refused(kUnauthorized);
    return account.toLongLong();
}

void CSessions::End(CDatabase &database, const std::string &token)
{
    ended_.insert(HashOf(token));
    database.Write([&] {
        for (const QByteArray &hash : ended_)
            database.Run(QStringLiteral("DELETE FROM session WHERE token = ?"), {hash});
    });
    ended_.clear();
}

void CSessions::EndAll(CDatabase &database, const QString &name)
{
    database.Run(QStringLiteral("DELETE FROM session WHERE account = (SELECT id FROM account WHERE "
                                "name = ?)"),
                 {name});
}

} // namespace Server
