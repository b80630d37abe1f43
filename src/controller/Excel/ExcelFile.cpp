// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelFile.h"

#include "controller/Excel/SheetStreams.h"
#include "controller/Excel/WorkbookParts.h"

#include <Nim/Base/FileSystem.h>
#include <Nim/Base/Guid.h>

#include <unistd.h>
#include <xlsxwriter.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace Vantor {
namespace {

namespace fs = std::filesystem;

constexpr int kMaxLinks = 40; // as many as the system follows

int CloseChecked(lxw_workbook *workbook, const std::string &path, const WorkbookParts &parts)
{
    const CSheetStreams streams(workbook);
    const int result = workbook_close(workbook);
    return result == LXW_NO_ERROR ? CheckParts(path, parts) : result;
}

void KeepPermissions(const fs::path &from, const fs::path &to)
{
    std::error_code error;
    const fs::file_status status = fs::status(from, error);
    if (!error && fs::exists(status))
        fs::permissions(to, status.permissions(), error);
}

// Step by step, because a link to a file that is still to come counts, and ".." behind a folder
// that is missing does not. False where the links go round.
bool FollowLinks(fs::path &path)
{
    for (int i = 0; i < kMaxLinks; ++i) {
        std::error_code error;
        if (!fs::is_symlink(fs::symlink_status(path, error)))
            return true;
        path = path.parent_path() / fs::read_symlink(path, error); // an absolute one stands alone
        if (error)
            return false;
    }
    return false;
}

// What keeps `target` from being written, or 0.
int Obstacle(const fs::path &target, const WorkbookParts &parts)
{
    if (!parts.is_sound)
        return LXW_ERROR_CREATING_TMPFILE;
    const bool is_protected =
        access(target.c_str(), F_OK) == 0 && access(target.c_str(), W_OK) != 0;
    return is_protected ? LXW_ERROR_CREATING_XLSX_FILE : LXW_NO_ERROR;
}

int SaveBeside(lxw_workbook *workbook, const fs::path &target, const WorkbookParts &parts)
{
    // Without the file's own name, which may be as long as names can be.
    const std::string temporary =
        (target.parent_path() / ('.' + Nim::Base::GuidUtil::CreateGuid() + ".part")).string();
    // libxlsxwriter keeps the name it will write to; it is ours to change until then.
    std::free(workbook->filename);
    workbook->filename = strdup(temporary.c_str());
    int result = CloseChecked(workbook, temporary, parts);
    if (result == LXW_NO_ERROR) {
        KeepPermissions(target, temporary);
        if (Nim::Base::FileSystem::RenameFile(temporary.c_str(), target.c_str()) != 0)
            result = LXW_ERROR_CREATING_XLSX_FILE;
    }
    std::error_code error;
    if (result != LXW_NO_ERROR)
        fs::remove(temporary, error);
    return result;
}

} // namespace

int SaveWorkbook(lxw_workbook *workbook, const std::string &path)
{
    const WorkbookParts parts = PartsOf(workbook);
    fs::path target(path);
    const int obstacle =
        FollowLinks(target) ? Obstacle(target, parts) : LXW_ERROR_CREATING_XLSX_FILE;
    if (obstacle != LXW_NO_ERROR) {
        FreeWorkbook(workbook);
        return obstacle;
    }
    std::error_code error;
    const fs::file_status status = fs::status(target, error);
    if (path.empty() || (fs::exists(status) && !fs::is_regular_file(status)))
        return CloseChecked(workbook, path, parts); // a device, a directory: the library judges
    return SaveBeside(workbook, target, parts);
}

void FreeWorkbook(lxw_workbook *workbook)
{
    const CSheetStreams streams(workbook);
    lxw_workbook_free(workbook);
}

bool RemoveDirectory(const std::string &path)
{
    std::error_code error;
    fs::remove_all(path, error);
    return !error;
}

} // namespace Vantor
