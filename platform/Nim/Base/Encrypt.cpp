// SPDX-License-Identifier: MIT
#include "Nim/Base/Encrypt.h"

#include <QtCore/QByteArray>

#include <algorithm>
#include <cstring>

namespace Nim::Base::Encrypt {
namespace {

// Qt does not look at the length: four characters make three bytes, a padded text is a multiple of
// four, and a single character at the end is not even one byte.
bool HasBase64Length(const QByteArray &text)
{
    const int left = text.size() % 4;
    return text.endsWith('=') ? left == 0 : left != 1;
}

} // namespace

bool Base64Decode(std::string &bytes, const std::string &text)
{
    bytes.clear();
    QByteArray whole = QByteArray::fromStdString(text);
    const auto is_blank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    whole.truncate(int(std::remove_if(whole.begin(), whole.end(), is_blank) - whole.begin()));
    if (!HasBase64Length(whole))
        return false;
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
