// SPDX-License-Identifier: MIT
#pragma once

#include "controller/Excel/ExcelCloseNotes.h"
#include "controller/Excel/ExcelRecords.h"

#include <VantorExport.h>

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QSize>

#include <cstdint>
#include <memory>
#include <string>

struct lxw_workbook;

namespace Vantor {

struct CExcelControllorWithCDataPtr;

/// \brief Writes XLSX workbooks (ECMA-376): one workbook at a time, any number of sheets.
///
/// Init(), then AddSheetByName() (again whenever the target sheet changes), then the writes, then
/// Close(), without which nothing is saved. Rows and columns are 0-based; the last ones are
/// 1,048,575 and 16,383, and writes beyond are skipped. Without a current sheet every write does
/// nothing. All texts are UTF-8 and paths are in the local encoding; what XML cannot hold becomes
/// U+FFFD, and a cell takes at most 32,767 UTF-16 units. A null format writes without one.
///
/// With a cache path the workbook runs in constant-memory mode: rows go to temporary files as they
/// are written, so memory stays flat, and each sheet must be written row by row downwards. What
/// comes for an earlier row is lost, with one log line a sheet. Each writer needs a cache path of
/// its own: Close() removes the directory.
///
/// Use it from one thread at a time, any thread. No member throws. The destructor neither saves nor
/// frees an open workbook: Close() saves it, Discard() drops it.
class VANTOR_EXPORT CExcelControllorWithC : public QObject
{
    Q_OBJECT

public:
    explicit CExcelControllorWithC(QObject *parent = nullptr);
    ~CExcelControllorWithC() override;

    /// \brief Open a workbook that Close() will save as \a file_path; does nothing when one is open
    /// already.
    ///
    /// \param file_cache_path empty: the workbook is kept in memory. Else a path ending in a
    /// separator, below which the
    ///                        directory "FileGenerateCach" is made for temporary files.
    /// \return true always: whether the file can be written shows at Close(), in LastCloseResult().
    bool Init(const std::string &file_path, std::string file_cache_path);

    /// \brief Make the sheet \a name current, adding it first if it is new.
    ///
    /// In the file the name is cut to 31 bytes at a character; here it stays whole. A name that the
    /// format refuses (empty, one of [ ] : * ? / \, or taken already but for letter case) is
    /// entered without a sheet, and writes to it are skipped. \return false only when no workbook
    /// is open.
    bool AddSheetByName(const std::string &name);

    /// \return the open workbook, which the writer owns, or null.
    [[nodiscard]] lxw_workbook *GetWorkBook();
    /// \return the sheet, which the workbook owns; null for an empty or unknown name.
    [[nodiscard]] lxw_worksheet *GetWorkSheet(const std::string &name);
    /// \return the name of the current sheet as it was given, or an empty text.
    [[nodiscard]] std::string CurrentSheetName() const;
    /// \brief Hide the sheet; it stays in the file and in the count. The last visible sheet stays
    /// visible.
    void DeleteSheet(const std::string &name);
    /// \return the number of sheets added, hidden and refused ones too.
    [[nodiscard]] int GetSheetCount() const;

    /// \brief Write a text and remember \a row as the sheet's last used one.
    void SetCellString(int row, int col, const std::string &text,
                       std::shared_ptr<Clxw_format_> format);
    /// \brief Write a number and remember \a row; a value that is not finite leaves an empty cell.
    void SetCellString(int row, int col, const double &value, std::shared_ptr<Clxw_format_> format);
    /// \brief Merge a range and write \a text, never wrapped, into it; the last used row stays as
    /// it is.
    ///
    /// One cell is written without a merge, and so is a range that overlaps an earlier one.
    void MergeCells(int first_row, int first_col, int last_row, int last_col,
                    const std::string &text, std::shared_ptr<Clxw_format_> format);

    /// \brief Offer the comma-separated items of \a list in the cell; at most 255 UTF-16 units with
    /// their commas.
    void SetCellValidCheck(int row, int col, const std::string &list);
    /// \brief The same for each cell of a range; rows and columns count from 0, the last ones
    /// belong to it.
    void SetRangeValidCheck(int first_row, int first_col, int last_row, int last_col,
                            const std::string &list);

