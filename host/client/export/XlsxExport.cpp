// SPDX-License-Identifier: MIT
#include "export/XlsxExport.h"

#include "export/XlsxLook.h"
#include "export/XlsxSummary.h"

#include <Vantor/CExcelControllorWithC>

#include <xlsxwriter.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QLocale>
#include <QtCore/QTemporaryDir>

namespace Client {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(XlsxExport)
};

class CXlsxWriter : public CRowWriter
{
public:
    explicit CXlsxWriter(int rows_per_sheet) : rows_per_sheet_(rows_per_sheet) {}
    ~CXlsxWriter() override { writer_.Discard(); }

    bool Open(const QString &path, const IncidentRows &rows) override;
    void Append(int begin, int end) override;
    void Write() override;
    bool Close() override;
    QString Error() const override { return error_; }

private:
    void StartSheet();
    void FinishSheet();
    void WriteRow(int list_row);

    const int rows_per_sheet_;
    QTemporaryDir cache_; // of this writer alone: closing removes what is in it
    Vantor::CExcelControllorWithC writer_;
    const XlsxLook look_;
    IncidentRows rows_;
    QVector<XlsxKind> kinds_;
    QStringList sheets_;
    int next_row_ = 0;
    QString error_;
};

bool CXlsxWriter::Open(const QString &path, const IncidentRows &rows)
{
    if (!cache_.isValid()) {
        error_ =
            Texts::tr("Cannot make a folder for temporary files: %1").arg(cache_.errorString());
        return false;
    }
    rows_ = rows;
    for (int column = 0; column < rows.list->ColumnCount(); ++column)
        kinds_.append(KindOf(*rows.list, column));
    writer_.Init(QFile::encodeName(path).toStdString(),
                 QFile::encodeName(cache_.path() + QLatin1Char('/')).toStdString());
    if (!writer_.GetWorkBook())
        return false;
    StartSheet();
    return true;
}

void CXlsxWriter::Append(int begin, int end)
{
    for (int row = begin; row < end; ++row) {
        if (next_row_ > rows_per_sheet_) {
            FinishSheet();
            StartSheet();
        }
        WriteRow(rows_.rows.at(row));
    }
}

void CXlsxWriter::Write()
{
    FinishSheet();
    WriteSummary(writer_, look_, rows_, sheets_);
}

bool CXlsxWriter::Close()
{
    writer_.Close();
    if (writer_.LastCloseResult() == LXW_ERROR_CREATING_TMPFILE)
        error_ =
            Texts::tr("There is not enough room for temporary files in %1. Nothing was exported.")
                .arg(QDir::toNativeSeparators(QDir::tempPath()));
    return writer_.LastCloseResult() == LXW_NO_ERROR;
}

void CXlsxWriter::StartSheet()
{
    //: Name of a sheet: at most 12 letters that are not Latin, no signs
    QString name = Texts::tr("Incidents");
    if (!sheets_.isEmpty())
        name += QLatin1Char(' ') + QString::number(sheets_.size() + 1);
    sheets_.append(name);
    writer_.AddSheetByName(name.toStdString());
    PrepareSheet(writer_, name);
    if (lxw_worksheet *const sheet = writer_.GetWorkSheet(name.toStdString())) {
        worksheet_freeze_panes(sheet, 1, 0);
        worksheet_repeat_rows(sheet, 0, 0);
    }
    for (int column = 0; column < kinds_.size(); ++column) {
        const bool is_number = kinds_.at(column) == XlsxKind::Number;
        writer_.SetCellString(0, column, rows_.list->Title(column).toStdString(),
                              is_number ? look_.number_header : look_.header);
        writer_.SetColumnWidth(column, column, ColumnWidth(rows_, column));
    }
    next_row_ = 1;
}

void CXlsxWriter::FinishSheet()
{
    if (!kinds_.isEmpty())
        writer_.SetFilterCoumn(0, 0, next_row_ - 1, kinds_.size() - 1);
}

void CXlsxWriter::WriteRow(int list_row)
{
    for (int column = 0; column < kinds_.size(); ++column) {
        const QString &text = rows_.list->Text(list_row, column);
        if (text.isEmpty())
            continue;
        std::string bytes = text.toStdString();
        switch (kinds_.at(column)) {
        case XlsxKind::Text:
            writer_.SetCellString(next_row_, column, bytes, look_.cell);
            break;
        case XlsxKind::Number:
            writer_.SetCellString(next_row_, column, text.toDouble(), look_.number);
            break;
        case XlsxKind::Link:
            writer_.SetLinkString(next_row_, column, bytes);
            break;
        }
    }
    ++next_row_;
}

} // namespace

std::unique_ptr<CRowWriter> MakeXlsxRowWriter(int rows_per_sheet)
{
    return std::make_unique<CXlsxWriter>(rows_per_sheet);
}

std::unique_ptr<CRowWriter> MakeXlsxWriter(QWidget *)
{
    return MakeXlsxRowWriter(kXlsxRowsPerSheet);
}

} // namespace Client
