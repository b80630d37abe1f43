// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Zip.h>

#include <string>
#include <vector>

struct lxw_workbook;

namespace Vantor {

// How a save ended: 0 or libxlsxwriter's error code, and errno as far as it is known.
struct SaveResult
{
    int code = 0;
    int error = 0;
};

// Closes `workbook` so that `path` holds either the whole new file or the earlier one. Of a
// symbolic link the target is written; the link stays. `changes` are made before it gets its name.
SaveResult SaveWorkbook(lxw_workbook *workbook, const std::string &path,
                        const std::vector<Nim::Base::Zip::PartChange> &changes);

// Removes a directory with all its contents; a link is removed, not followed. True for success.
bool RemoveDirectory(const std::string &path);

} // namespace Vantor
