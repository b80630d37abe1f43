// SPDX-License-Identifier: MIT
#include "export/IncidentExport.h"

#include "export/XlsxLook.h"
#include "export/XlsxSummary.h"

#include <Vantor/CExcelControllorWithC>
#include <Vantor/CListExport>
#include <Vantor/CRowSource>

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>

#include <numeric>

namespace Client {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(XlsxExport)
};

class CIncidentSource : public Vantor::CRowSource
{
public:
    explicit CIncidentSource(IncidentRows rows) : rows_(std::move(rows)) {}

    int RowCount() const override { return rows_.rows.size(); }
    int ColumnCount() const override { return rows_.list->ColumnCount(); }
    QString Title(int column) const override { return rows_.list->Title(column); }
    QVariant Cell(int row, int column) const override
    {
        return rows_.list->Text(rows_.rows.at(row), column);
    }
    Vantor::ExportColumnKind Kind(int column) const override { return KindOf(*rows_.list, column); }
    int WidthChars(int column) const override { return ColumnWidth(rows_, column); }

private:
    const IncidentRows rows_;
};

} // namespace

void SetIncidents(Vantor::CListExport &job, const IncidentRows &rows)
{
    job.SetSource(std::make_shared<CIncidentSource>(rows));
    job.SetColumns(rows.columns);
    const XlsxLook cells;
    Vantor::ListExportLook look;
    look.header = cells.header;
    look.number_header = cells.number_header;
    look.cell = cells.cell;
    look.number = cells.number;
    //: Name of a sheet: at most 12 letters that are not Latin, no signs
    look.sheet_name = Texts::tr("Incidents");
    look.is_right_to_left = QLocale().textDirection() == Qt::RightToLeft;
    look.on_sheet = FitToPaper;
    look.on_end = [cells, rows](Vantor::CExcelControllorWithC &writer, const QStringList &sheets) {
        WriteSummary(writer, cells, rows, sheets);
    };
    job.SetLook(look);
}

} // namespace Client