    /// \brief Insert the picture file \a path (PNG, JPEG, BMP or GIF) at the cell. The file is read
    /// at once.
    void SetColumnPics(int row, int col, std::string path);
    /// \brief Insert a picture held in memory: the first \a size bytes of \a buffer, at most all of
    /// them.
    void SetColumnPicsBuffer(int row, int col, std::string buffer, std::uint64_t size);
    /// \brief Insert a picture held in memory; null options mean the defaults.
    void SetColumnPicsBufferOpt(int row, int col, const std::string &buffer,
                                std::shared_ptr<Clxw_image_options_> options);
    /// \brief Does nothing; hosts' code that calls it still links.
    void SetColumnPics(int row, int col, QList<std::string> paths, QSize size);

    /// \brief Show filter buttons on the range; the next call replaces it. In constant-memory mode
    /// a range that ends above the current row is extended to it.
    void SetFilterCoumn(int begin_row, int begin_column, int end_row, int end_column);
    /// \brief Only logs: conditions are left to the user.
    void SetFilterOneCoumnWith1Str(int column, std::string rule);
    /// \brief Only logs: conditions are left to the user.
    void SetFilterOneCoumnWith2Str(int column, std::string rule1, std::string rule2);
    /// \brief Only logs: conditions are left to the user.
    void SetFilterCoumnWithListStr(int column, std::string list);

    /// \brief Width of columns in characters, 0 to 255; beyond is clamped.
    void SetColumnWidth(int begin_column, int end_column, int width);
    /// \brief Width of columns in pixels, 0 to 1790; beyond is clamped.
    void SetColumnWidthtWithPixels(int begin_column, int end_column, int pixels);
    /// \brief Height of a row in points, 0 (hidden) to 409; beyond is clamped.
    void SetRowHeight(int row, int height);
    /// \brief Height of a row in pixels, 0 (hidden) to 545; beyond is clamped.
    void SetRowHeightWithPixels(int row, int pixels);

    /// \brief Write a link that shows its address; nothing for an empty one.
    ///
    /// An address of more than 2,079 bytes, and every link of a sheet after its 65,530th, is
    /// written as plain text.
    void SetLinkString(int row, int col, std::string &url);
    /// \brief Write a link that shows \a text.
    void SetLinkString(int row, int col, std::string &url, std::string &text);

    /// \return the current sheet's last used row, 0 without one.
    int GetUsedRowsCount();
    /// \brief Set the current sheet's last used row; also to a smaller one.
    void UpdateSheetUsedRow(int row);

    /// \brief Save the workbook, close it and remove its cache directory. The writer can then be
    /// used again.
    ///
    /// The file appears whole: it is written under a temporary name in its folder, read back and
    /// renamed, and a link is written through. When that fails, no partial file is left and an
    /// existing one is as it was. So the folder must be writable, not only the file.
    void Close();

    /// \brief Drop the workbook without saving it: free it and remove its cache directory. The
    /// writer can then be used again. Does nothing without an open workbook.
    void Discard();

    /// \brief How the last Close() ended: 0 saved, or libxlsxwriter's error code (lxw_error); 0
    /// before the first.
    ///
    /// Not 0 too after an Init() that could not make a workbook. 3 (LXW_ERROR_CREATING_TMPFILE)
    /// means that there was no room for the temporary files.
    [[nodiscard]] int LastCloseResult() const;
    /// \return the system's cause (errno) of a last Close() that failed, such as ENOSPC for a full
    /// disk; 0 when it succeeded or the cause is not known.
    [[nodiscard]] int LastCloseErrno() const;
    /// \brief What the workbook of the last Close() shortened or left out; all 0 before the first.
    [[nodiscard]] ExcelCloseNotes LastCloseNotes() const;
    /// \brief Whether a temporary file of the open workbook was refused bytes, so that Close() will
    /// fail: a long export can end here. Cheap; false without constant memory.
    [[nodiscard]] bool HasWriteError() const;

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const std::shared_ptr<CExcelControllorWithCDataPtr> d_ptr_;
};

} // namespace Vantor
