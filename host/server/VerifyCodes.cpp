// SPDX-License-Identifier: MIT
#include "VerifyCodes.h"

#include "Attempts.h"
#include "Secrets.h"
#include "Store.h"

#include <QtCore/QRandomGenerator>

namespace Server {
namespace {

constexpr qint64 kLife_s = 120;
constexpr int kMaximumOfUser = 3; // at one address
constexpr int kMaximumOfAddress = 100;
constexpr int kMaximumCodes = 10'000;
constexpr int kLength = 4;
// Without those that look alike.
constexpr char kLetters[] = "ACDEFGHJKLMNPQRTUVWXYZ234679";

QString RandomText()
{
    QString text;
    for (int i = 0; i < kLength; ++i)
        text +=
            QLatin1Char(kLetters[QRandomGenerator::system()->bounded(int(sizeof kLetters) - 1)]);
    return text;
}

// Four letters alone could be found by trying all; the mark makes them a secret.
QByteArray HashOfText(const QString &mark, const QString &text)
{
    return HashOf(mark.toUtf8() + '\n' + text.toCaseFolded().toUtf8());
}

// Deletes the oldest codes that meet `condition`, until `count` of them are left.
void DropBeyond(CStore &store, int count, const QString &condition, const QVariantList &values)
{
    store.Run(QStringLiteral("DELETE FROM verify_code WHERE %1 AND id <= (SELECT id FROM "
                             "verify_code WHERE %1 ORDER BY id DESC LIMIT 1 OFFSET ?)")
                  .arg(condition),
              values + values + QVariantList{count});
}

} // namespace

VerifyCode MakeVerifyCode(CStore &store, const Trier &trier, qint64 now, const QString &text)
{
    DropBeyond(store, kMaximumOfUser - 1, QStringLiteral("address = ? AND name = ?"),
               {trier.address, trier.user});
    DropBeyond(store, kMaximumOfAddress - 1, QStringLiteral("address = ?"), {trier.address});
    DropBeyond(store, kMaximumCodes - 1, QStringLiteral("id > 0"), {});
    VerifyCode code{NewSecret(), text.isEmpty() ? RandomText() : text};
    store.Run(QStringLiteral("INSERT INTO verify_code (address, name, mark, text, expires) VALUES "
                             "(?, ?, ?, ?, ?)"),
              {trier.address, trier.user, HashOf(code.mark.toUtf8()),
               HashOfText(code.mark, code.text), now + kLife_s});
    return code;
}

CodeOutcome TakeVerifyCode(CStore &store, const QString &user, const QString &mark,
                           const QString &text, qint64 now)
{
    const QVariantList key{HashOf(mark.toUtf8()), user};
    QByteArray stored;
    qint64 expires = 0;
    {
        CRows rows = store.Run(
            QStringLiteral("SELECT text, expires FROM verify_code WHERE mark = ? AND name = ?"),
            key);
        if (!rows.Next())
            return CodeOutcome::Unknown;
        stored = rows.Value(0).toByteArray();
        expires = rows.Value(1).toLongLong();
    }
    // Of two servers that use it at once, one deletes it.
    const QString remove = QStringLiteral("DELETE FROM verify_code WHERE mark = ? AND name = ?");
    if (store.Run(remove, key).Changed() != 1 || expires <= now)
        return CodeOutcome::Unknown;
    return stored == HashOfText(mark, text) ? CodeOutcome::Right : CodeOutcome::Wrong;
}

} // namespace Server
