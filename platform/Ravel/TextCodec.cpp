// SPDX-License-Identifier: MIT
#include "Ravel/TextCodec.h"

#include <QtCore/QTextCodec>

namespace Ravel {

QString ConvertToUnicode(const QByteArray &bytes, QTextCodec *codec)
{
    return codec ? codec->toUnicode(bytes) : QString::fromLocal8Bit(bytes);
}

QByteArray ConvertFromUnicode(const QString &text, QTextCodec *codec)
{
    return codec ? codec->fromUnicode(text) : text.toLocal8Bit();
}

} // namespace Ravel
