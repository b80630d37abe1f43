// SPDX-License-Identifier: MIT
#include "common/CopyNames.h"

#include <Ravel/TextCodec.h>

namespace Vantor {
namespace {

constexpr int kExtensionBytes = 4; // with its dot: "jpeg" becomes "jpe"

bool IsWhole(const QByteArray &text)
{
    return Ravel::ConvertFromUnicode(Ravel::ConvertToUnicode(text)) == text;
}

} // namespace

CopyName SplitClassic(const QByteArray &path)
{
    const int dot = path.lastIndexOf('.');
    if (dot < 0)
        return {path, {}, false};
    QByteArray extension = path.mid(dot, kExtensionBytes);
    while (!IsWhole(extension))
        extension.chop(1);
    return {path.left(dot), extension, true};
}

CopyName SplitKeepingAll(const QByteArray &path)
{
    const int name = path.lastIndexOf('/') + 1;
    const int dot = path.lastIndexOf('.');
    if (dot <= name)
        return {path, {}, true};
    return {path.left(dot), path.mid(dot), true};
}

QByteArray NumberedName(const CopyName &name, int number)
{
    return name.stem + '(' + QByteArray::number(number) + ')' + name.extension;
}

} // namespace Vantor
