// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelControllorWithC.h"

#include "common/ForwardEvents.h"
#include "common/Guard.h"
#include "common/LogMacro.h"
#include "controller/Excel/ExcelFile.h"
#include "controller/Excel/ExcelFormats.h"
#include "controller/Excel/ExcelSheet.h"
#include "controller/Excel/ExcelText.h"

#include <Nim/Base/FileSystem.h>

#include <xlsxwriter.h>

#include <algorithm>
#include <map>

#define EXCEL_FUNCTION(name) "Vantor::CExcelControllorWithC::" name

namespace Vantor {

struct CExcelControllorWithCDataPtr
{
    lxw_workbook *ptr_excel_ = nullptr;
    std::map<std::string, CsheetFormat> map_sheets_; // by the name as the caller gave it
    lxw_worksheet *ptr_sheet_ = nullptr;
    std::string str_sheet_name_;
    std::string str_cache_path_;
    std::string file_path_;

    CExcelFormats formats_;
    std::map<std::string, CExcelSheet> map_checked_; // by the same names
    CExcelSheet *ptr_checked_ = nullptr;            // of the current sheet, null when there is none
    std::shared_ptr<sheetFormat> ptr_sheet_format_; // of the current sheet
    int close_result_ = 0;
};

namespace {

// Runs `write` with the current sheet, if there is one.
template <class Write>
void OnSheet(const char *function, CExcelControllorWithCDataPtr &data, Write &&write)
{
    if (data.ptr_sheet_)
        RunGuarded(function, [&] { std::forward<Write>(write)(*data.ptr_checked_); });
}

lxw_format *FormatOf(CExcelControllorWithCDataPtr &data,
                     const std::shared_ptr<Clxw_format_> &format, bool can_wrap)
{
    return format ? data.formats_.FormatFor(data.ptr_excel_, format->Read(), can_wrap) : nullptr;
}

lxw_worksheet *AddWorksheet(lxw_workbook *workbook, const std::string &name)
{
    const std::string shown = ExcelText::SheetName(name);
    if (shown.empty()) // libxlsxwriter 1.1.4 reads in front of an empty name
        return nullptr;
    return workbook_add_worksheet(workbook, shown.c_str());
}

void MakeCurrent(CExcelControllorWithCDataPtr &data, const std::string &name, CsheetFormat &sheet)
{
    data.ptr_sheet_ = sheet.GetVal_sheet();
    data.ptr_sheet_format_ = sheet.GetDataPtr();
    data.ptr_checked_ = &data.map_checked_.try_emplace(name, data.ptr_sheet_, name).first->second;
    data.str_sheet_name_ = name;
}

// libxlsxwriter shows the first sheet again when no other is active.
void ActivateVisibleSheet(lxw_workbook *workbook)
{
    lxw_worksheet *first_visible = nullptr;
    lxw_worksheet *sheet = nullptr;
    STAILQ_FOREACH(sheet, workbook->worksheets, list_pointers)
    {
        if (!sheet->hidden && !first_visible)
            first_visible = sheet;
        if (sheet->index == workbook->active_sheet && !sheet->hidden)
            return;
    }
    if (!first_visible)
        return;
    worksheet_activate(first_visible);
    worksheet_set_first_sheet(first_visible);
}

void RemoveCache(CExcelControllorWithCDataPtr &data)
{
    const std::string path = data.str_cache_path_;
    data.str_cache_path_.clear();
    if (path.empty() || Nim::Base::FileSystem::FileExists(path.c_str()) != 0)
        return;
    const bool is_removed = RemoveDirectory(path);
    VANTOR_LOG(EXCEL_FUNCTION("Close"), 3, VANTOR_LOG_USER_OPERATE,
               "delete file path = %s, result = %d", path.c_str(), is_removed ? 1 : 0);
}

const char *CloseErrorText(int result)
{
    if (result == LXW_ERROR_CREATING_TMPFILE)
        return "its temporary files could not be written, is there room for them?";
    return lxw_strerror(static_cast<lxw_error>(result));
}

// Forgets the workbook, which is saved or freed by now, and removes its cache directory.
void Reset(CExcelControllorWithCDataPtr &data)
{
    data.formats_.Clear();
    data.map_sheets_.clear();
    data.map_checked_.clear();
    data.ptr_checked_ = nullptr;
    data.ptr_sheet_format_.reset();
    data.ptr_sheet_ = nullptr;
    data.str_sheet_name_.clear();
    data.file_path_.clear();
    RunGuarded(EXCEL_FUNCTION("Close"), [&data] { RemoveCache(data); });
}

} // namespace

// Hosts were compiled against these signatures: texts and records by value.
// NOLINTBEGIN(performance-unnecessary-value-param)

CExcelControllorWithC::CExcelControllorWithC(QObject *parent)
    : QObject(parent), d_ptr_(std::make_shared<CExcelControllorWithCDataPtr>())
{}

CExcelControllorWithC::~CExcelControllorWithC() = default;

bool CExcelControllorWithC::Init(const std::string &file_path, std::string file_cache_path)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("Init");
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE, "CExcelControllorWithC::Init");
    if (d_ptr_->ptr_excel_)
        return true;
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
               "CExcelControllorWithC::Init  d_ptr_->ptr_excel_ is null  file_cache_path =%s",
               file_cache_path.c_str());
    RunGuarded(kFunction, [&] {
        RemoveCache(*d_ptr_); // of an Init() that failed
        if (file_cache_path.empty()) {
            d_ptr_->ptr_excel_ = workbook_new(file_path.c_str());
        } else {
            d_ptr_->str_cache_path_ = file_cache_path + "FileGenerateCach";
            if (!Nim::Base::FileSystem::MakeDir(d_ptr_->str_cache_path_))
                VANTOR_LOG(kFunction, 5, VANTOR_LOG_WARNING, "No cache directory: %s",
                           d_ptr_->str_cache_path_.c_str());
            lxw_workbook_options options{};
            options.constant_memory = LXW_TRUE;
            options.tmpdir = d_ptr_->str_cache_path_.data();
            options.use_zip64 = LXW_FALSE;
            d_ptr_->ptr_excel_ = workbook_new_opt(file_path.c_str(), &options);
        }
        d_ptr_->file_path_ = file_path;
    });
    if (!d_ptr_->ptr_excel_) // Close() will have nothing to save
        d_ptr_->close_result_ = LXW_ERROR_MEMORY_MALLOC_FAILED;
    return true;
}

