// SPDX-License-Identifier: MIT
#pragma once

#include "controller/Excel/CellRange.h"
#include "controller/Excel/ExcelLoss.h"
#include "controller/Excel/ExcelRecords.h"
#include "controller/Excel/ListChecks.h"
#include "controller/Excel/MergedCells.h"

#include <Nim/Base/Zip.h>

#include <map>
#include <string>

struct lxw_format;
struct lxw_worksheet;

namespace Vantor {

class CExcelFormats;

enum class SizeUnit { Native, Pixels }; // Native: characters for widths, points for heights

// The writes to one sheet, checked first: what libxlsxwriter would drop without a word, overwrite
// or write so that the file does not open. Each kind of loss is counted, and logged once a sheet.
class CExcelSheet
{
public:
    // `sheet` may be null (a refused sheet): nothing may be written then.
    CExcelSheet(lxw_worksheet *sheet, const std::string &name, CExcelFormats &formats);

    [[nodiscard]] bool IsRefused() const { return !sheet_; }
    // The operation that the next writes, and what they log, belong to.
    void SpeakFor(const char *function) { function_ = function; }

    // Null looks write without one.
    void WriteText(int row, int col, const std::string &text, const Clxw_format_ *look);
    void WriteNumber(int row, int col, double value, const Clxw_format_ *look);
    void Merge(const CellRange &range, const std::string &text, const Clxw_format_ *look);
    void Validate(const CellRange &range, const std::string &list);
    // `text` null shows the address; nothing is written for an empty one.
    void WriteLink(int row, int col, const std::string &url, const std::string *text);
    // The bytes of a picture; `options` is copied.
    void InsertPicture(int row, int col, const std::string &picture,
                       const lxw_image_options_ &options);
    // The picture file `path`, read now: a file that goes before the workbook is closed would take
    // the picture along.
    void InsertPictureFile(int row, int col, const std::string &path);
    void SetAutofilter(const CellRange &range);
    void SetColumnWidth(int first_col, int last_col, int width, SizeUnit unit);
    void SetRowHeight(int row, int height, SizeUnit unit);

    // Writes the content that was held back; the workbook can be closed then.
    void Finish();
    // What has to be put into the finished file; nothing unless it has texts.
    [[nodiscard]] const Nim::Base::Zip::PartChange &LateChange() const { return late_change_; }
    // Whether the temporary file of the sheet refused bytes.
    [[nodiscard]] bool HasFailed() const;
    [[nodiscard]] const LossCounts &Losses() const { return losses_; }

private:
    struct Height
    {
        int size = 0;
        SizeUnit unit = SizeUnit::Native;
    };

    // Text as the file can hold it. `storage` keeps a changed copy.
    const std::string &Fit(const std::string &text, std::string &storage);
    std::string FitAttribute(const std::string &text);
    lxw_format *FormatOf(const Clxw_format_ *look, bool can_wrap);
    void PutText(int row, int col, const std::string &text, lxw_format *format);
    void PutMerged(const CellRange &range, const std::string &text, lxw_format *format);
    void PutHeight(int row, const Height &height);
    void PutList(const ListCheck &check);
    void PutLists();
    // Whether the cells are inside the sheet; those outside are counted as lost.
    [[nodiscard]] bool Holds(const CellRange &range);
    // Gives the rows up to `row` the heights that were held back for them.
    void ReachRow(int row);
    // Once the sizes of columns and rows are known.
    void KeepPicturesInside();
    // Whether `result` is success; a failure is counted.
    bool Check(int result);
    void Lose(Loss loss, int count = 1);

    lxw_worksheet *sheet_;
    std::string name_;
    CExcelFormats *formats_;
    const char *function_ = "";
    CMergedCells merged_;
    CListChecks lists_;
    Nim::Base::Zip::PartChange late_change_;
    std::map<int, Height> heights_; // of rows below the current one, in constant memory
    int links_ = 0;
    LossCounts losses_{};
};

} // namespace Vantor
