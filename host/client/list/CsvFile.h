// SPDX-License-Identifier: MIT
#pragma once

#include "list/IncidentList.h"

#include <QtCore/QString>

#include <functional>

namespace Client {

/// \brief The result of reading a file: a list, or the error.
struct ReadResult
{
    IncidentListPtr list; ///< null when the file could not be read
    QString error;        ///< for the user; empty when the reading was cancelled
    QString warning;      ///< for the user; not empty when the list may not be all of the file
};

/// Called with the bytes read so far and in all (0 when not known); returns false to cancel the
/// reading.
using ReadProgress = std::function<bool(qint64 done, qint64 total)>;

/// \brief Read the CSV file \a path, its first record being the column titles.
///
/// \param separator between cells; 0: as a first line "sep=;" says, else the one of comma,
/// semicolon, tab and "|" that divides the first lines most alike.
///
/// Texts are UTF-8, with or without a byte-order mark and a zero byte behind it, or UTF-16 or
/// UTF-32 with a mark; any other file is read in the local encoding, or as
/// Windows-1252, with a warning. Short rows are filled with empty cells, and longer ones add
/// columns without a title. The file is read in blocks. Any thread.
[[nodiscard]] ReadResult ReadCsvFile(const QString &path, const ReadProgress &progress = {},
                                     char separator = '\0');

} // namespace Client