bool CExcelControllorWithC::AddSheetByName(const std::string &name)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("AddSheetByName");
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE, "CExcelControllorWithC::Init");
    if (!d_ptr_->ptr_excel_)
        return false;
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
               "CExcelControllorWithC::Init d_ptr_->ptr_excel_ != nullptr");
    RunGuarded(kFunction, [&] {
        auto known = d_ptr_->map_sheets_.find(name);
        if (known == d_ptr_->map_sheets_.end()) {
            CsheetFormat sheet;
            sheet.SetVal_sheet(AddWorksheet(d_ptr_->ptr_excel_, name));
            if (!sheet.GetVal_sheet())
                VANTOR_LOG(kFunction, 5, VANTOR_LOG_WARNING,
                           "Sheet %s: the name was refused, what is written to it is left out",
                           name.c_str());
            known = d_ptr_->map_sheets_.emplace(name, sheet).first;
        }
        MakeCurrent(*d_ptr_, name, known->second);
    });
    return true;
}

lxw_workbook *CExcelControllorWithC::GetWorkBook()
{
    return d_ptr_->ptr_excel_;
}

lxw_worksheet *CExcelControllorWithC::GetWorkSheet(const std::string &name)
{
    const auto known = d_ptr_->map_sheets_.find(name);
    const bool is_known = !name.empty() && known != d_ptr_->map_sheets_.end();
    return is_known ? known->second.GetVal_sheet() : nullptr;
}

void CExcelControllorWithC::DeleteSheet(const std::string &name)
{
    if (lxw_worksheet *const sheet = GetWorkSheet(name))
        worksheet_hide(sheet);
}

int CExcelControllorWithC::GetSheetCount() const
{
    return static_cast<int>(d_ptr_->map_sheets_.size());
}

void CExcelControllorWithC::SetCellString(int row, int col, const std::string &text,
                                          std::shared_ptr<Clxw_format_> format)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetCellString");
    OnSheet(kFunction, *d_ptr_, [&](CExcelSheet &sheet) {
        d_ptr_->ptr_sheet_format_->has_used_row = row;
        sheet.WriteText(kFunction, row, col, text, FormatOf(*d_ptr_, format, true));
    });
}

