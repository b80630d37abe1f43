// SPDX-License-Identifier: MIT
// Writes the workbooks that tools/read-xlsx.py reads with other programs: write_workbooks FOLDER
#include <Nim/Base/Log.h>
#include <Vantor/CExcelControllorWithC>

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtGui/QImage>

#include <cstdio>

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

int WriteAll(const std::string &folder, const char *name, bool is_constant)
{
    CExcelControllorWithC writer;
    writer.Init(folder + name, is_constant ? folder : "");
    writer.AddSheetByName("Hidden");
    writer.SetCellString(0, 0, "nobody sees it", nullptr);
    for (const QString &sheet : {QString(40, 'n'), QStringLiteral("中文").repeated(20),
                                 QStringLiteral("تقرير").repeated(8)}) {
        writer.AddSheetByName(sheet.toStdString());
        WriteCells(writer, folder + "picture.png");
    }
    writer.DeleteSheet("Hidden");
    writer.Close();
    return writer.LastCloseResult();
}

int WriteAllRows(const std::string &folder)
{
    const auto plain = std::make_shared<Vantor::Clxw_format_>();
    CExcelControllorWithC writer;
    writer.Init(folder + "rows.xlsx", folder);
    writer.AddSheetByName("Rows");
    for (int row = 0; row < kAllRows; ++row)
        writer.SetCellString(row, 0, "row " + std::to_string(row), plain);
    writer.Close();
    return writer.LastCloseResult();
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
    bool is_quiet = true;
    Nim::Base::Log::SetSink(
        [&is_quiet](int level, const std::string &, const std::string &message) {
            if (level <= 3)
                return;
            is_quiet = false;
            std::fprintf(stderr, "%s\n", message.c_str());
        });
    const std::string path = folder.toStdString();
    const bool is_saved = WriteAll(path, "memory.xlsx", false) == 0
                          && WriteAll(path, "constant.xlsx", true) == 0 && WriteAllRows(path) == 0;
    Nim::Base::Log::SetSink(nullptr);
    return is_saved && is_quiet ? 0 : 1;
}
