// SPDX-License-Identifier: MIT
#include "StoreAddress.h"

#include "StoreErrors.h"

#include <QtCore/QStringList>
#include <QtCore/QUrl>
#include <QtCore/QUrlQuery>

namespace Server {
namespace {

// Seconds without an answer, after which a connection counts as lost.
constexpr char kPresets[] = "connect_timeout=3 keepalives_idle=5 keepalives_interval=2 "
                            "keepalives_count=3 tcp_user_timeout=10000";

const char *const kParameters[] = {"host",       "sslmode",        "sslrootcert", "sslcert",
                                   "sslkey",     "sslcrl",         "options",     "connect_timeout",
                                   "gssencmode", "channel_binding"};

bool IsKnown(const QString &parameter)
{
    for (const char *const known : kParameters)
        if (parameter == QLatin1String(known))
            return true;
    return false;
}

// As a value of a connection string.
QString Quoted(QString value)
{
    value.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    value.replace(QLatin1Char('\''), QLatin1String("\\'"));
    return QLatin1Char('\'') + value + QLatin1Char('\'');
}

[[noreturn]] void Refuse(const QString &why)
{
    throw DatabaseError(why.toStdString());
}

} // namespace

QString StoreAddress::Text() const
{
    if (engine == Engine::Sqlite)
        return name;
    const QString at = port < 0 ? host : QStringLiteral("%1:%2").arg(host).arg(port);
    return QStringLiteral("postgresql://%1/%2").arg(at, name);
}

StoreAddress ReadStoreAddress(const QString &text)
{
    if (!text.startsWith(QLatin1String("postgresql:"))
        && !text.startsWith(QLatin1String("postgres:")))
        return {Engine::Sqlite, text, {}, -1, {}, {}};
    const QUrl url(text, QUrl::StrictMode);
    if (!url.isValid())
        Refuse(QStringLiteral("the URL is wrong: %1").arg(url.errorString()));
    if (url.userInfo().contains(QLatin1Char(':')))
        Refuse(
            QStringLiteral("a password must not be in the URL: others can read the command line. "
                           "Use the variable PGPASSWORD or the file ~/.pgpass"));
    StoreAddress address{
        Engine::Postgres, url.path(QUrl::FullyDecoded).mid(1), url.host(QUrl::FullyDecoded),
        url.port(),       url.userName(QUrl::FullyDecoded),    QLatin1String(kPresets)};
    if (address.name.isEmpty() || address.name.contains(QLatin1Char('/')))
        Refuse(QStringLiteral("the URL names no database: postgresql://user@host:port/name"));
    for (const auto &[key, value] : QUrlQuery(url).queryItems(QUrl::FullyDecoded)) {
        // Qt takes a semicolon for a blank.
        if (!IsKnown(key) || value.contains(QLatin1Char(';')))
            Refuse(QStringLiteral("the URL's parameter %1 is not supported").arg(key));
        if (key == QLatin1String("host"))
            address.host = value;
        else
            address.options += QLatin1Char(' ') + key + QLatin1Char('=') + Quoted(value);
    }
    return address;
}

} // namespace Server