void CExcelControllorWithC::SetCellString(int row, int col, const double &value,
                                          std::shared_ptr<Clxw_format_> format)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetCellString");
    OnSheet(kFunction, *d_ptr_, [&](CExcelSheet &sheet) {
        d_ptr_->ptr_sheet_format_->has_used_row = row;
        sheet.WriteNumber(kFunction, row, col, value, FormatOf(*d_ptr_, format, true));
    });
}

void CExcelControllorWithC::MergeCells(int first_row, int first_col, int last_row, int last_col,
                                       const std::string &text,
                                       std::shared_ptr<Clxw_format_> format)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("MergeCells");
    OnSheet(kFunction, *d_ptr_, [&](CExcelSheet &sheet) {
        sheet.Merge(kFunction, {first_row, first_col, last_row, last_col}, text,
                    FormatOf(*d_ptr_, format, false));
    });
}

void CExcelControllorWithC::SetCellValidCheck(int row, int col, const std::string &list)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetCellValidCheck");
    OnSheet(kFunction, *d_ptr_, [&](CExcelSheet &sheet) {
        sheet.Validate(kFunction, {row, col, row, col}, list);
    });
}

void CExcelControllorWithC::SetRangeValidCheck(int first_row, int first_col, int last_row,
                                               int last_col, const std::string &list)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetRangeValidCheck");
    OnSheet(kFunction, *d_ptr_, [&](CExcelSheet &sheet) {
        sheet.Validate(kFunction, {first_row, first_col, last_row, last_col}, list);
    });
}

void CExcelControllorWithC::SetColumnPics(int row, int col, std::string path)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetColumnPics");
    OnSheet(kFunction, *d_ptr_,
            [&](CExcelSheet &sheet) { sheet.InsertPictureFile(kFunction, row, col, path); });
}

void CExcelControllorWithC::SetColumnPicsBuffer(int row, int col, std::string buffer,
                                                std::uint64_t size)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetColumnPicsBuffer");
    OnSheet(kFunction, *d_ptr_, [&](CExcelSheet &sheet) {
        if (size < buffer.size())
            buffer.resize(static_cast<std::size_t>(size));
        sheet.InsertPicture(kFunction, row, col, buffer, {});
    });
}

void CExcelControllorWithC::SetColumnPicsBufferOpt(int row, int col, const std::string &buffer,
                                                   std::shared_ptr<Clxw_image_options_> options)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetColumnPicsBufferOpt");
    OnSheet(kFunction, *d_ptr_, [&](CExcelSheet &sheet) {
        sheet.InsertPicture(kFunction, row, col, buffer,
                            options ? options->Read() : lxw_image_options_());
    });
}

void CExcelControllorWithC::SetColumnPics(int, int, QList<std::string>, QSize) {}

void CExcelControllorWithC::SetFilterCoumn(int begin_row, int begin_column, int end_row,
                                           int end_column)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetFilterCoumn");
    OnSheet(kFunction, *d_ptr_, [&](CExcelSheet &sheet) {
        VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
                   "CExcelControllorWithC::SetFilterCoumn begin_row =%d  begin_column =%d "
                   "end_row =%d en_column =%d",
                   begin_row, begin_column, end_row, end_column);
        sheet.SetAutofilter(kFunction, {begin_row, begin_column, end_row, end_column});
    });
}

void CExcelControllorWithC::SetFilterOneCoumnWith1Str(int column, std::string rule)
{
    VANTOR_LOG(EXCEL_FUNCTION("SetFilterOneCoumnWith1Str"), 3, VANTOR_LOG_USER_OPERATE,
               "CExcelControllorWithC::SetFilterOneCoumnWith1Str begin_column =%d  rule_str =%s",
               column, rule.c_str());
}

void CExcelControllorWithC::SetFilterOneCoumnWith2Str(int, std::string, std::string)
{
    VANTOR_LOG(EXCEL_FUNCTION("SetFilterOneCoumnWith2Str"), 3, VANTOR_LOG_USER_OPERATE,
               "CExcelControllorWithC::SetFilterOneCoumnWith2Str");
}

void CExcelControllorWithC::SetFilterCoumnWithListStr(int column, std::string list)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetFilterCoumnWithListStr");
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
               "CExcelControllorWithC::SetFilterCoumnWithListStr filter_column =%d", column);
    // Taken apart and let go again: the conditions are left to the user.
    RunGuarded(kFunction, [&list] { static_cast<void>(ExcelText::SplitList(list)); });
}

