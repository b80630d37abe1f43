// SPDX-License-Identifier: MIT
#pragma once

#include "controller/Excel/ExcelRecords.h"

#include <map>
#include <string>
#include <tuple>
#include <vector>

struct lxw_format;
struct lxw_workbook;

namespace Vantor {

// The colour libxlsxwriter is given for a text such as "#FA3239": the hexadecimal number behind the
// first "#", its last 24 bits. 0 ("no colour") without "#" and for text that is no number; black is
// the library's own black, because its 0 means unset.
unsigned ColorOf(const std::string &text);

// The formats of one workbook: equal records share one. libxlsxwriter keeps each format it is
// handed to the end and merges equal ones only when it saves, so a format a cell would cost more
// memory than the cells.
class CExcelFormats
{
public:
    // The format for `look` in `workbook`, made at its first use; `can_wrap` false turns wrapping
    // off.
    lxw_format *FormatFor(lxw_workbook *workbook, const lxw_format_ &look, bool can_wrap);

    // Forgets all: the formats die with their workbook.
    void Clear();

private:
    // What shows of a record: bold, font, fill, colour, size, alignment, wrap.
    using Key = std::tuple<bool, std::string, unsigned, unsigned, int, int, bool>;

    static Key KeyOf(const lxw_format_ &look, bool can_wrap);

    std::map<Key, lxw_format *> formats_;
    // The records seen last as they were given. Cells of a row go through the same few looks again
    // and again, and to compare a record is much cheaper than to make its key.
    struct Seen
    {
        lxw_format_ look;
        bool can_wrap = false;
        lxw_format *format = nullptr;
    };

    void Remember(const Seen &seen);

    std::vector<Seen> seen_;
    std::size_t last_ = 0; // where the last one was found
};

} // namespace Vantor
