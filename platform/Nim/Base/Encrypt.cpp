// SPDX-License-Identifier: MIT
#include "Nim/Base/Encrypt.h"

#include <QtCore/QByteArray>

#include <cstring>

namespace Nim::Base::Encrypt {

bool Base64Decode(const std::string &text, std::string &bytes)
{
    bytes.clear();
    if (text.empty())
        return false;
    const auto decoded = QByteArray::fromBase64Encoding(QByteArray::fromStdString(text),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return false;
    bytes = decoded.decoded.toStdString();
    return true;
}

void Wipe(std::string &secret)
{
    // The compiler knows that nobody reads what is freed next, but not what this points at.
    static void *(*const volatile fill)(void *, int, size_t) = std::memset;
    secret.resize(secret.capacity()); // an earlier, longer text may stand behind the end
    fill(secret.data(), 0, secret.size());
    secret.clear();
}

} // namespace Nim::Base::Encrypt
