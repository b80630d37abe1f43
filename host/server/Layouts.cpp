// SPDX-License-Identifier: MIT
#include "Database.h"
#include "Records.h"

#include <ClientComm/RapidJsonProto.h>

#include <QtCore/QStringList>

namespace Server {
namespace {

constexpr int kMaximumKey = 512;
constexpr int kMaximumText = 1 << 20;
constexpr int kMaximumLayouts = 10'000; // of one account

struct Layout
{
    QString key;
    int type = 0;
    QString text;
};

Layout LayoutOf(const Request &request, bool has_text)
{
    ClientComm::CRapidJsonProto body;
    if (!body.Load(request.body))
        throw Refused(kBadRequest);
    constexpr int kNone = -1;
    const std::string missing(1, '\0');
    const std::string text = body.GetString("/AdaptiveLayoutRequest/LayoutData", missing);
    Layout layout{QString::fromStdString(body.GetString("/AdaptiveLayoutRequest/Key")),
                  body.GetInt("/AdaptiveLayoutRequest/Type", kNone), QString::fromStdString(text)};
    if (layout.key.isEmpty() || layout.key.size() > kMaximumKey || layout.type < 0
        || (has_text && text == missing))
        throw Refused(kBadRequest);
    if (layout.text.size() > kMaximumText)
        throw Refused(kTooLarge);
    return layout;
}

} // namespace

Reply ReadSecuritySetting(CDatabase &database)
{
    QJsonObject groups;
    QSqlQuery query = database.Run(QStringLiteral("SELECT name, value FROM setting"));
    while (query.next()) {
        const QStringList name = query.value(0).toString().split(QLatin1Char('/'));
        QJsonObject group = groups.value(name.constFirst()).toObject();
        group.insert(name.constLast(), query.value(1).toInt());
        groups.insert(name.constFirst(), group);
    }
    Reply reply;
    reply.data = QJsonObject{{QStringLiteral("SecuritySetting"), groups}};
    return reply;
}

Reply ReadLayout(CDatabase &database, qint64 account, const Request &request)
{
    const Layout layout = LayoutOf(request, false);
    const QString text =
        database
            .Value(QStringLiteral(
                       "SELECT text FROM layout WHERE account = ? AND name = ? AND type = ?"),
                   {account, layout.key, layout.type})
            .toString();
    Reply reply;
    reply.data = QJsonObject{
        {QStringLiteral("AdaptiveLayout"), QJsonObject{{QStringLiteral("LayoutData"), text}}}};
    return reply;
}

Reply WriteLayout(CDatabase &database, qint64 account, const Request &request)
{
    const Layout layout = LayoutOf(request, true);
    database.Write([&] {
        database.Run(QStringLiteral("INSERT INTO layout VALUES (?, ?, ?, ?) ON CONFLICT DO UPDATE "
                                    "SET text = excluded.text"),
                     {account, layout.key, layout.type, layout.text});
        const QString count = QStringLiteral("SELECT count(*) FROM layout WHERE account = ?");
        if (database.Value(count, {account}).toInt() > kMaximumLayouts)
            throw Refused(kTooLarge);
    });
    return {};
}

} // namespace Server
