// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <vector>

struct lxw_workbook;

namespace Vantor {

// The sheets' temporary files of constant-memory mode. libxlsxwriter 1.1.4 closes each when it
// packs its sheet; where packing fails, those of the sheets behind stay open, and fill the disk
// unseen.
class CSheetStreams
{
public:
    explicit CSheetStreams(lxw_workbook *workbook);
    // Closes what is open still. The workbook is gone by then.
    ~CSheetStreams();
    CSheetStreams(const CSheetStreams &) = delete;
    CSheetStreams &operator=(const CSheetStreams &) = delete;

private:
    struct Stream
    {
        std::FILE *file = nullptr; // libxlsxwriter's, closed or not
        int descriptor = -1;       // the file's
        int copy = -1; // ours: while it is open, no other file can be taken for this one
    };

    std::vector<Stream> streams_;
};

} // namespace Vantor
