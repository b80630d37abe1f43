// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelSheet.h"

#include "common/LogMacro.h"
#include "controller/Excel/ExcelFormats.h"
#include "controller/Excel/ExcelLink.h"
#include "controller/Excel/ExcelText.h"
#include "controller/Excel/XlsxInternals.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace Vantor {
namespace {

constexpr int kMaxLinks = 65530;       // a sheet's links, the format's limit
constexpr int kMaxMerges = 65535;      // libxlsxwriter 1.1.4 counts them in 16 bits
constexpr int kMaxValidations = 65534; // elements of a sheet, the format's limit
constexpr int kMaxWidth = 255;         // characters
constexpr int kMaxWidthPx = 1790;
constexpr int kMaxHeight = 409; // points
constexpr int kMaxHeightPx = 545;

lxw_row_t Row(int row)
{
    return static_cast<lxw_row_t>(row);
}

lxw_col_t Column(int column)
{
    return static_cast<lxw_col_t>(column);
}

std::string Joined(const std::vector<std::string> &items)
{
    std::string list;
    for (std::size_t i = 0; i < items.size(); ++i)
        list.append(i > 0 ? "," : "").append(items[i]);
    return list;
}

std::string WithDoubledQuotes(std::string text)
{
    for (std::size_t at = text.find('"'); at != std::string::npos; at = text.find('"', at + 2))
        text.insert(at, 1, '"');
    return text;
}

} // namespace

CExcelSheet::CExcelSheet(lxw_worksheet *sheet, const std::string &name, CExcelFormats &formats)
    : sheet_(sheet), name_(name), formats_(&formats)
{}

void CExcelSheet::WriteText(int row, int col, const std::string &text, const Clxw_format_ *look)
{
    if (Holds(CellAt(row, col)))
        PutText(row, col, text, FormatOf(look, true));
}

void CExcelSheet::PutText(int row, int col, const std::string &text, lxw_format *format)
{
    ReachRow(row);
    std::string storage;
    const std::string &fitting = Fit(text, storage);
    Check(worksheet_write_string(sheet_, Row(row), Column(col), fitting.c_str(), format));
}

void CExcelSheet::WriteNumber(int row, int col, double value, const Clxw_format_ *look)
{
    if (!Holds(CellAt(row, col)))
        return;
    ReachRow(row);
    lxw_format *const format = FormatOf(look, true);
    if (std::isfinite(value)) {
        Check(worksheet_write_number(sheet_, Row(row), Column(col), value, format));
        return;
    }
    Lose(Loss::Number);
    Check(worksheet_write_blank(sheet_, Row(row), Column(col), format));
}

void CExcelSheet::Merge(const CellRange &range, const std::string &text, const Clxw_format_ *look)
{
    const CellRange cells = Ordered(range);
    if (!Holds(cells))
        return;
    lxw_format *const format = FormatOf(look, false);
    if (!cells.IsOneCell()) {
        const bool overlaps = merged_.Overlaps(cells);
        if (!overlaps && merged_.Count() < kMaxMerges) {
            PutMerged(cells, text, format);
            return;
        }
        Lose(overlaps ? Loss::MergeOverlaps : Loss::MergeBeyond);
    }
    PutText(cells.first_row, cells.first_col, text, format);
}

void CExcelSheet::PutMerged(const CellRange &range, const std::string &text, lxw_format *format)
{
    ReachRow(range.first_row);
    merged_.Add(range);
    const bool is_tall = range.first_row != range.last_row;
    const bool is_first_row_only = is_tall && XlsxInternals::IsConstantMemory(sheet_);
    std::string storage;
    const std::string &fitting = is_first_row_only ? storage : Fit(text, storage);
    const bool is_merged = Check(worksheet_merge_range(
        sheet_, Row(range.first_row), Column(range.first_col), Row(range.last_row),
        Column(range.last_col), fitting.c_str(), is_first_row_only ? nullptr : format));
    if (!is_merged || !is_first_row_only)
        return;
    // Formatted blanks below the first row would push that row, and the next ones, out to the
    // temporary file, and later cells of those rows would be lost.
    PutText(range.first_row, range.first_col, text, format);
    for (int column = range.first_col + 1; column <= range.last_col; ++column)
        Check(worksheet_write_blank(sheet_, Row(range.first_row), Column(column), format));
}

