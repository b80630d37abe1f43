// SPDX-License-Identifier: MIT
#pragma once

#include <string>

struct lxw_workbook;

namespace Vantor {

// Closes `workbook` so that `path` holds either the whole new file or what it held before, and
// returns 0 or libxlsxwriter's error code. A link is written through, not replaced.
int SaveWorkbook(lxw_workbook *workbook, const std::string &path);

// Frees `workbook` and its temporary files without saving it.
void FreeWorkbook(lxw_workbook *workbook);

// Removes a directory with all its contents; a link is removed, not followed. True for success.
bool RemoveDirectory(const std::string &path);

} // namespace Vantor
