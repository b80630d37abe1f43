// SPDX-License-Identifier: MIT
#include "export/IncidentExport.h"

#include "export/XlsxLook.h"
#include "export/XlsxSummary.h"

#include <Vantor/CExcelControllorWithC>
#include <Vantor/CListExport>
#include <Vantor/CRowSource>

namespace Client {
namespace {

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
    Vantor::ListExportLook look = ListLook(cells);
    look.on_end = [cells, rows](Vantor::CExcelControllorWithC &writer, const QStringList &sheets) {
        WriteSummary(writer, cells, rows, sheets);
    };
    job.SetLook(look);
}

} // namespace Client
