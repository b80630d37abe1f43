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
    // The compiler may drop a call of memset() for memory that is freed next, but it cannot know
    // where a volatile pointer points.
    static void *(*const volatile fill)(void *, int, size_t) = std::memset;
    // The buffer may hold the rest of an earlier, longer text behind the end.
    secret.resize(secret.capacity());
    fill(secret.data(), 0, secret.size());
    secret.clear();
}

} // namespace Nim::Base::Encrypt
