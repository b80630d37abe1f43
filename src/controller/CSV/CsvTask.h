// SPDX-License-Identifier: MIT
#pragma once

#include <CsvParse/CsvParse.h>

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

#include <cstdio>

namespace Vantor {

// What happens to the separator behind the last field of a row.
struct RowEnd
{
    int dropped_bytes = 0;    // bytes of the separator that the row end takes the place of
    bool has_line_end = true; // whether CR LF follows
};

// How rows end on a stream: a row end takes the place of the separator's last byte. At the end of a
// file opened for appending nothing can be overwritten, so the separator stays; where the stream
// cannot step back, a row has no end.
RowEnd ClassicRowEnd(bool can_step_back, bool is_appending);

// Everything a write needs, so that the pool thread reads nothing that its caller may change
// meanwhile.
struct CsvJob
{
    QStringList lines;
    std::FILE *stream = nullptr; // null: parse, write nothing
    bool has_mark = false;       // begin with the byte-order mark
    bool is_appending = false;
    bool is_rfc4180 = false;
};

struct CsvOutcome
{
    bool is_parsed = true; // false: the CSV library refused a line, those after it were not written
    int write_errno = 0;   // why the stream refused bytes, 0 when it took all of them
};

// Splits the lines of `job` again and writes their fields quoted, in large blocks. `parser` is
// ready for the next job afterwards.
CsvOutcome WriteCsvJob(csvparse_parser &parser, const CsvJob &job);

} // namespace Vantor
