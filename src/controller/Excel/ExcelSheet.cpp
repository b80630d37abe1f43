// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelSheet.h"

#include "common/LogMacro.h"
#include "controller/Excel/ExcelPicture.h"
#include "controller/Excel/ExcelText.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace Vantor {
namespace {

constexpr int kRows = 1048576;
constexpr int kColumns = 16384;
constexpr int kMaxLinks = 65530; // a sheet's links, the format's limit
constexpr int kMaxWidth = 255;   // characters
constexpr int kMaxWidth_px = 1790;
constexpr int kMaxHeight = 409; // points
constexpr int kMaxHeight_px = 545;
constexpr int kMaxPicture_px = 32767; // a side, and the way to it from its cell
constexpr double kScreenDpi = 96;
constexpr char kReplaced[] = "what a workbook cannot hold was replaced in a text";

lxw_row_t Row(int row)
{
    return static_cast<lxw_row_t>(row);
}

lxw_col_t Column(int column)
{
    return static_cast<lxw_col_t>(column);
}

bool IsInside(int row, int column)
{
    return row >= 0 && row < kRows && column >= 0 && column < kColumns;
}

// The range with its corners in order, as libxlsxwriter takes them.
CellRange Ordered(const CellRange &range)
{
    return {std::min(range.first_row, range.last_row), std::min(range.first_col, range.last_col),
            std::max(range.first_row, range.last_row), std::max(range.first_col, range.last_col)};
}

CellRange CellAt(int row, int column)
{
    return {row, column, row, column};
}

std::string Joined(const std::vector<std::string> &items)
{
    std::string list;
    for (std::size_t i = 0; i < items.size(); ++i)
        list.append(i > 0 ? "," : "").append(items[i]);
    return list;
}

// Whether libxlsxwriter writes the whole of the address.
bool IsLink(const std::string &target)
{
    return ExcelText::EscapedBytes(target) <= ExcelText::kMaxAttributeBytes;
}

double ScaleOf(double scale)
{
    return std::isfinite(scale) && scale > 0 ? scale : 1;
}

// Pixels from the cell `at` to the end of the sheet, as far as a picture may reach.
int Room(lxw_row_t at, int count, uint32_t cell_px)
{
    return static_cast<int>(
        std::min<std::int64_t>(kMaxPicture_px, (count - std::int64_t{at}) * cell_px));
}

int OffsetOf(int offset_px, int room_px)
{
    return std::clamp(offset_px, -kMaxPicture_px, room_px - 1);
}

// Makes the scaled size end within the room; true when it had to.
bool Clamp(double &scale, double &dpi, double size, int offset_px, double room_px)
{
    if (!std::isfinite(dpi) || dpi <= 0) // as the picture's header has it
        dpi = kScreenDpi;
    const double most = (room_px - std::max(offset_px, 0)) * dpi / (size * kScreenDpi);
    const bool is_more = scale > most;
    scale = std::min(scale, most);
    return is_more;
}

std::string WithDoubledQuotes(std::string text)
{
    for (std::size_t at = text.find('"'); at != std::string::npos; at = text.find('"', at + 2))
        text.insert(at, 1, '"');
    return text;
}

} // namespace

CExcelSheet::CExcelSheet(lxw_worksheet *sheet, const std::string &name) : sheet_(sheet), name_(name)
{}

void CExcelSheet::WriteText(const char *function, int row, int col, const std::string &text,
                            lxw_format *format)
{
    if (!Holds(function, CellAt(row, col)))
        return;
    std::string storage;
    const std::string &fitting = Fit(function, text, storage);
    Check(function, worksheet_write_string(sheet_, Row(row), Column(col), fitting.c_str(), format));
}

void CExcelSheet::WriteNumber(const char *function, int row, int col, double value,
                              lxw_format *format)
{
    if (!Holds(function, CellAt(row, col)))
        return;
    if (std::isfinite(value)) {
        Check(function, worksheet_write_number(sheet_, Row(row), Column(col), value, format));
        return;
    }
    LogOnce(function, "a number that is not finite was left out");
    Check(function, worksheet_write_blank(sheet_, Row(row), Column(col), format));
}

