// SPDX-License-Identifier: MIT
#include "Secrets.h"

#include <sodium.h>

#include <array>

namespace Server {
namespace {

constexpr size_t kSecretBytes = 32;

} // namespace

QByteArray HashOf(const QByteArray &secret)
{
    QByteArray hash(crypto_generichash_BYTES, '\0');
    crypto_generichash(reinterpret_cast<unsigned char *>(hash.data()),
                       static_cast<size_t>(hash.size()),
                       reinterpret_cast<const unsigned char *>(secret.constData()),
                       static_cast<size_t>(secret.size()), nullptr, 0);
    return hash;
}

QString NewSecret()
{
    std::array<unsigned char, kSecretBytes> bytes{};
    randombytes_buf(bytes.data(), bytes.size());
    return QString::fromLatin1(
        QByteArray(reinterpret_cast<const char *>(bytes.data()), int(bytes.size()))
            .toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals));
}

} // namespace Server
