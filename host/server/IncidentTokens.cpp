// SPDX-License-Identifier: MIT
#include "IncidentTokens.h"

#include <sodium.h>

#include <QtCore/QStringList>

namespace Server {
namespace {

constexpr int kSignatureBytes = 16;

QByteArray SignatureOf(const QByteArray &secret, const QByteArray &text, const QByteArray &context)
{
    const QByteArray signed_text = text + '\n' + context;
    QByteArray signature(kSignatureBytes, '\0');
    crypto_generichash(reinterpret_cast<unsigned char *>(signature.data()), kSignatureBytes,
                       reinterpret_cast<const unsigned char *>(signed_text.constData()),
                       static_cast<unsigned long long>(signed_text.size()),
                       reinterpret_cast<const unsigned char *>(secret.constData()),
                       static_cast<size_t>(secret.size()));
    return signature.toHex();
}

QString Signed(const QByteArray &secret, const QByteArray &text, const QByteArray &context)
{
    return QString::fromLatin1(text + '.' + SignatureOf(secret, text, context));
}

// The numbers before the signature; nothing when it is not ours.
QList<QByteArray> Checked(const QByteArray &secret, const std::string &token,
                          const QByteArray &context)
{
    const QByteArray whole = QByteArray::fromStdString(token);
    const int end = whole.lastIndexOf('.');
    const QByteArray expected = SignatureOf(secret, whole.left(end), context);
    const QByteArray found = whole.mid(end + 1);
    if (end < 0 || found.size() != expected.size()
        || sodium_memcmp(found.constData(), expected.constData(), size_t(found.size())) != 0)
        return {};
    return whole.left(end).split('.');
}

QByteArray ContextOf(IncidentOrder order, const QString &filter)
{
    return "place " + QByteArray::number(order.column) + (order.is_descending ? " down " : " up ")
           + filter.toUtf8();
}

} // namespace

QString MomentToken(const QByteArray &secret, qint64 moment)
{
    return Signed(secret, QByteArray::number(moment), "moment");
}

std::optional<qint64> ReadMomentToken(const QByteArray &secret, const std::string &token)
{
    const QList<QByteArray> numbers = Checked(secret, token, "moment");
    if (numbers.size() != 1)
        return std::nullopt;
    return numbers.first().toLongLong();
}

QString PlaceToken(const QByteArray &secret, IncidentPlace place, IncidentOrder order,
                   const QString &filter)
{
    return Signed(secret, QByteArray::number(place.moment) + '.' + QByteArray::number(place.id),
                  ContextOf(order, filter));
}

std::optional<IncidentPlace> ReadPlaceToken(const QByteArray &secret, const std::string &token,
                                            IncidentOrder order, const QString &filter)
{
    const QList<QByteArray> numbers = Checked(secret, token, ContextOf(order, filter));
    if (numbers.size() != 2)
        return std::nullopt;
    return IncidentPlace{numbers.first().toLongLong(), numbers.last().toLongLong()};
}

} // namespace Server
