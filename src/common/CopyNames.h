// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>

namespace Vantor {

// Where the number goes in the name of a file, in the local 8-bit encoding: stem "(n)" extension.
struct CopyName
{
    QByteArray stem;
    QByteArray extension;    // from its dot on
    bool is_numbered = true; // false: there is no dot, so the name is kept whatever exists
};

// At the last dot of the whole path, be it in the name of a folder; of the extension the dot and
// three bytes are kept, fewer where a character would be cut.
CopyName SplitClassic(const QByteArray &path);

// At the last dot of the file's name, unless that begins it; the whole extension is kept, and a
// name without one is numbered at its end.
CopyName SplitKeepingAll(const QByteArray &path);

QByteArray NumberedName(const CopyName &name, int number);

} // namespace Vantor