void CExcelSheet::Validate(const CellRange &range, const std::string &list)
{
    const CellRange cells = Ordered(range);
    if (!Holds(cells))
        return;
    std::vector<std::string> items = ExcelText::SplitList(FitAttribute(list));
    for (std::string &item : items)
        item = WithDoubledQuotes(item);
    const std::string joined = Joined(items);
    if (joined.empty())
        Lose(Loss::ListEmpty);
    else if (ExcelText::Utf16Units(joined) > ExcelText::kMaxListUnits)
        Lose(Loss::ListTooLong);
    else
        lists_.Add(cells, joined);
}

void CExcelSheet::PutList(const ListCheck &check)
{
    // libxlsxwriter's buffer holds as many bytes as the format allows characters, so a longer list
    // takes the place of a short one afterwards.
    const bool fits_buffer = check.list->size() <= ExcelText::kMaxListUnits;
    std::vector<std::string> items{"-"};
    if (fits_buffer)
        items = ExcelText::SplitList(*check.list);
    std::vector<char *> pointers;
    pointers.reserve(items.size() + 1);
    for (std::string &item : items)
        pointers.push_back(item.data());
    pointers.push_back(nullptr);
    lxw_data_validation validation{};
    validation.validate = LXW_VALIDATION_TYPE_LIST;
    validation.value_list = pointers.data();
    const CellRange &cells = check.cells;
    const bool is_added = Check(
        worksheet_data_validation_range(sheet_, Row(cells.first_row), Column(cells.first_col),
                                        Row(cells.last_row), Column(cells.last_col), &validation));
    if (is_added && !fits_buffer)
        XlsxInternals::ReplaceLastList(sheet_, '"' + *check.list + '"');
}

void CExcelSheet::PutLists()
{
    const std::vector<ListCheck> checks = lists_.Take();
    const auto counted = [this] { return XlsxInternals::ValidationCount(sheet_); };
    // When libxlsxwriter cannot count all of them, it writes one, and the others are put behind it
    // in the finished file.
    auto next = checks.begin();
    if (counted() + checks.size() <= CListChecks::kMost) {
        for (; next != checks.end(); ++next)
            PutList(*next);
    } else if (counted() == 0) {
        PutList(*next++);
    }
    if (next == checks.end())
        return;
    const ListElements rest = ElementsOf({next, checks.end()}, kMaxValidations - counted());
    const auto count = [](int of) {
        return "<dataValidations count=\"" + std::to_string(of) + "\">";
    };
    const std::string end = "</dataValidations>";
    late_change_.part = XlsxInternals::PartName(sheet_);
    late_change_.texts = {{count(counted()), count(counted() + rest.count)},
                          {end, rest.xml.toStdString() + end}};
    if (rest.left_out > 0)
        Lose(Loss::ListBeyond, rest.left_out);
}

void CExcelSheet::WriteLink(int row, int col, const std::string &url, const std::string *text)
{
    if (url.empty() || !Holds(CellAt(row, col)))
        return;
    ReachRow(row);
    const LinkCell link = PlanLink(url, text);
    if (link.is_replaced)
        Lose(Loss::TextReplaced);
    if (!link.is_link || links_ >= kMaxLinks) {
        Lose(Loss::LinkAsText);
        PutText(row, col, text && !text->empty() ? *text : url, nullptr);
        return;
    }
    ++links_;
    Check(worksheet_write_url_opt(sheet_, Row(row), Column(col), link.target.c_str(), nullptr,
                                  link.has_display ? link.display.c_str() : nullptr,
                                  text ? "" : nullptr));
    if (link.has_text)
        PutText(row, col, link.text, formats_->LinkFormat());
}

void CExcelSheet::SetAutofilter(const CellRange &range)
{
    CellRange cells = Ordered(range);
    if (!Holds(cells))
        return;
    // In constant-memory mode a range that ends above the current row would be refused.
    if (XlsxInternals::IsConstantMemory(sheet_))
        cells.last_row = std::max(cells.last_row, XlsxInternals::CurrentRow(sheet_));
    Check(worksheet_autofilter(sheet_, Row(cells.first_row), Column(cells.first_col),
                               Row(cells.last_row), Column(cells.last_col)));
}

