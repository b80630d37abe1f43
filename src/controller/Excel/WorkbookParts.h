// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Zip.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

struct lxw_workbook;

namespace Vantor {

// What a workbook is known to put into its file, gathered before libxlsxwriter closes it.
struct WorkbookParts
{
    bool is_sound = true; // false: a temporary file of a sheet could not be written
    std::map<std::string, std::uint64_t> sheets; // bytes of rows by the part's name
};

// Writes out the current row of each sheet in constant-memory mode, as closing would do unseen.
WorkbookParts PartsOf(lxw_workbook *workbook);

// 0 when the file `path` holds all of `expected`, and each of its parts to the end, else what
// libxlsxwriter 1.1.4 should have said: it does not look whether its temporary files could be
// written.
int CheckParts(const std::string &path, const WorkbookParts &expected);

// Whether XML that begins with `head` and ends with `tail` goes on to the end of its root element.
bool EndsWithRoot(const std::string &head, const std::string &tail);

} // namespace Vantor
