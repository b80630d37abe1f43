// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelControllorWithC.h"

#include "common/ForwardEvents.h"
#include "common/Guard.h"
#include "common/LogMacro.h"
#include "controller/Excel/ExcelBook.h"
#include "controller/Excel/ExcelText.h"
#include "controller/Excel/XlsxInternals.h"

#include <Nim/Base/FileSystem.h>

#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#define EXCEL_FUNCTION(name) "Vantor::CExcelControllorWithC::" name

namespace Vantor {
namespace {

// Whether there is a current sheet and it was not refused.
bool HasSheet(const CExcelControllorWithCDataPtr &data)
{
    return data.ptr_current_ && !data.ptr_current_->second.checked.IsRefused();
}

// Calls a write of the current sheet, if there is one, for the public operation `function`.
template <class... Parameters, class... Arguments>
void OnSheet(CExcelControllorWithCDataPtr &data, const char *function,
             void (CExcelSheet::*write)(Parameters...), Arguments &&...arguments)
{
    if (!HasSheet(data))
        return;
    CExcelSheet &sheet = data.ptr_current_->second.checked;
    sheet.SpeakFor(function);
    RunGuarded(function, [&] { (sheet.*write)(std::forward<Arguments>(arguments)...); });
}

void UseRow(CExcelControllorWithCDataPtr &data, int row)
{
    if (HasSheet(data))
        data.ptr_current_->second.record.SetVal_has_used_row(row);
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

// Forgets the workbook, which is saved or freed by now, and removes its cache directory.
void ForgetBook(CExcelControllorWithCDataPtr &data)
{
    data.ptr_current_ = nullptr;
    data.map_sheets_.clear();
    data.formats_.SetWorkbook(nullptr);
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
        d_ptr_->formats_.SetWorkbook(d_ptr_->ptr_excel_);
        d_ptr_->notes_ = {};
    });
    if (!d_ptr_->ptr_excel_) // Close() will have nothing to save
        d_ptr_->last_close_ = {LXW_ERROR_MEMORY_MALLOC_FAILED, ENOMEM};
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
        if (known == d_ptr_->map_sheets_.end())
            known = d_ptr_->map_sheets_
                        .try_emplace(name, AddWorksheet(d_ptr_->ptr_excel_, name), name,
                                     d_ptr_->formats_)
                        .first;
        d_ptr_->ptr_current_ = &*known;
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
    return is_known ? known->second.record.GetVal_sheet() : nullptr;
}

std::string CExcelControllorWithC::CurrentSheetName() const
{
    return d_ptr_->ptr_current_ ? d_ptr_->ptr_current_->first : std::string();
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
    UseRow(*d_ptr_, row);
    OnSheet(*d_ptr_, EXCEL_FUNCTION("SetCellString"), &CExcelSheet::WriteText, row, col, text,
            format.get());
}

void CExcelControllorWithC::SetCellString(int row, int col, const double &value,
                                          std::shared_ptr<Clxw_format_> format)
{
    UseRow(*d_ptr_, row);
    OnSheet(*d_ptr_, EXCEL_FUNCTION("SetCellString"), &CExcelSheet::WriteNumber, row, col, value,
            format.get());
}

void CExcelControllorWithC::MergeCells(int first_row, int first_col, int last_row, int last_col,
                                       const std::string &text,
                                       std::shared_ptr<Clxw_format_> format)
{
    OnSheet(*d_ptr_, EXCEL_FUNCTION("MergeCells"), &CExcelSheet::Merge,
            CellRange{first_row, first_col, last_row, last_col}, text, format.get());
}

void CExcelControllorWithC::SetCellValidCheck(int row, int col, const std::string &list)
{
    OnSheet(*d_ptr_, EXCEL_FUNCTION("SetCellValidCheck"), &CExcelSheet::Validate,
            CellRange{row, col, row, col}, list);
}

void CExcelControllorWithC::SetRangeValidCheck(int first_row, int first_col, int last_row,
                                               int last_col, const std::string &list)
{
    OnSheet(*d_ptr_, EXCEL_FUNCTION("SetRangeValidCheck"), &CExcelSheet::Validate,
            CellRange{first_row, first_col, last_row, last_col}, list);
}

void CExcelControllorWithC::SetColumnPics(int row, int col, std::string path)
{
    OnSheet(*d_ptr_, EXCEL_FUNCTION("SetColumnPics"), &CExcelSheet::InsertPictureFile, row, col,
            path);
}

void CExcelControllorWithC::SetColumnPicsBuffer(int row, int col, std::string buffer,
                                                std::uint64_t size)
{
    if (size < buffer.size())
        buffer.resize(static_cast<std::size_t>(size));
    OnSheet(*d_ptr_, EXCEL_FUNCTION("SetColumnPicsBuffer"), &CExcelSheet::InsertPicture, row, col,
            buffer, lxw_image_options_());
}

void CExcelControllorWithC::SetColumnPicsBufferOpt(int row, int col, const std::string &buffer,
                                                   std::shared_ptr<Clxw_image_options_> options)
{
    OnSheet(*d_ptr_, EXCEL_FUNCTION("SetColumnPicsBufferOpt"), &CExcelSheet::InsertPicture, row,
            col, buffer, options ? options->Read() : lxw_image_options_());
}

void CExcelControllorWithC::SetColumnPics(int, int, QList<std::string>, QSize) {}

void CExcelControllorWithC::SetFilterCoumn(int begin_row, int begin_column, int end_row,
                                           int end_column)
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("SetFilterCoumn");
    if (!HasSheet(*d_ptr_))
        return;
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
               "CExcelControllorWithC::SetFilterCoumn begin_row =%d  begin_column =%d "
               "end_row =%d en_column =%d",
               begin_row, begin_column, end_row, end_column);
    OnSheet(*d_ptr_, kFunction, &CExcelSheet::SetAutofilter,
            CellRange{begin_row, begin_column, end_row, end_column});
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
    if (!HasSheet(*d_ptr_))
        return;
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
               "CExcelControllorWithC::SetColumnWidth begin_column =%d  en_column =%d i_width =%d",
               begin_column, end_column, width);
    OnSheet(*d_ptr_, kFunction, &CExcelSheet::SetColumnWidth, begin_column, end_column, width,
            SizeUnit::Native);
}