void CExcelSheet::SetColumnWidth(int first_col, int last_col, int width, SizeUnit unit)
{
    const CellRange columns = Ordered({0, first_col, 0, last_col});
    if (!Holds(columns))
        return;
    // One by one: overlapping ranges would leave some readers with the width of the first.
    for (int column = columns.first_col; column <= columns.last_col; ++column) {
        const int result =
            unit == SizeUnit::Pixels
                ? worksheet_set_column_pixels(
                    sheet_, Column(column), Column(column),
                    static_cast<uint32_t>(std::clamp(width, 0, kMaxWidthPx)), nullptr)
                : worksheet_set_column(sheet_, Column(column), Column(column),
                                       std::clamp(width, 0, kMaxWidth), nullptr);
        Check(result);
    }
}

void CExcelSheet::SetRowHeight(int row, int height, SizeUnit unit)
{
    if (!Holds(CellAt(row, 0)))
        return;
    // In constant memory a height, too, lets the rows above go, and with them the cells that are
    // still to come.
    if (XlsxInternals::IsConstantMemory(sheet_) && row > XlsxInternals::CurrentRow(sheet_))
        heights_[row] = {height, unit};
    else
        PutHeight(row, {height, unit});
}

void CExcelSheet::PutHeight(int row, const Height &height)
{
    if (height.unit == SizeUnit::Pixels)
        Check(worksheet_set_row_pixels(
            sheet_, Row(row), static_cast<uint32_t>(std::clamp(height.size, 0, kMaxHeightPx)),
            nullptr));
    else
        Check(worksheet_set_row(sheet_, Row(row), std::clamp(height.size, 0, kMaxHeight), nullptr));
}

void CExcelSheet::ReachRow(int row)
{
    const auto end = heights_.upper_bound(row);
    for (auto height = heights_.begin(); height != end; height = heights_.erase(height))
        PutHeight(height->first, height->second);
}

void CExcelSheet::Finish()
{
    if (!sheet_)
        return;
    ReachRow(kSheetRows);
    KeepPicturesInside();
    PutLists();
}

bool CExcelSheet::HasFailed() const
{
    return sheet_ && XlsxInternals::HasFailed(sheet_);
}

const std::string &CExcelSheet::Fit(const std::string &text, std::string &storage)
{
    const std::string *fitting = &text;
    if (!ExcelText::IsClean(text)) {
        Lose(Loss::TextReplaced);
        storage = ExcelText::Cleaned(text);
        fitting = &storage;
    }
    if (fitting->size() > ExcelText::kMaxCellUnits || ExcelText::HasEscape(*fitting)) {
        bool is_cut = false;
        storage = ExcelText::FitCell(*fitting, is_cut);
        fitting = &storage;
        if (is_cut)
            Lose(Loss::TextCut);
    }
    return *fitting;
}

std::string CExcelSheet::FitAttribute(const std::string &text)
{
    std::string fitting = ExcelText::CleanedAttribute(text);
    if (fitting != text)
        Lose(Loss::TextReplaced);
    return fitting;
}

lxw_format *CExcelSheet::FormatOf(const Clxw_format_ *look, bool can_wrap)
{
    if (!look)
        return nullptr;
    const CExcelFormats::Found found = formats_->FormatFor(look->Read(), can_wrap);
    if (!found.is_exact)
        Lose(Loss::LookReplaced);
    return found.format;
}

bool CExcelSheet::Holds(const CellRange &range)
{
    const bool is_inside = Ordered(range).IsInsideSheet();
    if (!is_inside)
        Lose(Loss::CellOutside);
    return is_inside;
}

bool CExcelSheet::Check(int result)
{
    // The one refusal that can be foreseen here: the row is in the temporary file already.
    if (result == LXW_ERROR_WORKSHEET_INDEX_OUT_OF_RANGE)
        Lose(Loss::RowAbove);
    else if (result != LXW_NO_ERROR)
        Lose(Loss::Refused);
    return result == LXW_NO_ERROR;
}

void CExcelSheet::Lose(Loss loss, int count)
{
    int &lost = losses_[static_cast<std::size_t>(loss)];
    if (lost == 0)
        VANTOR_LOG(function_, 5, VANTOR_LOG_WARNING, "Sheet %s: %s", name_.c_str(),
                   KindOf(loss).text);
    lost += count;
}

} // namespace Vantor
