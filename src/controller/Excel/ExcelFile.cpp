// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelFile.h"

#include "controller/Excel/WorkbookCheck.h"
#include "controller/Excel/XlsxInternals.h"

#include <Nim/Base/WholeFile.h>

#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

namespace Vantor {
namespace {

namespace fs = std::filesystem;
using Nim::Base::CWholeFile;
using Changes = std::vector<Nim::Base::Zip::PartChange>;
using Rows = std::vector<XlsxInternals::SheetRows>;

SaveResult CloseChecked(lxw_workbook *workbook, const std::string &path, const Changes &changes,
                        const Rows &rows)
{
    SaveResult result;
    result.code = XlsxInternals::CloseWorkbook(workbook, result.error);
    if (result.code == LXW_NO_ERROR && !changes.empty())
        result.error = Nim::Base::Zip::ChangeParts(path, changes);
    if (result.error != 0 && result.code == LXW_NO_ERROR)
        result.code = LXW_ERROR_ZIP_FILE_OPERATION;
    if (result.code == LXW_NO_ERROR)
        result.code = CheckWorkbook(path, rows);
    return result;
}

SaveResult FreeUnsaved(lxw_workbook *workbook, int code, int error)
{
    XlsxInternals::FreeWorkbook(workbook);
    return {code, error};
}

SaveResult SaveBeside(lxw_workbook *workbook, CWholeFile &file, const Changes &changes,
                      const Rows &rows)
{
    XlsxInternals::SetFileName(workbook, file.TemporaryPath());
    SaveResult result = CloseChecked(workbook, file.TemporaryPath(), changes, rows);
    if (result.code != LXW_NO_ERROR) {
        if (file.IsDiskFull()) // looked at while the partial file is there
            result = {LXW_ERROR_ZIP_FILE_OPERATION, ENOSPC};
        return result;
    }
    return file.Commit() ? result : SaveResult{LXW_ERROR_CREATING_XLSX_FILE, file.Errno()};
}

int CauseOf(CWholeFile::Obstacle obstacle, const CWholeFile &file)
{
    switch (obstacle) {
    case CWholeFile::Obstacle::None:
    case CWholeFile::Obstacle::Device:
        return 0;
    case CWholeFile::Obstacle::NoFolder:
        return ENOENT;
    case CWholeFile::Obstacle::DeadLink:
        return ELOOP;
    case CWholeFile::Obstacle::Folder:
        return EISDIR;
    case CWholeFile::Obstacle::WriteProtected:
        return EACCES;
    case CWholeFile::Obstacle::FolderRefuses:
        return file.Errno();
    }
    return 0;
}

} // namespace

SaveResult SaveWorkbook(lxw_workbook *workbook, const std::string &path, const Changes &changes)
{
    const Rows rows = XlsxInternals::FlushRows(workbook);
    const bool is_sound =
        std::all_of(rows.begin(), rows.end(), [](const auto &sheet) { return sheet.is_sound; });
    if (!is_sound)
        return FreeUnsaved(workbook, LXW_ERROR_CREATING_TMPFILE, ENOSPC);
    CWholeFile file;
    const CWholeFile::Obstacle obstacle = file.Begin(path);
    if (obstacle == CWholeFile::Obstacle::Device)
        return CloseChecked(workbook, path, changes, rows);
    if (obstacle != CWholeFile::Obstacle::None)
        return FreeUnsaved(workbook, LXW_ERROR_CREATING_XLSX_FILE, CauseOf(obstacle, file));
    return SaveBeside(workbook, file, changes, rows);
}

bool RemoveDirectory(const std::string &path)
{
    std::error_code error;
    fs::remove_all(path, error);
    return !error;
}

} // namespace Vantor
