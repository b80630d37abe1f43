// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelBook.h"

#include "common/LogMacro.h"
#include "controller/Excel/ExcelText.h"

#include <xlsxwriter.h>

#include <cerrno>
#include <cstring>

namespace Vantor {

lxw_worksheet *AddWorksheet(lxw_workbook *workbook, const std::string &name)
{
    static constexpr char kFunction[] = "Vantor::CExcelControllorWithC::AddSheetByName";
    const std::string shown = ExcelText::SheetName(name);
    // libxlsxwriter 1.1.4 reads in front of an empty name.
    const bool is_valid =
        !shown.empty() && workbook_validate_sheet_name(workbook, shown.c_str()) == LXW_NO_ERROR;
    errno = 0;
    lxw_worksheet *const sheet =
        is_valid ? workbook_add_worksheet(workbook, shown.c_str()) : nullptr;
    if (!is_valid)
        VANTOR_LOG(kFunction, 5, VANTOR_LOG_WARNING,
                   "Sheet %s: the name was refused, what is written to it is left out",
                   name.c_str());
    else if (!sheet)
        VANTOR_LOG(kFunction, 5, VANTOR_LOG_WARNING,
                   "Sheet %s: no temporary file (%s), what is written to it is left out",
                   name.c_str(), std::strerror(errno != 0 ? errno : ENOMEM));
    return sheet;
}

std::vector<Nim::Base::Zip::PartChange> FinishSheets(CExcelControllorWithCDataPtr &data)
{
    std::vector<Nim::Base::Zip::PartChange> changes;
    for (auto &[name, sheet] : data.map_sheets_) {
        sheet.checked.Finish();
        AddLosses(data.notes_, sheet.checked.Losses());
        data.notes_.sheets_left_out += sheet.checked.IsRefused() ? 1 : 0;
        if (!sheet.checked.LateChange().texts.empty())
            changes.push_back(sheet.checked.LateChange());
    }
    return changes;
}

const char *CloseErrorText(const SaveResult &result)
{
    if (result.code == LXW_ERROR_CREATING_TMPFILE)
        return "its temporary files could not be written, is there room for them?";
    return result.error != 0 ? std::strerror(result.error)
                             : lxw_strerror(static_cast<lxw_error>(result.code));
}

} // namespace Vantor
