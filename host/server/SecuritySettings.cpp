// SPDX-License-Identifier: MIT
#include "SecuritySettings.h"

#include "Database.h"

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

void SetDefaults(CDatabase &database)
{
    database.Write([&database] {
        for (const Setting &setting : kSettings)
            database.Run(QStringLiteral("INSERT INTO setting VALUES (?, ?) ON CONFLICT DO NOTHING"),
                         {QLatin1String(setting.name), setting.value});
    });
}

LockSettings ReadLockSettings(CDatabase &database)
{
    const auto value = [&database](const char *name) {
        return database
            .Value(QStringLiteral("SELECT value FROM setting WHERE name = ?"),
                   {QLatin1String(name)})
            .toInt();
    };
    return {value("IPLock/Enable") != 0, std::max(1, value("IPLock/FailCount")),
            std::max(0, value("IPLock/Duration")) * kSecondsPerMinute};
}

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

} // namespace Server
