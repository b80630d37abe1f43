// SPDX-License-Identifier: MIT
#include "export/XlsxLook.h"

#include <Vantor/CExcelControllorWithC>

#include <xlsxwriter.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <cmath>

namespace Client {
namespace {

constexpr char kFont[] = "Segoe UI";
constexpr int kCellPoints = 11;
constexpr int kTitlePoints = 16;
constexpr int kLeft = 0;
constexpr int kRight = 2;
constexpr int kByContent = 3; // texts as they are read
constexpr char kHeaderFill[] = "#DCE6F8";
constexpr char kHeaderText[] = "#1B2A41";

constexpr int kExactDigits = 15; // of a double
constexpr int kSampleRows = 500;
constexpr int kPaddingChars = 2;
constexpr double kCapitalShare = 1.15; // widths count digits, and capitals are wider
constexpr int kFilterButtonChars = 3;
constexpr int kNarrowestChars = 8;
constexpr int kWidestChars = 48;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(XlsxExport)
};

CellLook MakeLook(int points, bool is_bold, int location)
{
    auto look = std::make_shared<Vantor::Clxw_format_>();
    look->SetVal_font_faimily(kFont);
    look->SetVal_font_size(points);
    look->SetVal_is_blod(is_bold);
    look->SetVal_text_location(location);
    return look;
}

CellLook MakeHeader(int location)
{
    CellLook look = MakeLook(kCellPoints, true, location);
    look->SetVal_background_color(kHeaderFill);
    look->SetVal_text_color(kHeaderText);
    return look;
}

bool ComesBackFromNumber(const QString &text)
{
    static const QRegularExpression plain(
        QRegularExpression::anchoredPattern(QStringLiteral("-?(0|[1-9][0-9]*)(\\.[0-9]+)?")));
    const auto digits =
        std::count_if(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
    return digits <= kExactDigits && plain.match(text).hasMatch();
}

bool IsWebAddress(const QString &text)
{
    return text.startsWith(QLatin1String("http://")) || text.startsWith(QLatin1String("https://"));
}

// Whether `is_one` says so of every text that is not empty, and there is one.
template <class Test> bool AreAll(const QVector<QString> &texts, Test is_one)
{
    const auto is_empty = [](const QString &text) { return text.isEmpty(); };
    return !std::all_of(texts.begin(), texts.end(), is_empty)
           && std::all_of(texts.begin(), texts.end(),
                          [&](const QString &text) { return text.isEmpty() || is_one(text); });
}

} // namespace

XlsxLook::XlsxLook()
    : title(MakeLook(kTitlePoints, true, kByContent)), header(MakeHeader(kByContent)),
      cell(MakeLook(kCellPoints, false, kByContent))
{
    const bool is_mirrored = QLocale().textDirection() == Qt::RightToLeft;
    const int begin = is_mirrored ? kRight : kLeft;
    const int end = is_mirrored ? kLeft : kRight;
    number_header = MakeHeader(end);
    number = MakeLook(kCellPoints, false, end);
    fact = MakeLook(kCellPoints, false, begin);
}

Vantor::ListExportLook ListLook(const XlsxLook &cells)
{
    Vantor::ListExportLook look;
    look.header = cells.header;
    look.number_header = cells.number_header;
    look.cell = cells.cell;
    look.number = cells.number;
    //: Name of a sheet: at most 12 letters that are not Latin, no signs
    look.sheet_name = Texts::tr("Incidents");
    look.is_right_to_left = QLocale().textDirection() == Qt::RightToLeft;
    look.on_sheet = FitToPaper;
    return look;
}

QVariant CellValue(const QString &text)
{
    if (text.isEmpty() || !(text.at(0).isDigit() || text.at(0) == QLatin1Char('-')))
        return text;
    const double value = text.toDouble();
    const QVariant number(value);
    return std::isfinite(value) && number.toString() == text ? number : QVariant(text);
}

Vantor::ExportColumnKind KindOf(const CIncidentList &list, int column)
{
    if (list.IsNumeric(column) && AreAll(list.Texts(column), ComesBackFromNumber))
        return Vantor::ExportColumnKind::Number;
    return AreAll(list.Texts(column), IsWebAddress) ? Vantor::ExportColumnKind::Link
                                                    : Vantor::ExportColumnKind::ByCell;
}

int ColumnWidth(const IncidentRows &rows, int column)
{
    int widest = rows.list->Title(column).size() + kFilterButtonChars;
    // Odd, so that a repeated list is not looked at in the same few rows again and again.
    const int step = (rows.rows.size() / kSampleRows) | 1;
    for (int i = 0; i < rows.rows.size(); i += step)
        widest = std::max(widest, rows.list->Text(rows.rows.at(i), column).size());
    const int chars = static_cast<int>(std::ceil(widest * kCapitalShare)) + kPaddingChars;
    return std::clamp(chars, kNarrowestChars, kWidestChars);
}

void FitToPaper(Vantor::CExcelControllorWithC &writer)
{
    lxw_worksheet *const sheet = writer.GetWorkSheet(writer.CurrentSheetName());
    if (!sheet)
        return;
    worksheet_set_landscape(sheet);
    worksheet_fit_to_pages(sheet, 1, 0);
}

} // namespace Client
