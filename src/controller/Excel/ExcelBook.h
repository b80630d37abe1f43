// SPDX-License-Identifier: MIT
#pragma once

#include "controller/Excel/ExcelCloseNotes.h"
#include "controller/Excel/ExcelFile.h"
#include "controller/Excel/ExcelFormats.h"
#include "controller/Excel/ExcelRecords.h"
#include "controller/Excel/ExcelSheet.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

struct lxw_workbook;
struct lxw_worksheet;

namespace Vantor {

// A sheet of the open workbook; one that was refused has no libxlsxwriter sheet.
struct Sheet
{
    Sheet(lxw_worksheet *sheet, const std::string &name, CExcelFormats &formats)
        : checked(sheet, name, formats)
    {
        record.SetVal_sheet(sheet);
    }

    CsheetFormat record;
    CExcelSheet checked;
};

struct CExcelControllorWithCDataPtr
{
    lxw_workbook *ptr_excel_ = nullptr;
    std::map<std::string, Sheet> map_sheets_; // by the name as the caller gave it
    std::pair<const std::string, Sheet> *ptr_current_ = nullptr; // one of them, or null
    std::string str_cache_path_;
    std::string file_path_;
    CExcelFormats formats_;
    SaveResult last_close_;
    ExcelCloseNotes notes_;
};

// A new worksheet of `workbook`; null when it is refused, which is logged.
lxw_worksheet *AddWorksheet(lxw_workbook *workbook, const std::string &name);

// Writes what the sheets held back, and counts what they lost. Returns what has to be changed in
// the finished file.
std::vector<Nim::Base::Zip::PartChange> FinishSheets(CExcelControllorWithCDataPtr &data);

// Why a save failed, for the log.
const char *CloseErrorText(const SaveResult &result);

} // namespace Vantor
