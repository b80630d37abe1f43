// SPDX-License-Identifier: MIT
#include "Nim/Base/Encrypt.h"

#include <QtCore/QByteArray>

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
    secret.resize(secret.capacity()); // an earlier, longer text may stand behind the end
    // Through a volatile pointer: the compiler knows that nobody reads what is freed next.
    volatile char *const bytes = secret.data();
    for (size_t i = 0; i < secret.size(); ++i)
        bytes[i] = 0;
    secret.clear();
}

} // namespace Nim::Base::Encrypt