void CExcelSheet::Merge(const char *function, const CellRange &range, const std::string &text,
                        lxw_format *format)
{
    const CellRange cells = Ordered(range);
    if (!Holds(function, cells))
        return;
    const bool is_one = cells.first_row == cells.last_row && cells.first_col == cells.last_col;
    if (is_one || OverlapsMerged(cells)) {
        if (!is_one)
            LogOnce(function, "a merged range that overlaps another was written without a merge");
        WriteText(function, cells.first_row, cells.first_col, text, format);
        return;
    }
    std::string storage;
    const std::string &fitting = Fit(function, text, storage);
    RememberMerged(cells);
    if (sheet_->optimize && cells.first_row != cells.last_row)
        MergeInConstantMemory(cells, fitting, format);
    else
        Check(function, worksheet_merge_range(sheet_, Row(cells.first_row), Column(cells.first_col),
                                              Row(cells.last_row), Column(cells.last_col),
                                              fitting.c_str(), format));
}

void CExcelSheet::Validate(const char *function, const CellRange &range, const std::string &list)
{
    if (!Holds(function, Ordered(range)))
        return;
    std::vector<std::string> items = ExcelText::SplitList(FitAttribute(function, list));
    for (std::string &item : items)
        item = WithDoubledQuotes(item);
    const std::string joined = Joined(items);
    if (ExcelText::Utf16Units(joined) > ExcelText::kMaxListUnits) {
        LogOnce(function, "a list of more than 255 characters was left out");
        return;
    }
    // libxlsxwriter 1.1.4 counts characters but copies bytes into a buffer of that size, so a
    // longer list takes its place afterwards. (Handed over as a formula it would be the same XML,
    // but a copy of it would leak.)
    const bool fits_buffer = joined.size() <= ExcelText::kMaxListUnits;
    if (!fits_buffer)
        items.assign(1, "-");
    std::vector<char *> pointers;
    pointers.reserve(items.size() + 1);
    for (std::string &item : items)
        pointers.push_back(item.data());
    pointers.push_back(nullptr);
    lxw_data_validation validation{};
    validation.validate = LXW_VALIDATION_TYPE_LIST;
    validation.value_list = pointers.data();
    lxw_data_val_obj **const added = sheet_->data_validations->stqh_last; // where it will be
    const bool is_added = Check(
        function,
        worksheet_data_validation_range(sheet_, Row(range.first_row), Column(range.first_col),
                                        Row(range.last_row), Column(range.last_col), &validation));
    if (!is_added || fits_buffer)
        return;
    std::free((*added)->value_formula);
    (*added)->value_formula = strdup(('"' + joined + '"').c_str());
}

void CExcelSheet::WriteLink(const char *function, int row, int col, const std::string &url,
                            const std::string *text)
{
    if (url.empty() || !Holds(function, CellAt(row, col)))
        return;
    const std::string address = FitAttribute(function, url);
    const std::string target = ExcelText::LinkTarget(address);
    if (!IsLink(target) || links_ >= kMaxLinks) {
        LogOnce(function, "links beyond the format's limits were written as plain text");
        WriteText(function, row, col, text ? *text : url, nullptr);
        return;
    }
    ++links_;
    std::string storage;
    const char *shown = text ? Fit(function, *text, storage).c_str() : nullptr;
    // libxlsxwriter would show the escaped form, and without its first letters where "mailto:"
    // stands in the middle.
    if (!text && (target != address || target.find("mailto:", 1) != std::string::npos))
        shown = address.c_str();
    Check(function, worksheet_write_url_opt(sheet_, Row(row), Column(col), target.c_str(), nullptr,
                                            shown, text ? "" : nullptr));
}

