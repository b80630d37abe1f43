// SPDX-License-Identifier: MIT
#include "Ravel/TextCodec.h"

#include <QtCore/QTextCodec>

namespace Ravel {

QString ConvertToUnicode(const QByteArray &bytes, QTextCodec *codec)
{
    // With the length, because Qt 5 stops at the first zero byte of a byte array.
    return codec ? codec->toUnicode(bytes)
                 : QString::fromLocal8Bit(bytes.constData(), bytes.size());
}

QByteArray ConvertFromUnicode(const QString &text, QTextCodec *codec)
{
    return codec ? codec->fromUnicode(text) : text.toLocal8Bit();
}

} // namespace Ravel
