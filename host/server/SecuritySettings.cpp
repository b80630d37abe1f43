// SPDX-License-Identifier: MIT
#include "SecuritySettings.h"

#include "Store.h"

#include <QtCore/QStringList>

#include <algorithm>

namespace Server {
namespace {

constexpr qint64 kSecondsPerMinute = 60;

struct Setting
{
    const char *name;
    int value;
};

// Durations are minutes, days are days.
constexpr Setting kSettings[] = {
    {"IPLock/Enable", 1},           {"IPLock/FailCount", 5},          {"IPLock/Duration", 10},
    {"PasswordStrength/Enable", 1}, {"PasswordStrength/Strength", 2}, {"PasswordExpiry/Enable", 0},
    {"PasswordExpiry/Config", 0},   {"PasswordExpiry/Day", 90},       {"ClientLock/Enable", 1},
    {"ClientLock/Config", 0},       {"ClientLock/Duration", 10},
};

} // namespace

void SetDefaults(CStore &store)
{
    store.Write([&store] {
        for (const Setting &setting : kSettings)
            store.Run(QStringLiteral("INSERT INTO setting VALUES (?, ?) ON CONFLICT DO NOTHING"),
                      {QLatin1String(setting.name), setting.value});
    });
}

LockSettings ReadLockSettings(CStore &store)
{
    const auto value = [&store](const char *name) {
        return store
            .Value(QStringLiteral("SELECT value FROM setting WHERE name = ?"),
                   {QLatin1String(name)})
            .toInt();
    };
    return {value("IPLock/Enable") != 0, std::max(1, value("IPLock/FailCount")),
            std::max(0, value("IPLock/Duration")) * kSecondsPerMinute};
}

Reply ReadSecuritySetting(CStore &store)
{
    QJsonObject groups;
    CRows query = store.Run(QStringLiteral("SELECT name, value FROM setting"));
    while (query.Next()) {
        const QStringList name = query.Value(0).toString().split(QLatin1Char('/'));
        QJsonObject group = groups.value(name.constFirst()).toObject();
        group.insert(name.constLast(), query.Value(1).toInt());
        groups.insert(name.constFirst(), group);
    }
    Reply reply;
    reply.data = QJsonObject{{QStringLiteral("SecuritySetting"), groups}};
    return reply;
}

} // namespace Server