void CExcelControllorWithC::SetColumnWidthtWithPixels(int begin_column, int end_column, int pixels)
{
    OnSheet(*d_ptr_, EXCEL_FUNCTION("SetColumnWidthtWithPixels"), &CExcelSheet::SetColumnWidth,
            begin_column, end_column, pixels, SizeUnit::Pixels);
}

void CExcelControllorWithC::SetRowHeight(int row, int height)
{
    OnSheet(*d_ptr_, EXCEL_FUNCTION("SetRowHeight"), &CExcelSheet::SetRowHeight, row, height,
            SizeUnit::Native);
}

void CExcelControllorWithC::SetRowHeightWithPixels(int row, int pixels)
{
    OnSheet(*d_ptr_, EXCEL_FUNCTION("SetRowHeightWithPixels"), &CExcelSheet::SetRowHeight, row,
            pixels, SizeUnit::Pixels);
}

void CExcelControllorWithC::SetLinkString(int row, int col, std::string &url)
{
    OnSheet(*d_ptr_, EXCEL_FUNCTION("SetLinkString"), &CExcelSheet::WriteLink, row, col, url,
            nullptr);
}

void CExcelControllorWithC::SetLinkString(int row, int col, std::string &url, std::string &text)
{
    OnSheet(*d_ptr_, EXCEL_FUNCTION("SetLinkString"), &CExcelSheet::WriteLink, row, col, url,
            &text);
}

int CExcelControllorWithC::GetUsedRowsCount()
{
    return d_ptr_->ptr_current_ ? d_ptr_->ptr_current_->second.record.GetVal_has_used_row() : 0;
}

void CExcelControllorWithC::UpdateSheetUsedRow(int row)
{
    if (d_ptr_->ptr_current_)
        d_ptr_->ptr_current_->second.record.SetVal_has_used_row(row);
}

void CExcelControllorWithC::Close()
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("Close");
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE, "file  close , file_path_ = %s ",
               d_ptr_->file_path_.c_str());
    if (lxw_workbook *const workbook = std::exchange(d_ptr_->ptr_excel_, nullptr)) {
        d_ptr_->last_close_ = {LXW_ERROR_MEMORY_MALLOC_FAILED, ENOMEM}; // unless it gets to its end
        RunGuarded(kFunction, [&] {
            const auto changes = FinishSheets(*d_ptr_);
            XlsxInternals::ActivateVisibleSheet(workbook);
            d_ptr_->last_close_ = SaveWorkbook(workbook, d_ptr_->file_path_, changes);
        });
        const SaveResult &result = d_ptr_->last_close_;
        VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
                   "file  close success, file_path_ = %s , close result = %d",
                   d_ptr_->file_path_.c_str(), result.code);
        if (result.code != LXW_NO_ERROR)
            VANTOR_LOG(kFunction, 5, VANTOR_LOG_WARNING, "The workbook %s was not saved: %s",
                       d_ptr_->file_path_.c_str(), CloseErrorText(result));
    }
    ForgetBook(*d_ptr_);
}

void CExcelControllorWithC::Discard()
{
    static constexpr char kFunction[] = EXCEL_FUNCTION("Discard");
    lxw_workbook *const workbook = std::exchange(d_ptr_->ptr_excel_, nullptr);
    if (!workbook)
        return;
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE, "The workbook %s is dropped",
               d_ptr_->file_path_.c_str());
    RunGuarded(kFunction, [workbook] { XlsxInternals::FreeWorkbook(workbook); });
    ForgetBook(*d_ptr_);
}

int CExcelControllorWithC::LastCloseResult() const
{
    return d_ptr_->last_close_.code;
}

int CExcelControllorWithC::LastCloseErrno() const
{
    return d_ptr_->last_close_.error;
}

ExcelCloseNotes CExcelControllorWithC::LastCloseNotes() const
{
    return d_ptr_->notes_;
}

bool CExcelControllorWithC::HasWriteError() const
{
    const auto &sheets = d_ptr_->map_sheets_;
    return std::any_of(sheets.begin(), sheets.end(),
                       [](const auto &sheet) { return sheet.second.checked.HasFailed(); });
}

VANTOR_FORWARD_EVENTS(CExcelControllorWithC, QObject)

// NOLINTEND(performance-unnecessary-value-param)

} // namespace Vantor
