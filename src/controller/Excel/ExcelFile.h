// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>

struct lxw_workbook;

namespace Vantor {

// What libxlsxwriter is about to put together, gathered before it closes the workbook.
struct WorkbookParts
{
    bool is_sound = true; // false: a temporary file of a sheet could not be written
    std::map<std::string, std::uint64_t> sheets; // bytes of rows by the part's name
    std::uint64_t temporary_need = 0; // bytes that closing needs in the temporary directory
};

// Closes `workbook` so that `path` holds either the whole new file or what it held before, and
// returns 0 or libxlsxwriter's error code. `temporary_folder` is where the library keeps its parts,
// empty for the system's; `text_bytes` what the cells of a workbook in memory hold.
//
// libxlsxwriter 1.1.4 does not look whether its temporary files could be written and reports
// success for a file that lacks rows, so the space is checked first and the parts' sizes after.
int SaveWorkbook(lxw_workbook *workbook, const std::string &path,
                 const std::string &temporary_folder, std::uint64_t text_bytes);

// Removes a directory with all its contents; a link is removed, not followed. True for success.
bool RemoveDirectory(const std::string &path);

} // namespace Vantor
