// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>

#include <QtCore/QtGlobal>

#include <string>

namespace BusinessCommon {

/// \brief Seconds since 1970 UTC of an ISO 8601 text such as "2024-05-01T18:00:00+8:00".
///
/// Reads as far as the text fits and takes the rest as 0, as the scanf family does with
/// "%d-%d-%dT%d:%d:%d" and then
///  - "+%d:%d" when there is a "+" anywhere in the text,
///  - else "Z" when there is a "Z" anywhere,
///  - else "-%d:%d", of which hours and minutes both count as negative.
///
/// Hours and months need no leading zero, and values beyond their range carry over: month 13 is
/// January of the next year, day 0 the last of the month before. An offset behind a part that does
/// not fit, such as fractions of a second, is not read. The text ends at its first NUL.
///
/// \return -1, which is also 1969-12-31T23:59:59Z, when not even a year is read, and when a number
///         that is read has more than 9 digits.
[[nodiscard]] VANTOR_BASE_EXPORT qint64 IsoTextToSeconds(const std::string &text);

} // namespace BusinessCommon
