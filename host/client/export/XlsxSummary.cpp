// SPDX-License-Identifier: MIT
#include "export/XlsxSummary.h"

#include "export/BarChart.h"
#include "export/XlsxLook.h"

#include <Vantor/CExcelControllorWithC>
#include <Vantor/CRowSource>
#include <Vantor/Clxw_image_options_>

#include <xlsxwriter.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDate>
#include <QtCore/QLocale>

#include <algorithm>
#include <numeric>

namespace Client {
namespace {

constexpr int kValues = 10;
constexpr int kTables = 2;
constexpr int kRepeats = 4; // a column of values that come less often on average says little
constexpr int kLabelChars = 34;
constexpr int kCountChars = 30;
constexpr int kGapChars = 4;
constexpr int kChartColumn = 3;
constexpr int kTableRows = kValues + 3; // with header and space; the chart is not higher

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(XlsxSummary)
};

// The columns to count in: those with the most different values that still repeat.
QVector<int> TellingColumns(const IncidentRows &rows)
{
    const CIncidentList &list = *rows.list;
    QVector<int> columns;
    for (int column = 0; column < list.ColumnCount(); ++column) {
        if (!rows.columns.isEmpty() && !rows.columns.contains(column))
            continue;
        const int values = list.Texts(column).size();
        const bool repeats = qint64{values} * kRepeats <= list.BaseRowCount();
        if (values > 1 && repeats && KindOf(list, column) == Vantor::ExportColumnKind::ByCell)
            columns.append(column);
    }
    std::stable_sort(columns.begin(), columns.end(),
                     [&list](int a, int b) { return list.Texts(a).size() > list.Texts(b).size(); });
    return columns.mid(0, kTables);
}

void InsertChart(Vantor::CExcelControllorWithC &writer, int row, const QString &title,
                 const QVector<ValueCount> &values)
{
    const BarChart chart = PaintBarChart(title, values);
    QByteArray description =
        Texts::tr("Bar chart of the most frequent values in %1").arg(title).toUtf8();
    const auto options = std::make_shared<Vantor::Clxw_image_options_>();
    options->SetVal_description(description.data());
    options->SetVal_x_scale(1.0 / chart.pixels_per_point);
    options->SetVal_y_scale(1.0 / chart.pixels_per_point);
    writer.SetColumnPicsBufferOpt(row, kChartColumn, chart.png.toStdString(), options);
}

// A table with its chart beside it, from `row` on.
void WriteTable(Vantor::CExcelControllorWithC &writer, const XlsxLook &look, int row,
                const QString &title, const QVector<ValueCount> &values)
{
    writer.SetCellString(row, 0, title.toStdString(), look.header);
    writer.SetCellString(row, 1, Texts::tr("Count").toStdString(), look.number_header);
    InsertChart(writer, row, title, values);
    for (const ValueCount &value : values) {
        ++row;
        writer.SetCellString(row, 0, value.value.toStdString(), look.cell);
        writer.SetCellString(row, 1, double(value.count), look.number);
    }
}

int WriteFacts(Vantor::CExcelControllorWithC &writer, const XlsxLook &look,
               const IncidentRows &rows, const QStringList &sheets)
{
    int row = 0;
    writer.SetCellString(row, 0, Texts::tr("Incidents").toStdString(), look.title);
    row += 2;
    writer.SetCellString(row, 0, Texts::tr("Rows").toStdString(), look.header);
    writer.SetCellString(row, 1, double(rows.rows.size()), look.fact);
    ++row;
    const QString found = rows.filter.isEmpty() ? Texts::tr("All rows") : rows.filter;
    writer.SetCellString(row, 0, Texts::tr("Searched for").toStdString(), look.header);
    writer.SetCellString(row, 1, found.toStdString(), look.fact);
    ++row;
    const QString today = QDate::currentDate().toString(Qt::ISODate);
    writer.SetCellString(row, 0, Texts::tr("Exported on").toStdString(), look.header);
    writer.SetCellString(row, 1, today.toStdString(), look.fact);
    for (const QString &sheet : sheets) {
        ++row;
        std::string target = QStringLiteral("internal:'%1'!A1").arg(sheet).toStdString();
        std::string text = sheet.toStdString();
        writer.SetCellString(row, 0, Texts::tr("Sheet").toStdString(), look.header);
        writer.SetLinkString(row, 1, target, text);
    }
    return row + 2;
}

} // namespace

QVector<ValueCount> MostFrequent(const IncidentRows &rows, int column, int most)
{
    const QVector<QString> &texts = rows.list->Texts(column);
    QVector<int> counts(texts.size(), 0);
    for (const int row : rows.rows)
        ++counts[rows.list->TextIndex(row, column)];
    QVector<int> order(texts.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&counts](int a, int b) { return counts.at(a) > counts.at(b); });
    QVector<ValueCount> result;
    for (const int text : qAsConst(order)) {
        if (result.size() == most || counts.at(text) == 0)
            break;
        if (!texts.at(text).isEmpty())
            result.append({texts.at(text), counts.at(text)});
    }
    return result;
}

void WriteSummary(Vantor::CExcelControllorWithC &writer, const XlsxLook &look,
                  const IncidentRows &rows, const QStringList &sheets)
{
    //: Name of a sheet: at most 15 letters that are not Latin, no signs
    const QString name = Texts::tr("Summary");
    writer.AddSheetByName(name.toStdString());
    FitToPaper(writer);
    lxw_worksheet *const sheet = writer.GetWorkSheet(name.toStdString());
    if (sheet && QLocale().textDirection() == Qt::RightToLeft)
        worksheet_right_to_left(sheet);
    writer.SetColumnWidth(0, 0, kLabelChars);
    writer.SetColumnWidth(1, 1, kCountChars);
    writer.SetColumnWidth(2, 2, kGapChars);
    int row = WriteFacts(writer, look, rows, sheets);
    const QVector<int> telling_columns = TellingColumns(rows);
    for (const int column : telling_columns) {
        const QVector<ValueCount> values = MostFrequent(rows, column, kValues);
        if (values.isEmpty())
            continue;
        WriteTable(writer, look, row, rows.list->Title(column), values);
        row += kTableRows;
    }
}

} // namespace Client
