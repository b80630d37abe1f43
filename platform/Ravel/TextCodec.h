// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

QT_BEGIN_NAMESPACE
class QTextCodec;
QT_END_NAMESPACE

namespace Ravel {

/// \brief Text from bytes in the encoding of \a codec; without a codec, the local 8-bit encoding.
/// Any thread.
[[nodiscard]] VANTOR_PLATFORM_EXPORT QString ConvertToUnicode(const QByteArray &bytes,
                                                              QTextCodec *codec = nullptr);

/// \brief Bytes of \a text in the encoding of \a codec; without a codec, the local 8-bit encoding.
/// Any thread.
///
/// A character that the encoding lacks becomes the codec's replacement, "?" for the local encoding.
[[nodiscard]] VANTOR_PLATFORM_EXPORT QByteArray ConvertFromUnicode(const QString &text,
                                                                   QTextCodec *codec = nullptr);

} // namespace Ravel
