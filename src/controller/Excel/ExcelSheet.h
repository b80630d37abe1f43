// SPDX-License-Identifier: MIT
#pragma once

#include "controller/Excel/ExcelRecords.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>

struct lxw_format;
struct lxw_object_properties;
struct lxw_worksheet;

namespace Vantor {

// Rows and columns of a sheet, both ends included.
struct CellRange
{
    int first_row = 0;
    int first_col = 0;
    int last_row = 0;
    int last_col = 0;
};

// The writes to one sheet, checked first: what libxlsxwriter would drop without a word, overwrite
// or write so that the file does not open. Each kind of loss is logged once a sheet, never once a
// cell.
class CExcelSheet
{
public:
    // `sheet` may be null (a refused name): every write is then skipped.
    CExcelSheet(lxw_worksheet *sheet, const std::string &name);

    void WriteText(const char *function, int row, int col, const std::string &text,
                   lxw_format *format);
    void WriteNumber(const char *function, int row, int col, double value, lxw_format *format);
    void Merge(const char *function, const CellRange &range, const std::string &text,
               lxw_format *format);
    void Validate(const char *function, const CellRange &range, const std::string &list);
    // `text` null shows the address; nothing is written for an empty one.
    void WriteLink(const char *function, int row, int col, const std::string &url,
                   const std::string *text);
    // The bytes of a picture; `options` is copied.
    void InsertPicture(const char *function, int row, int col, const std::string &picture,
                       const lxw_image_options_ &options);
    // The picture file `path`, read now: a file that goes before the workbook is closed would take
    // the picture along.
    void InsertPictureFile(const char *function, int row, int col, const std::string &path);
    void SetAutofilter(const char *function, const CellRange &range);
    void SetColumnWidth(const char *function, int first_col, int last_col, int width,
                        bool is_in_pixels);
    void SetRowHeight(const char *function, int row, int height, bool is_in_pixels);

private:
    // Text as the file can hold it: clean and at most a cell's length. `storage` keeps a changed
    // copy.
    const std::string &Fit(const char *function, const std::string &text, std::string &storage);
    // The same for an attribute or a formula, without a limit.
    std::string FitAttribute(const char *function, const std::string &text);
    [[nodiscard]] bool Holds(const char *function, const CellRange &range);
    [[nodiscard]] bool OverlapsMerged(const CellRange &range) const;
    void RememberMerged(const CellRange &range);
    void MergeInConstantMemory(const CellRange &range, const std::string &text, lxw_format *format);
    void KeepInside(const char *function, lxw_object_properties &picture);
    // Whether `result` is success; a failure is logged once.
    bool Check(const char *function, int result);
    void LogOnce(const char *function, const std::string &what);

    lxw_worksheet *sheet_;
    std::string name_;
    std::multimap<int, CellRange> merged_; // by last row
    int tallest_merged_ = 0;               // rows
    int links_ = 0;
    std::set<std::string> logged_;
};

} // namespace Vantor
