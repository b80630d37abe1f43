// SPDX-License-Identifier: MIT
#pragma once

#include "controller/Excel/ExcelRecords.h"

#include <map>
#include <string>
#include <vector>

struct lxw_format;
struct lxw_workbook;

namespace Vantor {

// The colour libxlsxwriter is given for a text such as "#FA3239": the hexadecimal number behind the
// first "#", its last 24 bits. 0 ("no colour") without "#" and for text that is no number; black is
// the library's own black, because its 0 means unset.
unsigned ColorOf(const std::string &text);

// The formats of one workbook: equal records share one. libxlsxwriter keeps each format it is
// handed to the end and merges equal ones only when it saves, so one format for each cell would
// cost more memory than the cells.
class CExcelFormats
{
public:
    static constexpr std::size_t kMost = 64000; // the file format's limit

    // A format, and whether it is the one that was asked for: beyond kMost it is the nearest there.
    struct Found
    {
        lxw_format *format = nullptr;
        bool is_exact = true;
    };

    // Forgets all formats, which die with their workbook, and goes on with `workbook`.
    void SetWorkbook(lxw_workbook *workbook);
    // The format for `look`, made at its first use; `can_wrap` false turns wrapping off.
    Found FormatFor(const lxw_format_ &look, bool can_wrap);
    // That of links without a look of their own.
    [[nodiscard]] lxw_format *LinkFormat() const;

private:
    struct LooksBefore
    {
        bool operator()(const lxw_format_ &a, const lxw_format_ &b) const;
    };
    // The records seen last as they were given. Cells of a row go through the same few looks again
    // and again, and comparing a record is much cheaper than looking up its format.
    struct Seen
    {
        lxw_format_ look;
        bool can_wrap = false;
        Found found;
    };

    Found FindOrMake(const lxw_format_ &shown);
    void Remember(const Seen &seen);

    lxw_workbook *workbook_ = nullptr;
    std::map<lxw_format_, lxw_format *, LooksBefore> formats_; // by what shows of a record
    std::vector<Seen> seen_;
    std::size_t last_ = 0; // the place where the last one was found
};

} // namespace Vantor
