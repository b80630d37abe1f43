// SPDX-License-Identifier: MIT
#include "controller/Excel/XlsxInternals.h"

#include <Nim/Base/FileSystem.h>

#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <deque>

static_assert(LXW_VERSION_ID == 114, "only libxlsxwriter 1.1.4 was looked into");

namespace Vantor::XlsxInternals {
namespace {

template <class Visit> void ForEachSheet(lxw_workbook *workbook, Visit &&visit)
{
    lxw_worksheet *sheet = nullptr;
    STAILQ_FOREACH(sheet, workbook->worksheets, list_pointers)
    {
        visit(sheet);
    }
}

// The sheets' temporary files, each behind a stream that knows whether it was closed.
class CSheetStreams
{
public:
    explicit CSheetStreams(lxw_workbook *workbook)
    {
        ForEachSheet(workbook, [this](lxw_worksheet *sheet) {
            if (!sheet->optimize_tmpfile)
                return;
            streams_.emplace_back();
            Stream &stream = streams_.back();
            stream.file =
                Nim::Base::FileSystem::WatchClosing(sheet->optimize_tmpfile, &stream.is_closed);
            if (stream.file)
                sheet->optimize_tmpfile = stream.file;
        });
    }
    ~CSheetStreams()
    {
        for (const Stream &stream : streams_) {
            if (stream.file && !stream.is_closed)
                std::fclose(stream.file);
        }
    }
    CSheetStreams(const CSheetStreams &) = delete;
    CSheetStreams &operator=(const CSheetStreams &) = delete;

private:
    struct Stream
    {
        std::FILE *file = nullptr;
        bool is_closed = false;
    };

    std::deque<Stream> streams_; // the streams keep pointers into it
};

} // namespace

bool IsConstantMemory(const lxw_worksheet *sheet)
{
    return sheet->optimize != 0;
}

int CurrentRow(const lxw_worksheet *sheet)
{
    return static_cast<int>(sheet->optimize_row->row_num);
}

bool HasFailed(const lxw_worksheet *sheet)
{
    return sheet->optimize_tmpfile && std::ferror(sheet->optimize_tmpfile) != 0;
}

int ColumnPx(const lxw_worksheet *sheet, int column, int object_position)
{
    constexpr double kDigitPx = 7;
    constexpr int kPaddingPx = 5;
    for (int i = 0; i < sheet->col_options_max; ++i) {
        const lxw_col_options *const columns = sheet->col_options[i];
        if (!columns || column < columns->firstcol || column > columns->lastcol)
            continue;
        if (columns->hidden != 0 && object_position != LXW_OBJECT_MOVE_AND_SIZE_AFTER)
            return 0;
        // NOLINTBEGIN(bugprone-incorrect-roundings): as the library rounds
        if (columns->width < 1)
            return static_cast<int>(columns->width * (kDigitPx + kPaddingPx) + 0.5);
        return static_cast<int>(columns->width * kDigitPx + 0.5) + kPaddingPx;
        // NOLINTEND(bugprone-incorrect-roundings)
    }
    return static_cast<int>(sheet->default_col_pixels);
}

int RowPx(lxw_worksheet *sheet, int row, int object_position)
{
    constexpr double kPointsPerPx = 0.75;
    const lxw_row *const known = lxw_worksheet_find_row(sheet, static_cast<lxw_row_t>(row));
    if (!known)
        return static_cast<int>(sheet->default_row_height / kPointsPerPx);
    const bool is_hidden = known->hidden != 0 && object_position != LXW_OBJECT_MOVE_AND_SIZE_AFTER;
    return is_hidden ? 0 : static_cast<int>(known->height / kPointsPerPx);
}

std::vector<lxw_object_properties *> Pictures(const lxw_worksheet *sheet)
{
    std::vector<lxw_object_properties *> pictures;
    lxw_object_properties *picture = nullptr;
    STAILQ_FOREACH(picture, sheet->image_props, list_pointers)
    {
        pictures.push_back(picture);
    }
    return pictures;
}

void ReplaceLastList(lxw_worksheet *sheet, const std::string &formula)
{
    // The queue, which is not empty, knows the address of its last link. STAILQ_LAST does not
    // compile as C++.
    auto *const added = reinterpret_cast<lxw_data_val_obj *>(
        reinterpret_cast<char *>(sheet->data_validations->stqh_last)
        - offsetof(lxw_data_val_obj, list_pointers));
    std::free(added->value_formula);
    added->value_formula = strdup(formula.c_str());
}

int ValidationCount(const lxw_worksheet *sheet)
{
    return sheet->num_validations;
}

std::string PartName(const lxw_worksheet *sheet)
{
    return "xl/worksheets/sheet" + std::to_string(sheet->index + 1) + ".xml";
}

std::vector<SheetRows> FlushRows(lxw_workbook *workbook)
{
    std::vector<SheetRows> rows;
    ForEachSheet(workbook, [&rows](lxw_worksheet *sheet) {
        SheetRows of_sheet;
        of_sheet.part = PartName(sheet);
        if (std::FILE *const file = sheet->optimize_tmpfile) {
            lxw_worksheet_write_single_row(sheet);
            of_sheet.is_sound = std::fflush(file) == 0 && std::ferror(file) == 0;
            const auto end = std::ftell(file);
            of_sheet.bytes = end > 0 ? static_cast<std::uint64_t>(end) : 0;
        }
        rows.push_back(of_sheet);
    });
    return rows;
}

void ActivateVisibleSheet(lxw_workbook *workbook)
{
    lxw_worksheet *first_visible = nullptr;
    bool is_active_visible = false;
    ForEachSheet(workbook, [&](lxw_worksheet *sheet) {
        if (sheet->hidden)
            return;
        first_visible = first_visible ? first_visible : sheet;
        is_active_visible = is_active_visible || sheet->index == workbook->active_sheet;
    });
    if (is_active_visible || !first_visible)
        return;
    worksheet_activate(first_visible);
    worksheet_set_first_sheet(first_visible);
}

void SetFileName(lxw_workbook *workbook, const std::string &path)
{
    std::free(workbook->filename);
    workbook->filename = strdup(path.c_str());
}

int CloseWorkbook(lxw_workbook *workbook, int &error)
{
    const CSheetStreams streams(workbook);
    errno = 0;
    const int result = workbook_close(workbook);
    error = result != LXW_NO_ERROR ? errno : 0;
    return result;
}

void FreeWorkbook(lxw_workbook *workbook)
{
    std::vector<std::FILE *> files;
    ForEachSheet(workbook, [&files](const lxw_worksheet *sheet) {
        if (sheet->optimize_tmpfile)
            files.push_back(sheet->optimize_tmpfile);
    });
    lxw_workbook_free(workbook);
    for (std::FILE *const file : files)
        std::fclose(file);
}

} // namespace Vantor::XlsxInternals
