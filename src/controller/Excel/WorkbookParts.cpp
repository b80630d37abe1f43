// SPDX-License-Identifier: MIT
#include "controller/Excel/WorkbookParts.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace Vantor {
namespace {

bool EndsWith(const std::string &text, const std::string &end)
{
    return text.size() >= end.size()
           && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

bool IsXml(const std::string &name)
{
    static constexpr std::array<const char *, 3> kEndings{".xml", ".rels", ".vml"};
    return std::any_of(kEndings.cbegin(), kEndings.cend(),
                       [&name](const char *ending) { return EndsWith(name, ending); });
}

void AddRows(lxw_worksheet *sheet, WorkbookParts &parts)
{
    std::FILE *const file = sheet->optimize_tmpfile;
    if (!file)
        return;
    lxw_worksheet_write_single_row(sheet);
    parts.is_sound = parts.is_sound && std::fflush(file) == 0 && std::ferror(file) == 0;
    const auto end = std::ftell(file);
    parts.sheets.emplace("xl/worksheets/sheet" + std::to_string(sheet->index + 1) + ".xml",
                         end > 0 ? static_cast<std::uint64_t>(end) : 0);
}

bool IsWholePart(const Nim::Base::Zip::Part &part, const WorkbookParts &expected)
{
    const auto sheet = expected.sheets.find(part.name);
    const std::uint64_t rows = sheet != expected.sheets.end() ? sheet->second : 0;
    return part.size > 0 && part.size >= rows
           && (!IsXml(part.name) || EndsWithRoot(part.head, part.tail));
}

} // namespace

WorkbookParts PartsOf(lxw_workbook *workbook)
{
    WorkbookParts parts;
    lxw_worksheet *sheet = nullptr;
    STAILQ_FOREACH(sheet, workbook->worksheets, list_pointers)
    {
        AddRows(sheet, parts);
    }
    return parts;
}

int CheckParts(const std::string &path, const WorkbookParts &expected)
{
    std::vector<Nim::Base::Zip::Part> parts;
    if (!Nim::Base::Zip::ReadParts(path, parts))
        return LXW_ERROR_ZIP_FILE_OPERATION;
    const bool are_whole =
        std::all_of(parts.cbegin(), parts.cend(), [&expected](const Nim::Base::Zip::Part &part) {
            return IsWholePart(part, expected);
        });
    return are_whole ? LXW_NO_ERROR : LXW_ERROR_CREATING_TMPFILE;
}

bool EndsWithRoot(const std::string &head, const std::string &tail)
{
    const std::size_t declaration = head.rfind("<?", 0) == 0 ? head.find("?>") : 0;
    if (declaration == std::string::npos)
        return false;
    const std::size_t root = head.find('<', declaration);
    const std::size_t end = head.find_first_of(" \t\r\n/>", root);
    if (root == std::string::npos || end == std::string::npos)
        return false;
    const std::size_t last = tail.find_last_not_of(" \t\r\n");
    return last != std::string::npos
           && EndsWith(tail.substr(0, last + 1),
                       "</" + head.substr(root + 1, end - root - 1) + '>');
}

} // namespace Vantor
