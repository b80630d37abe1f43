// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelFile.h"

#include "controller/Excel/ZipDirectory.h"

#include <Nim/Base/FileSystem.h>
#include <Nim/Base/Guid.h>

#include <xlsxwriter.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryFile>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace Vantor {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kSpareBytes = std::uint64_t{1024} * 1024;

// The sheets' temporary files of constant-memory mode. In memory mode the parts are still to be
// written: their text twice, once as sheet and once as shared strings, is more than they take.
WorkbookParts PartsOf(lxw_workbook *workbook, std::uint64_t text_bytes)
{
    WorkbookParts parts;
    std::uint64_t largest = 0;
    lxw_worksheet *sheet = nullptr;
    STAILQ_FOREACH(sheet, workbook->worksheets, list_pointers)
    {
        if (!sheet->optimize_tmpfile)
            continue;
        lxw_worksheet_write_single_row(sheet); // the current row, which closing would write unseen
        const bool is_written =
            std::fflush(sheet->optimize_tmpfile) == 0 && std::ferror(sheet->optimize_tmpfile) == 0;
        parts.is_sound = parts.is_sound && is_written;
        const auto end = std::ftell(sheet->optimize_tmpfile);
        const std::uint64_t size = end > 0 ? static_cast<std::uint64_t>(end) : 0;
        parts.sheets.emplace("xl/worksheets/sheet" + std::to_string(sheet->index + 1) + ".xml",
                             size);
        largest = std::max(largest, size);
    }
    parts.temporary_need = std::max(largest, 2 * text_bytes) + kSpareBytes;
    return parts;
}

bool HasSpace(const std::string &folder, std::uint64_t bytes)
{
    std::error_code error;
    const fs::path place = folder.empty() ? fs::temp_directory_path(error) : fs::path(folder);
    const fs::space_info space = fs::space(place, error);
    if (!error && space.available < bytes)
        return false;
    // A limit on the size of files does not show in the space. The probe is sparse: it costs none.
    QTemporaryFile probe(QFile::decodeName((place / "XXXXXX").c_str()));
    return !probe.open() || probe.resize(static_cast<qint64>(bytes));
}

// Whether every part has something in it, and no sheet is shorter than its rows were.
bool IsWhole(const std::string &path, const WorkbookParts &parts)
{
    std::vector<ZipEntry> entries;
    if (!ReadZipDirectory(path, entries))
        return false;
    return std::all_of(entries.cbegin(), entries.cend(), [&parts](const ZipEntry &entry) {
        const auto sheet = parts.sheets.find(entry.name);
        const std::uint64_t rows = sheet != parts.sheets.end() ? sheet->second : 0;
        return entry.size > 0 && entry.size >= std::min(rows, kZip64Size);
    });
}

// libxlsxwriter keeps the name it will write to; it is ours to free until the workbook is closed.
void Rename(lxw_workbook *workbook, const std::string &path)
{
    std::free(workbook->filename);
    workbook->filename = strdup(path.c_str());
}

int CloseChecked(lxw_workbook *workbook, const std::string &path, const WorkbookParts &parts)
{
    const int result = workbook_close(workbook);
    if (result == LXW_NO_ERROR && !(parts.is_sound && IsWhole(path, parts)))
        return LXW_ERROR_ZIP_FILE_OPERATION;
    return result;
}

void KeepPermissions(const fs::path &from, const fs::path &to)
{
    std::error_code error;
    const fs::file_status status = fs::status(from, error);
    if (!error && fs::exists(status))
        fs::permissions(to, status.permissions(), error);
}

// What `path` leads to: a link is written through, not replaced.
fs::path RealTarget(const std::string &path)
{
    std::error_code error;
    const fs::path real = fs::weakly_canonical(path, error);
    return error || real.empty() ? fs::path(path) : real;
}

} // namespace

int SaveWorkbook(lxw_workbook *workbook, const std::string &path,
                 const std::string &temporary_folder, std::uint64_t text_bytes)
{
    WorkbookParts parts = PartsOf(workbook, text_bytes);
    parts.is_sound = parts.is_sound && HasSpace(temporary_folder, parts.temporary_need);

    std::error_code error;
    const fs::path target = RealTarget(path);
    const fs::file_status status = fs::status(target, error);
    const bool is_new_or_file = !fs::exists(status) || fs::is_regular_file(status);
    if (path.empty() || !is_new_or_file) // a device, a directory: libxlsxwriter says what is wrong
        return CloseChecked(workbook, path, parts);
    if (fs::exists(status) && !QFileInfo(QFile::decodeName(target.c_str())).isWritable()) {
        Rename(workbook, std::string()); // nowhere: a write-protected file is left alone
        static_cast<void>(workbook_close(workbook));
        return LXW_ERROR_CREATING_XLSX_FILE;
    }

    // Without the file's own name, which may be as long as names can be.
    const std::string temporary =
        (target.parent_path() / ('.' + Nim::Base::Guid::Create() + ".part")).string();
    Rename(workbook, temporary);
    int result = CloseChecked(workbook, temporary, parts);
    if (result == LXW_NO_ERROR) {
        KeepPermissions(target, temporary);
        if (Nim::Base::FileSystem::RenameFile(temporary.c_str(), target.c_str()) != 0)
            result = LXW_ERROR_CREATING_XLSX_FILE;
    }
    if (result != LXW_NO_ERROR)
        fs::remove(temporary, error);
    return result;
}

bool RemoveDirectory(const std::string &path)
{
    std::error_code error;
    fs::remove_all(path, error);
    return !error;
}

} // namespace Vantor
