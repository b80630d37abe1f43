// SPDX-License-Identifier: MIT
#include "Nim/Base/Encrypt.h"

#include <QtCore/QByteArray>

#include <algorithm>
#include <cstring>

namespace Nim::Base::Encrypt {

bool Base64Decode(std::string &bytes, const std::string &text)
{
    bytes.clear();
    QByteArray whole = QByteArray::fromStdString(text);
    const auto is_blank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    whole.truncate(int(std::remove_if(whole.begin(), whole.end(), is_blank) - whole.begin()));
    const auto decoded =
        QByteArray::fromBase64Encoding(whole, QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded || decoded.decoded.isEmpty())
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
