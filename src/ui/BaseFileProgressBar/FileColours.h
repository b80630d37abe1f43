// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QColor>

namespace Vantor {

/// What a recording file looks like on a time line.
struct FileLook
{
    int bar_type = -1;
    QColor colour; ///< invalid for files of unknown type
};

/// \brief The look of a file of \a file_type; for 0, \a record_file_type decides.
[[nodiscard]] FileLook LookOfFile(int file_type, int record_file_type);

/// \brief The look of every file when the types have one colour.
[[nodiscard]] FileLook PlainLookOfFile();

} // namespace Vantor