void CExcelControllorWithC::SetColumnWidth(int begin_column, int end_column, int width)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetColumnWidth");
    OnSheet(kFunction, *d_ptr_, [&](CExcelSheet &sheet) {
        VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
                   "CExcelControllorWithC::SetColumnWidth begin_column =%d  en_column =%d "
                   "i_width =%d",
                   begin_column, end_column, width);
        sheet.SetColumnWidth(kFunction, begin_column, end_column, width, false);
    });
}

void CExcelControllorWithC::SetColumnWidthtWithPixels(int begin_column, int end_column, int pixels)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetColumnWidthtWithPixels");
    OnSheet(kFunction, *d_ptr_, [&](CExcelSheet &sheet) {
        sheet.SetColumnWidth(kFunction, begin_column, end_column, pixels, true);
    });
}

void CExcelControllorWithC::SetRowHeight(int row, int height)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetRowHeight");
    OnSheet(kFunction, *d_ptr_,
            [&](CExcelSheet &sheet) { sheet.SetRowHeight(kFunction, row, height, false); });
}

void CExcelControllorWithC::SetRowHeightWithPixels(int row, int pixels)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetRowHeightWithPixels");
    OnSheet(kFunction, *d_ptr_,
            [&](CExcelSheet &sheet) { sheet.SetRowHeight(kFunction, row, pixels, true); });
}

void CExcelControllorWithC::SetLinkString(int row, int col, std::string &url)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetLinkString");
    OnSheet(kFunction, *d_ptr_,
            [&](CExcelSheet &sheet) { sheet.WriteLink(kFunction, row, col, url, nullptr); });
}

void CExcelControllorWithC::SetLinkString(int row, int col, std::string &url, std::string &text)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetLinkString");
    OnSheet(kFunction, *d_ptr_,
            [&](CExcelSheet &sheet) { sheet.WriteLink(kFunction, row, col, url, &text); });
}

int CExcelControllorWithC::GetUsedRowsCount()
{
    const auto known = d_ptr_->map_sheets_.find(d_ptr_->str_sheet_name_);
    return known != d_ptr_->map_sheets_.end() ? known->second.GetVal_has_used_row() : 0;
}

void CExcelControllorWithC::UpdateSheetUsedRow(int row)
{
    const auto known = d_ptr_->map_sheets_.find(d_ptr_->str_sheet_name_);
    if (known != d_ptr_->map_sheets_.end())
        known->second.SetVal_has_used_row(row);
}

void CExcelControllorWithC::Close()
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("Close");
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE, "file  close , file_path_ = %s ",
               d_ptr_->file_path_.c_str());
    if (lxw_workbook *const workbook = std::exchange(d_ptr_->ptr_excel_, nullptr)) {
        d_ptr_->close_result_ = LXW_ERROR_MEMORY_MALLOC_FAILED; // unless the save gets to its end
        RunGuarded(kFunction, [&] {
            ActivateVisibleSheet(workbook);
            d_ptr_->close_result_ = SaveWorkbook(workbook, d_ptr_->file_path_);
        });
        VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
                   "file  close success, file_path_ = %s , close result = %d",
                   d_ptr_->file_path_.c_str(), d_ptr_->close_result_);
        if (d_ptr_->close_result_ != LXW_NO_ERROR)
            VANTOR_LOG(kFunction, 5, VANTOR_LOG_WARNING, "The workbook %s was not saved: %s",
                       d_ptr_->file_path_.c_str(), CloseErrorText(d_ptr_->close_result_));
    }
    Reset(*d_ptr_);
}

void CExcelControllorWithC::Discard()
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("Discard");
    lxw_workbook *const workbook = std::exchange(d_ptr_->ptr_excel_, nullptr);
    if (!workbook)
        return;
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE, "The workbook %s is dropped",
               d_ptr_->file_path_.c_str());
    RunGuarded(kFunction, [workbook] { FreeWorkbook(workbook); });
    Reset(*d_ptr_);
}

int CExcelControllorWithC::LastCloseResult() const
{
    return d_ptr_->close_result_;
}

VANTOR_FORWARD_EVENTS(CExcelControllorWithC, QObject)

// NOLINTEND(performance-unnecessary-value-param)

} // namespace Vantor