void CExcelSheet::InsertPicture(const char *function, int row, int col, const std::string &picture,
                                const lxw_image_options_ &options)
{
    if (!Holds(function, CellAt(row, col)))
        return;
    const auto *const bytes = reinterpret_cast<const unsigned char *>(picture.data());
    if (!IsPicture(bytes, picture.size())) {
        LogOnce(function, "what is no PNG, JPEG, BMP or GIF picture was left out");
        return;
    }
    lxw_image_options placed{};
    placed.x_offset = OffsetOf(options.x_offset, Room(col, kColumns, sheet_->default_col_pixels));
    placed.y_offset = OffsetOf(options.y_offset, Room(row, kRows, sheet_->default_row_pixels));
    placed.x_scale = ScaleOf(options.x_scale);
    placed.y_scale = ScaleOf(options.y_scale);
    placed.object_position = options.object_position;
    // libxlsxwriter copies the texts. An empty address would become a link to nowhere.
    const auto fit = [this, function](const char *text) {
        return text ? FitAttribute(function, text) : std::string();
    };
    constexpr std::size_t kMost = ExcelText::kMaxAttributeBytes;
    std::string description = ExcelText::CutToBytes(fit(options.description), kMost);
    std::string url = ExcelText::LinkTarget(fit(options.url));
    std::string tip = ExcelText::CutToBytes(fit(options.tip), kMost);
    const bool is_link = !url.empty() && IsLink(url);
    if (!url.empty() && !is_link)
        LogOnce(function, "a picture's link beyond the format's limits was left out");
    placed.description = options.description ? description.data() : nullptr;
    placed.url = is_link ? url.data() : nullptr;
    placed.tip = options.tip ? tip.data() : nullptr;
    lxw_object_properties **const added = sheet_->image_props->stqh_last; // where it will be
    if (Check(function, worksheet_insert_image_buffer_opt(sheet_, Row(row), Column(col), bytes,
                                                          picture.size(), &placed)))
        KeepInside(function, **added);
}

// libxlsxwriter 1.1.4 counts cell by cell where a picture ends, however far that is, and names
// cells that no sheet has.
void CExcelSheet::KeepInside(const char *function, lxw_object_properties &picture)
{
    const double width = Room(picture.col, kColumns, sheet_->default_col_pixels);
    const double height = Room(picture.row, kRows, sheet_->default_row_pixels);
    const bool is_narrowed =
        Clamp(picture.x_scale, picture.x_dpi, picture.width, picture.x_offset, width);
    const bool is_lowered =
        Clamp(picture.y_scale, picture.y_dpi, picture.height, picture.y_offset, height);
    if (is_narrowed || is_lowered)
        LogOnce(function, "a picture larger than the sheet was made smaller");
}

void CExcelSheet::InsertPictureFile(const char *function, int row, int col, const std::string &path)
{
    if (!Holds(function, CellAt(row, col)))
        return;
    std::string bytes;
    if (!ReadPictureFile(path, bytes)) {
        LogOnce(function, "a picture file that cannot be read was left out");
        return;
    }
    std::string description = path.substr(path.find_last_of('/') + 1); // npos + 1 is 0: all of it
    lxw_image_options_ options;
    options.description = description.data();
    InsertPicture(function, row, col, bytes, options);
}

void CExcelSheet::SetAutofilter(const char *function, const CellRange &range)
{
    CellRange cells = Ordered(range);
    if (!Holds(function, cells))
        return;
    // In constant-memory mode a range that ends above the current row would be refused.
    if (sheet_->optimize)
        cells.last_row = std::max(cells.last_row, static_cast<int>(sheet_->optimize_row->row_num));
    Check(function, worksheet_autofilter(sheet_, Row(cells.first_row), Column(cells.first_col),
                                         Row(cells.last_row), Column(cells.last_col)));
}

void CExcelSheet::SetColumnWidth(const char *function, int first_col, int last_col, int width,
                                 bool is_in_pixels)
{
    const CellRange columns = Ordered({0, first_col, 0, last_col});
    if (!Holds(function, columns))
        return;
    // One by one: overlapping ranges would leave some readers with the width of the first.
    for (int column = columns.first_col; column <= columns.last_col; ++column) {
        const int result =
            is_in_pixels ? worksheet_set_column_pixels(
                sheet_, Column(column), Column(column),
                static_cast<uint32_t>(std::clamp(width, 0, kMaxWidth_px)), nullptr)
                         : worksheet_set_column(sheet_, Column(column), Column(column),
                                                std::clamp(width, 0, kMaxWidth), nullptr);
        Check(function, result);
    }
}

