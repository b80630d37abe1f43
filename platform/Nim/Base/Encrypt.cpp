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

} // namespace Nim::Base::Encrypt
