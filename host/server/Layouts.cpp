// SPDX-License-Identifier: MIT
#include "Records.h"
#include "Store.h"

#include <ClientComm/RapidJsonProto.h>

namespace Server {
namespace {

constexpr int kMaximumKey = 512;
constexpr int kMaximumText = 1 << 20;
constexpr int kMaximumLayouts = 10'000;          // of one account
constexpr qint64 kQuota_bytes = qint64(4) << 20; // of the texts and keys of one account

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

Reply ReadLayout(CStore &store, qint64 account, const Request &request)
{
    const Layout layout = LayoutOf(request, false);
    const QString text =
        store
            .Value(QStringLiteral(
                       "SELECT text FROM layout WHERE account = ? AND name = ? AND type = ?"),
                   {account, layout.key, layout.type})
            .toString();
    Reply reply;
    reply.data = QJsonObject{
        {QStringLiteral("AdaptiveLayout"), QJsonObject{{QStringLiteral("LayoutData"), text}}}};
    return reply;
}

Reply WriteLayout(CStore &store, qint64 account, const Request &request)
{
    const Layout layout = LayoutOf(request, true);
    store.Write([&] {
        // Two servers must not fill the quota twice.
        store.Run(QStringLiteral("SELECT id FROM account WHERE id = ? {for update}"), {account});
        store.Run(
            QStringLiteral("INSERT INTO layout VALUES (?, ?, ?, ?) ON CONFLICT (account, name, "
                           "type) DO UPDATE SET text = excluded.text"),
            {account, layout.key, layout.type, layout.text});
        CRows sums = store.Run(
            QStringLiteral("SELECT count(*), sum({layout bytes}) FROM layout WHERE account = ?"),
            {account});
        if (!sums.Next() || sums.Value(0).toInt() > kMaximumLayouts
            || sums.Value(1).toLongLong() > kQuota_bytes)
            throw Refused(kTooLarge); // which takes the text back
    });
    return {};
}

} // namespace Server
