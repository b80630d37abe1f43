// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelControllorWithC.h"
#include "controller/ListExport/RowWriter.h"

#include <xlsxwriter.h>

#include <QtCore/QFile>

#include <algorithm>
#include <cerrno>
#include <cmath>

namespace Vantor {
namespace {

using Reason = ListExportResult::Reason;
using Look = std::shared_ptr<Clxw_format_>;

constexpr double kCapitalShare = 1.15; // widths count digits, and capitals are wider
constexpr int kPaddingChars = 2;
constexpr int kFilterButtonChars = 3;
constexpr int kNarrowestChars = 8;
constexpr int kWidestChars = 48;
constexpr int kMostRows = 1048575; // below the header

int WidthOf(int widest_chars)
{
    const int chars = static_cast<int>(std::ceil(widest_chars * kCapitalShare)) + kPaddingChars;
    return std::clamp(chars, kNarrowestChars, kWidestChars);
}

bool HasNumberType(const QVariant &cell)
{
    switch (static_cast<QMetaType::Type>(cell.userType())) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return true;
    default: // a number of any other type is a text
        return false;
    }
}

// Whole numbers beyond 15 digits would lose the last ones.
bool FitsDouble(double number)
{
    constexpr double kExact = 1e15;
    return std::isfinite(number) && std::abs(number) < kExact;
}

class CXlsxRowWriter : public CRowWriter
{
public:
    CXlsxRowWriter(const ListExportLook &look, const QString &cache) : look_(look), cache_(cache)
    {
        if (look_.sheet_name.isEmpty())
            look_.sheet_name = QStringLiteral("Sheet1");
        look_.rows_per_sheet = std::clamp(look_.rows_per_sheet, 1, kMostRows);
    }
    ~CXlsxRowWriter() override { writer_.Discard(); }

    WriteFault Open(const QString &path, const ExportTitles &titles) override
    {
        titles_ = titles;
        writer_.Init(QFile::encodeName(path).toStdString(),
                     QFile::encodeName(cache_ + QLatin1Char('/')).toStdString());
        if (!writer_.GetWorkBook())
            return {Reason::NoMemory, ENOMEM};
        return {};
    }

    WriteFault Append(const RowSlice &slice) override
    {
        const int columns = titles_.titles.size();
        for (int row = 0; row < slice.rows; ++row) {
            if (next_row_ == 0)
                StartSheet(slice, row);
            for (int column = 0; column < columns; ++column)
                WriteCell(column, slice.cells.at(row * columns + column));
            if (next_row_++ == look_.rows_per_sheet)
                FinishSheet();
        }
        return writer_.HasWriteError() ? WriteFault{Reason::TemporaryDiskFull, ENOSPC}
                                       : WriteFault{};
    }

    WriteFault Close() override
    {
        if (sheets_.isEmpty())
            StartSheet({}, 0);
        if (next_row_ > 0)
            FinishSheet();
        if (look_.on_end)
            look_.on_end(writer_, sheets_);
        writer_.Close();
        if (writer_.LastCloseResult() == LXW_NO_ERROR)
            return {};
        if (writer_.LastCloseResult() == LXW_ERROR_MEMORY_MALLOC_FAILED)
            return {Reason::NoMemory, ENOMEM};
        const bool is_full = writer_.LastCloseResult() == LXW_ERROR_CREATING_TMPFILE
                             || writer_.LastCloseErrno() == ENOSPC;
        return {is_full ? Reason::TemporaryDiskFull : Reason::WriteFailed,
                writer_.LastCloseErrno()};
    }

    [[nodiscard]] ExcelCloseNotes Notes() const override { return writer_.LastCloseNotes(); }

private:
    // Where the kind of a column does not say whether it holds numbers, its type in `row` decides.
    void StartSheet(const RowSlice &slice, int row)
    {
        QString name = look_.sheet_name;
        if (!sheets_.isEmpty())
            name += QLatin1Char(' ') + QString::number(sheets_.size() + 1);
        sheets_.append(name);
        writer_.AddSheetByName(name.toStdString());
        if (lxw_worksheet *const sheet = writer_.GetWorkSheet(name.toStdString())) {
            if (look_.is_header_frozen)
                worksheet_freeze_panes(sheet, 1, 0);
            if (look_.is_right_to_left)
                worksheet_right_to_left(sheet);
            worksheet_repeat_rows(sheet, 0, 0); // on paper
        }
        if (look_.on_sheet)
            look_.on_sheet(writer_);
        const int columns = titles_.titles.size();
        widest_.fill(0, columns);
        for (int column = 0; column < columns; ++column) {
            const bool is_number =
                titles_.kinds.at(column) == ExportColumnKind::Number
                || (row < slice.rows && HasNumberType(slice.cells.at(row * columns + column)));
            const QString &title = titles_.titles.at(column);
            writer_.SetCellString(0, column, title.toStdString(),
                                  is_number && look_.number_header ? look_.number_header
                                                                   : look_.header);
            widest_[column] = title.size() + (look_.has_filter ? kFilterButtonChars : 0);
        }
        next_row_ = 1;
    }

    void FinishSheet()
    {
        const int columns = titles_.titles.size();
        for (int column = 0; column < columns; ++column) {
            const int chars = titles_.width_chars.value(column);
            writer_.SetColumnWidth(column, column, chars > 0 ? chars : WidthOf(widest_.at(column)));
        }
        if (look_.has_filter)
            writer_.SetFilterCoumn(0, 0, next_row_ - 1, columns - 1);
        next_row_ = 0;
    }

    void WriteCell(int column, const QVariant &cell)
    {
        const QString text = cell.toString();
        if (text.isEmpty())
            return;
        widest_[column] = std::max(widest_.at(column), text.size());
        const ExportColumnKind kind = titles_.kinds.at(column);
        bool is_number = kind == ExportColumnKind::Number || HasNumberType(cell);
        const double number = is_number ? cell.toDouble(&is_number) : 0;
        std::string bytes;
        if (is_number && FitsDouble(number)) {
            writer_.SetCellString(next_row_, column, number,
                                  look_.number ? look_.number : look_.cell);
        } else if (kind == ExportColumnKind::Link || cell.userType() == QMetaType::QUrl) {
            bytes = text.toStdString();
            writer_.SetLinkString(next_row_, column, bytes);
        } else {
            bytes = text.toStdString();
            writer_.SetCellString(next_row_, column, bytes, look_.cell);
        }
    }

    ListExportLook look_;
    const QString cache_;
    CExcelControllorWithC writer_;
    ExportTitles titles_;
    QStringList sheets_;
    QVector<int> widest_; // characters by column
    int next_row_ = 0;    // of the current sheet, or 0
};

} // namespace

std::unique_ptr<CRowWriter> MakeXlsxRowWriter(const ListExportLook &look, const QString &cache)
{
    return std::make_unique<CXlsxRowWriter>(look, cache);
}

} // namespace Vantor
