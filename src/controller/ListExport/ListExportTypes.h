// SPDX-License-Identifier: MIT
#pragma once

#include "controller/Excel/ExcelCloseNotes.h"
#include "controller/Excel/ExcelRecords.h"

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <memory>

namespace Vantor {

class CExcelControllorWithC;

/// Kinds of files that CListExport writes.
enum class ListExportFormat {
    BySuffix, ///< What the end of the path says.
    Csv,      ///< Comma-separated values, RFC 4180, UTF-8 with a byte order mark.
    Xlsx      ///< An Office Open XML workbook.
};

/// \brief How a workbook of CListExport looks. Null looks are the writer's plain one.
struct ListExportLook
{
    std::shared_ptr<Clxw_format_> header;        ///< Titles.
    std::shared_ptr<Clxw_format_> number_header; ///< Titles of columns of numbers; null: header.
    std::shared_ptr<Clxw_format_> cell;          ///< Cells with text.
    std::shared_ptr<Clxw_format_> number;        ///< Cells with numbers; null: cell.
    QString sheet_name; ///< Empty: "Sheet1". Further sheets get " 2", " 3" and so on behind it.
    bool is_header_frozen = true;  ///< The titles stay in view.
    bool has_filter = true;        ///< Filter buttons in the header.
    bool is_right_to_left = false; ///< The first column is at the right.
    int rows_per_sheet = 1048575;  ///< 1 to 1,048,575; further rows go on a further sheet.
    /// Called on the worker thread for each new sheet, which is the current one.
    std::function<void(CExcelControllorWithC &writer)> on_sheet = {};
    /// Called on the worker thread with all \a sheets after the last row; it may add sheets.
    std::function<void(CExcelControllorWithC &writer, const QStringList &sheets)> on_end = {};
};

/// \brief How an export ended.
struct ListExportResult
{
    /// How it ended; Cancelled and Failed leave the target as it was.
    enum class End { Done, Cancelled, Failed };
    /// Why it failed; None unless it did.
    enum class Reason {
        None,              ///< It did not fail.
        UnknownFormat,     ///< The path ends with no known suffix.
        NoColumns,         ///< There is nothing to write.
        NoFolder,          ///< The folder of the target is missing.
        DeadLink,          ///< The target is a link that leads nowhere.
        Folder,            ///< The target is a folder.
        Device,            ///< The target is a device or a pipe.
        WriteProtected,    ///< The earlier file may not be written.
        FolderRefuses,     ///< The folder takes no new file.
        DiskFull,          ///< There is no room for the file.
        TemporaryDiskFull, ///< There is no room for the temporary files.
        ListChanged,       ///< Rows or columns came, went or moved before all were read.
        ListFailed,        ///< The model or the row source threw.
        NoMemory,          ///< Memory ran out.
        WriteFailed        ///< Something else; \a system_text may say what.
    };

    End end = End::Failed;        ///< How it ended.
    Reason reason = Reason::None; ///< Why it failed.
    /// The system's words for the cause, in the local language, or those of what a row source
    /// threw; may be empty.
    QString system_text;
    QString path;                ///< As given to Start() or SaveAgain().
    int rows = 0;                ///< Rows that were written.
    bool can_save_again = false; ///< Whether SaveAgain() has a file to save.
    ExcelCloseNotes notes;       ///< What a workbook could not keep as it was given.
};

} // namespace Vantor

Q_DECLARE_METATYPE(Vantor::ListExportResult)
