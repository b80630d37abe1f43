// SPDX-License-Identifier: MIT
// Writes the workbooks that tools/read-xlsx.py reads with other programs: write_workbooks FOLDER
#include <Nim/Base/Log.h>
#include <Vantor/CExcelControllorWithC>

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtGui/QImage>

#include <cstdio>
#include <functional>
#include <vector>

using Vantor::CExcelControllorWithC;
using Look = std::shared_ptr<Vantor::Clxw_format_>;

namespace {

constexpr int kAllRows = 1048576;

Look HeaderLook()
{
    auto look = std::make_shared<Vantor::Clxw_format_>();
    look->SetVal_font_size(14);
    look->SetVal_is_blod(true);
    look->SetVal_text_location(1);
    look->SetVal_background_color("#204060");
    look->SetVal_text_color("#FFFFFF");
    look->SetVal_cell_type(3);
    look->SetVal_font_faimily("DejaVu Sans");
    look->SetVal_is_need_wrap(true);
    return look;
}

QByteArray PngBytes()
{
    QImage image(60, 40, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

void WriteCells(CExcelControllorWithC &writer, const std::string &picture_path)
{
    const auto plain = std::make_shared<Vantor::Clxw_format_>();
    std::string url = "https://example.org/a b?c=d&e=f";
    std::string place = "internal:Hidden!A1";
    std::string text = "shown";
    const std::string picture = PngBytes().toStdString();
    writer.SetColumnWidth(0, 3, 24);
    writer.SetRowHeight(0, 30);
    for (int column = 0; column < 4; ++column)
        writer.SetCellString(0, column, "Column " + std::to_string(column), HeaderLook());
    writer.SetCellString(1, 0, "中文 العربية 😀 <&>\"", plain);
    writer.SetCellString(1, 1, -1234.5, plain);
    writer.SetCellString(1, 2, "=1+1", plain);
    writer.SetLinkString(2, 0, url);
    writer.SetLinkString(2, 1, place, text);
    writer.SetCellValidCheck(3, 0, "open,in progress,say \"done\"");
    writer.SetRangeValidCheck(3, 1, 9, 1, QString(100, QChar(0x4E2D)).toStdString());
    writer.MergeCells(4, 0, 4, 3, "one row", HeaderLook());
    writer.MergeCells(5, 2, 8, 3, "four rows", HeaderLook());
    writer.SetColumnPics(10, 0, picture_path);
    writer.SetColumnPicsBuffer(10, 2, picture, picture.size());
    writer.SetFilterCoumn(0, 0, 9, 3);
}

void WriteSheets(CExcelControllorWithC &writer, const std::string &folder)
{
    writer.AddSheetByName("Hidden");
    writer.SetCellString(0, 0, "nobody sees it", nullptr);
    for (const QString &sheet : {QString(40, 'n'), QStringLiteral("中文").repeated(20),
                                 QStringLiteral("تقرير").repeated(8)}) {
        writer.AddSheetByName(sheet.toStdString());
        WriteCells(writer, folder + "picture.png");
    }
    writer.DeleteSheet("Hidden");
}

void WriteRows(CExcelControllorWithC &writer)
{
    const auto plain = std::make_shared<Vantor::Clxw_format_>();
    writer.AddSheetByName("Rows");
    for (int row = 0; row < kAllRows; ++row)
        writer.SetCellString(row, 0, "row " + std::to_string(row), plain);
}

void WriteManySheets(CExcelControllorWithC &writer, int count)
{
    for (int sheet = 1; sheet <= count; ++sheet) {
        writer.AddSheetByName("S" + std::to_string(sheet));
        writer.SetCellString(0, 0, "on sheet " + std::to_string(sheet), nullptr);
    }
}

void WriteMerges(CExcelControllorWithC &writer)
{
    writer.AddSheetByName("Merges");
    for (int row = 0; row < 100000; ++row)
        writer.MergeCells(row, 0, row, 1, "merge " + std::to_string(row), nullptr);
}

void WriteLists(CExcelControllorWithC &writer)
{
    writer.AddSheetByName("Lists");
    for (int row = 0; row < 5000; ++row) {
        writer.SetCellString(row, 0, "list " + std::to_string(row), nullptr);
        writer.SetCellValidCheck(row, 0, "open,closed");
        writer.SetCellValidCheck(row, 2, row % 2 == 0 ? "even,none" : "odd,none");
    }
}

void WriteLooks(CExcelControllorWithC &writer)
{
    writer.AddSheetByName("Looks");
    for (int row = 0; row < 66000; ++row) {
        const auto look = std::make_shared<Vantor::Clxw_format_>();
        look->SetVal_background_color(QString("#%1").arg(row, 6, 16, QChar('0')).toStdString());
        writer.SetCellString(row, 0, "look " + std::to_string(row), look);
    }
}

void WriteLinks(CExcelControllorWithC &writer)
{
    const struct
    {
        std::string url;
        std::string text;
    } links[] = {{"internal:'Links'!A1", std::string("a\x01") + "b"},
                 {"internal:'Links'!A1", QString(1000, QChar(0x4E2D)).toStdString()},
                 {"internal:'Links'!A1", "<&>\"'"},
                 {"https://example.org/\x01", "_x000D_"},
                 {"https://example.org/" + std::string(3000, 'a'), ""}};
    writer.AddSheetByName("Links");
    int row = 0;
    for (auto [url, text] : links)
        writer.SetLinkString(row++, 0, url, text);
}

struct Book
{
    const char *name;
    bool is_constant;
    std::function<void(CExcelControllorWithC &)> write;
    QStringList lost = {}; // what the log says, each once
};

bool Write(const std::string &folder, const Book &book)
{
    QStringList lines;
    Nim::Base::Log::SetSink([&lines](int level, const std::string &, const std::string &message) {
        if (level > 3)
            lines.append(QString::fromStdString(message));
    });
    CExcelControllorWithC writer;
    writer.Init(folder + book.name, book.is_constant ? folder : "");
    book.write(writer);
    writer.Close();
    Nim::Base::Log::SetSink(nullptr);
    bool is_sound = writer.LastCloseResult() == 0 && lines.size() == book.lost.size();
    for (const QString &loss : book.lost)
        is_sound = is_sound && lines.filter(loss).size() == 1;
    if (!is_sound)
        std::fprintf(stderr, "%s: result %d\n%s\n", book.name, writer.LastCloseResult(),
                     qPrintable(lines.join('\n')));
    return is_sound;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    const QString folder = QFile::decodeName(argv[1]) + '/';
    QFile picture(folder + "picture.png");
    if (!QDir().mkpath(folder) || !picture.open(QIODevice::WriteOnly))
        return 2;
    picture.write(PngBytes());
    picture.close();
    const std::string path = folder.toStdString();
    const auto sheets = [&path](CExcelControllorWithC &writer) { WriteSheets(writer, path); };
    const std::vector<Book> books{
        {"memory.xlsx", false, sheets},
        {"constant.xlsx", true, sheets},
        {"rows.xlsx", true, WriteRows},
        {"sheets64.xlsx", true, [](auto &writer) { WriteManySheets(writer, 64); }},
        {"sheets900.xlsx", true, [](auto &writer) { WriteManySheets(writer, 900); }},
        {"merges.xlsx", true, WriteMerges, {"beyond the 65,535th"}},
        {"lists.xlsx", true, WriteLists},
        {"looks.xlsx", true, WriteLooks, {"looks beyond the 64,000th"}},
        {"links.xlsx", true, WriteLinks, {"was replaced in a text", "written as plain text"}}};
    bool are_sound = true;
    for (const Book &book : books)
        are_sound = Write(path, book) && are_sound;
    return are_sound ? 0 : 1;
}