void CExcelSheet::SetRowHeight(const char *function, int row, int height, bool is_in_pixels)
{
    if (!Holds(function, CellAt(row, 0)))
        return;
    if (is_in_pixels)
        Check(function, worksheet_set_row_pixels(
                            sheet_, Row(row),
                            static_cast<uint32_t>(std::clamp(height, 0, kMaxHeight_px)), nullptr));
    else
        Check(function,
              worksheet_set_row(sheet_, Row(row), std::clamp(height, 0, kMaxHeight), nullptr));
}

const std::string &CExcelSheet::Fit(const char *function, const std::string &text,
                                    std::string &storage)
{
    const std::string *fitting = &text;
    if (!ExcelText::IsClean(text)) {
        LogOnce(function, kReplaced);
        storage = ExcelText::Cleaned(text);
        fitting = &storage;
    }
    if (fitting->size() > ExcelText::kMaxCellUnits
        && ExcelText::Utf16Units(*fitting) > ExcelText::kMaxCellUnits) {
        LogOnce(function, "a text was cut to 32,767 characters");
        storage = ExcelText::CutToUnits(*fitting, ExcelText::kMaxCellUnits);
        fitting = &storage;
    }
    return *fitting;
}

std::string CExcelSheet::FitAttribute(const char *function, const std::string &text)
{
    std::string fitting = ExcelText::CleanedAttribute(text);
    if (fitting != text)
        LogOnce(function, kReplaced);
    return fitting;
}

bool CExcelSheet::Holds(const char *function, const CellRange &range)
{
    if (!sheet_)
        return false;
    if (IsInside(range.first_row, range.first_col) && IsInside(range.last_row, range.last_col))
        return true;
    LogOnce(function, "cells outside the sheet were left out");
    return false;
}

bool CExcelSheet::OverlapsMerged(const CellRange &range) const
{
    // Behind the end of `range` by more than the tallest range is high, none can reach into it.
    const auto end = merged_.upper_bound(range.last_row + tallest_merged_);
    return std::any_of(
        merged_.lower_bound(range.first_row), end, [&range](const auto &last_row_and_range) {
            const CellRange &other = last_row_and_range.second;
            return other.first_row <= range.last_row && range.first_col <= other.last_col
                   && other.first_col <= range.last_col;
        });
}

void CExcelSheet::RememberMerged(const CellRange &range)
{
    merged_.emplace(range.last_row, range);
    tallest_merged_ = std::max(tallest_merged_, range.last_row - range.first_row + 1);
}

// Formatted blanks below the first row would push that row, and the next ones, out to the temporary
// file, and what comes for them later would be lost. So only the first row gets its blanks.
void CExcelSheet::MergeInConstantMemory(const CellRange &range, const std::string &text,
                                        lxw_format *format)
{
    constexpr char kFunction[] = "Vantor::CExcelControllorWithC::MergeCells";
    const bool is_merged = Check(
        kFunction, worksheet_merge_range(sheet_, Row(range.first_row), Column(range.first_col),
                                         Row(range.last_row), Column(range.last_col), "", nullptr));
    if (!is_merged)
        return;
    WriteText(kFunction, range.first_row, range.first_col, text, format);
    for (int column = range.first_col + 1; column <= range.last_col; ++column)
        Check(kFunction,
              worksheet_write_blank(sheet_, Row(range.first_row), Column(column), format));
}

bool CExcelSheet::Check(const char *function, int result)
{
    if (result == LXW_NO_ERROR)
        return true;
    // Only this is left that is not refused before: the row is in the temporary file already.
    if (result == LXW_ERROR_WORKSHEET_INDEX_OUT_OF_RANGE)
        LogOnce(function, "what came for a row above the current one was left out");
    else
        LogOnce(function, lxw_strerror(static_cast<lxw_error>(result)));
    return false;
}

void CExcelSheet::LogOnce(const char *function, const std::string &what)
{
    if (logged_.insert(what).second)
        VANTOR_LOG(function, 5, VANTOR_LOG_WARNING, "Sheet %s: %s", name_.c_str(), what.c_str());
}

} // namespace Vantor
