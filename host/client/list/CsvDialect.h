// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>

namespace Client {

/// \brief How a CSV file divides its lines.
struct CsvDialect
{
    char separator = ',';
    int header_bytes = 0; ///< of a first line "sep=;", which is no row
};

/// \brief The dialect that the \a first bytes of a file suggest.
/// \param separator 0: found too.
[[nodiscard]] CsvDialect FindDialect(const QByteArray &first, char separator);

/// \return whether blanks are between a quote and the \a separator or line end next to it, as in
/// a, "b". Then blanks around cells must be dropped.
[[nodiscard]] bool HasBlanksAtQuotes(const QByteArray &bytes, char separator);

} // namespace Client
