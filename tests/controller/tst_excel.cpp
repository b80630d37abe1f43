// SPDX-License-Identifier: MIT
#include "ExcelParts.h"
#include "letter/ExcelLetter.h"
#include "support/Test.h"

#include <Vantor/CExcelControllorWithC>

#include <xlsxwriter.h>

using namespace Vantor;
using Look = std::shared_ptr<Clxw_format_>;

namespace {

const QString kSheet = "xl/worksheets/sheet1.xml";

// One random workbook, written by the writer and in its plain form side by side.
class CTwins
{
public:
    CTwins(quint32 seed, const QString &folder)
        : random_(seed), is_constant_(random_.bounded(2) == 0)
    {
        const QString name = QStringLiteral("/%1.xlsx").arg(seed);
        const QByteArray cache = (folder + "/cache/").toLocal8Bit();
        ours_.Init((folder + "/ours" + name).toStdString(), is_constant_ ? cache.data() : "");
        lxw_workbook_options options{};
        options.constant_memory = is_constant_;
        plain_ = workbook_new_opt(qPrintable(folder + "/plain" + name), &options);
        picture_path_ = folder.toStdString() + "/picture.png";
    }

    int Write()
    {
        static const std::vector<std::string> names{"Report", "Überblick", "列表一", "تقرير"};
        const int sheets = 1 + random_.bounded(4);
        for (int i = 0; i < sheets; ++i) {
            ours_.AddSheetByName(names[i]);
            sheet_ = workbook_add_worksheet(plain_, names[i].c_str());
            WriteSheet();
            if (i > 0 && random_.bounded(4) == 0) {
                ours_.DeleteSheet(names[i]);
                worksheet_hide(sheet_);
            }
        }
        ours_.Close();
        return workbook_close(plain_) + ours_.LastCloseResult();
    }

private:
    template <class Value> const Value &OneOf(const std::vector<Value> &values)
    {
        return values[random_.bounded(static_cast<int>(values.size()))];
    }

    Look RandomLook()
    {
        static const std::vector<std::string> colors{
            "", "red", "#FA3239", "#000000", "#00ff00zz", "#GG", "#123456789", "x#0F0", "#"};
        static const std::vector<std::string> fonts{"Microsoft YaHei", "", "Arial", "宋体"};
        auto look = AnyLook();
        look->SetVal_font_size(OneOf<int>({-1, 9, 10, 11, 12, 409, 410}));
        look->SetVal_is_blod(random_.bounded(2) == 0);
        look->SetVal_text_location(random_.bounded(-1, 4));
        look->SetVal_background_color(OneOf(colors));
        look->SetVal_text_color(OneOf(colors));
        look->SetVal_cell_type(random_.bounded(3));
        look->SetVal_font_faimily(OneOf(fonts));
        look->SetVal_is_need_wrap(random_.bounded(2) == 0);
        return look;
    }

    void WriteSheet()
    {
        std::vector<Look> looks;
        for (int i = random_.bounded(20); i >= 0; --i)
            looks.push_back(RandomLook());
        WriteSizes();
        for (int row = 0; row < 12; ++row) {
            for (int col = random_.bounded(8); col >= 0; --col)
                WriteCell(row, col, OneOf(looks));
            WriteExtra(row, OneOf(looks));
        }
        if (random_.bounded(2) == 0) {
            ours_.SetFilterCoumn(0, 0, 12, 5);
            worksheet_autofilter(sheet_, 0, 0, 12, 5);
        }
    }

    void WriteSizes()
    {
        const int width = random_.bounded(256);
        ours_.SetColumnWidth(1, 1, width);
        worksheet_set_column(sheet_, 1, 1, width, nullptr);
        ours_.SetColumnWidthtWithPixels(3, 3, width);
        worksheet_set_column_pixels(sheet_, 3, 3, static_cast<uint32_t>(width), nullptr);
        ours_.SetRowHeight(0, width);
        worksheet_set_row(sheet_, 0, width, nullptr);
    }

    void WriteCell(int row, int col, const Look &look)
    {
        static const std::vector<std::string> texts{
            "",           "a",    " b ", "=1+1",  "<&>\"'",
            "x\ny\r\x01", "中文", "😀",   "_x00_", std::string(300, 'l')};
        if (random_.bounded(3) == 0) {
            const double value = random_.generateDouble() * 1e6;
            ours_.SetCellString(row, col, value, look);
            Letter::WriteNumber(plain_, sheet_, row, col, value, look->Read());
        } else {
            const std::string text = OneOf(texts);
            ours_.SetCellString(row, col, text, look);
            Letter::WriteText(plain_, sheet_, row, col, text, look->Read());
        }
    }

    void WriteExtra(int row, const Look &look)
    {
        const int first = 10 + random_.bounded(3);
        std::string url = OneOf<std::string>({"https://example.org/a b", "mailto:x@example.org",
                                              "internal:Report!A1", "external:a/b.xlsx#S!A1"});
        std::string text = "shown";
        switch (random_.bounded(6)) {
        case 0:
            ours_.MergeCells(row, first, row, first + 2, "merged", look);
            Letter::MergeCells(plain_, sheet_, row, first, row, first + 2, "merged", look->Read());
            break;
        case 1:
            ours_.SetRangeValidCheck(row, first, row + 2, first, "open,a \"b\",,closed");
            Letter::ValidateRange(sheet_, row, first, row + 2, first,
                                  "open,a \"\"b\"\",,closed"); // doubled, as formulas want it
            break;
        case 2:
            ours_.SetLinkString(row, first, url);
            worksheet_write_url(sheet_, Row(row), Column(first), url.c_str(), nullptr);
            break;
        case 3:
            ours_.SetLinkString(row, first, url, text);
            worksheet_write_url_opt(sheet_, Row(row), Column(first), url.c_str(), nullptr,
                                    text.c_str(), "");
            break;
        case 4:
            WritePicture(row, first);
            break;
        default:
            ours_.SetColumnPics(row, first, picture_path_);
            worksheet_insert_image(sheet_, Row(row), Column(first), picture_path_.c_str());
        }
    }

    void WritePicture(int row, int col)
    {
        QByteArray description = "gate";
        QByteArray url = "https://example.org";
        Vantor::lxw_image_options_ options;
        options.x_offset = random_.bounded(100);
        options.y_scale = random_.bounded(3) * 0.5;
        options.object_position = static_cast<unsigned char>(random_.bounded(4));
        options.description = random_.bounded(2) == 0 ? description.data() : nullptr;
        options.url = random_.bounded(2) == 0 ? url.data() : nullptr;
        options.tip = options.url ? description.data() : nullptr;
        static const std::string bytes = PngBytes(40, 30);
        ours_.SetColumnPicsBufferOpt(row, col, bytes,
                                     std::make_shared<Vantor::Clxw_image_options_>(options));
        Letter::InsertPicture(sheet_, row, col, bytes, options);
    }

    static lxw_row_t Row(int row) { return static_cast<lxw_row_t>(row); }
    static lxw_col_t Column(int column) { return static_cast<lxw_col_t>(column); }

    QRandomGenerator random_;
    const bool is_constant_;
    CExcelControllorWithC ours_;
    lxw_workbook *plain_ = nullptr;
    lxw_worksheet *sheet_ = nullptr;
    std::string picture_path_;
};

// hidden, states of A, B, C, active
const Rows<QStringList, QByteArray, QByteArray> kHiddenRows = {
    {"the last", {"C"}, "vvh", ""},
    {"the first, which is active", {"A"}, "hvv", "1"},
    {"the first two", {"A", "B"}, "hhv", "2"},
    {"all, but one has to show", {"A", "B", "C"}, "vhh", ""},
    {"none of an unknown name", {"", "D"}, "vvv", ""},
};

const std::string kWide = QString(43, QChar(0x4E2D)).toStdString();
const QByteArray kCut = '"' + QString(42, QChar(0x4E2D)).toUtf8() + '"';
const QByteArray kNoFill = "<fills count=\"2\">";

// colour, font, wanted
const Rows<std::string, std::string, QByteArray> kTamedRows = {
    {"a negative number", "#-1", "", kNoFill},
    {"a blank", "# FF", "", kNoFill},
    {"two marks", "##00FF00", "", kNoFill},
    {"a prefix of its own", "#0x12", "", kNoFill},
    {"up to the second mark", "#12#34", "", "rgb=\"FF000012\""},
    {"too many digits", "#FFFFFFFFFFFFFFFFFF", "", "rgb=\"FFFFFFFF\""},
    {"a font of 129 bytes is cut at a character", "", kWide, kCut},
    {"a font that is no text", "", "A\xFF\x01", "\"A\xEF\xBF\xBD\xEF\xBF\xBD\""},
};

} // namespace

class TestExcel : public CGuardedTest
{
    Q_OBJECT

    [[nodiscard]] std::string Path() const { return folder_.Path("a.xlsx").toStdString(); }

    [[nodiscard]] std::string Cache() const { return folder_.Path().toStdString() + '/'; }

    [[nodiscard]] Parts Read() const { return ReadParts(QString::fromStdString(Path())); }

    Parts Written(const std::function<void(CExcelControllorWithC &)> &fill,
                  const std::string &name = "Sheet")
    {
        return WrittenParts(QString::fromStdString(Path()), fill, name);
    }

    // The logged text, without the place in the source.
    [[nodiscard]] QStringList Log() const
    {
        static const QRegularExpression place("\\[ExcelControllorWithC\\.cpp\\(\\d+\\)\\]$");
        QStringList lines = guard_.LogLines();
        for (QString &line : lines)
            line = line.contains(place) ? line.remove(place) : "no place: " + line;
        return lines;
    }

private Q_SLOTS:
    void thePartsEqualThoseOfAFormatForEachCell()
    {
        folder_.PutFolder("ours");
        folder_.PutFolder("plain");
        folder_.Put("picture.png", QByteArray::fromStdString(PngBytes(64, 48)));

        for (quint32 seed = 1; seed <= 300; ++seed)
            QCOMPARE(CTwins(seed, folder_.Path()).Write(), 0);

        QCOMPARE(ComparePairs(folder_.Path()), QString("300 pairs are the same"));
    }

    void theLogTellsEachStepToTheLetter()
    {
        const QString cache = QString::fromStdString(Cache());
        CExcelControllorWithC writer;
        QVERIFY(!writer.AddSheetByName("too early"));
        writer.Init(Path(), Cache());
        writer.Init("second.xlsx", "");
        writer.AddSheetByName("A");
        writer.SetFilterCoumn(1, 2, 3, 4);
        writer.SetFilterOneCoumnWith1Str(3, "%n"); // the conditions are only logged
        writer.SetFilterOneCoumnWith2Str(3, "a", "b");
        writer.SetFilterCoumnWithListStr(4, "a,b");
        writer.SetColumnWidth(1, 2, 30);
        writer.Close();

        const QString path = QString::fromStdString(Path());
        QStringList expected{
            "AddSheetByName]::Init",
            "Init]::Init",
            "Init]::Init  d_ptr_->ptr_excel_ is null  file_cache_path =" + cache,
            "Init]::Init",
            "AddSheetByName]::Init",
            "AddSheetByName]::Init d_ptr_->ptr_excel_ != nullptr",
            "SetFilterCoumn]::SetFilterCoumn begin_row =1  begin_column =2 end_row =3 en_column =4",
            "SetFilterOneCoumnWith1Str]::SetFilterOneCoumnWith1Str begin_column =3  rule_str =%n",
            "SetFilterOneCoumnWith2Str]::SetFilterOneCoumnWith2Str",
            "SetFilterCoumnWithListStr]::SetFilterCoumnWithListStr filter_column =4",
            "SetColumnWidth]::SetColumnWidth begin_column =1  en_column =2 i_width =30",
            "Close]file  close , file_path_ = " + path + ' ',
            "Close]file  close success, file_path_ = " + path + " , close result = 0",
            "Close]delete file path = " + cache + "FileGenerateCach, result = 1"};
        expected.replaceInStrings("]::", "]CExcelControllorWithC::")
            .replaceInStrings(QRegularExpression("^"),
                              "3 UserOperate [Vantor::CExcelControllorWithC::");
        QCOMPARE(Log(), expected);
        QVERIFY(Read().value(kSheet).contains("<autoFilter ref=\"C2:E4\"/>"));
    }

    void hiddenSheetsStayInTheFile_data() { AddRows(kHiddenRows); }

    void hiddenSheetsStayInTheFile()
    {
        const auto &[row_name, hidden, states, active] = FetchRow(kHiddenRows);
        const Parts parts = Written(
            [&all = hidden](CExcelControllorWithC &writer) {
                for (const char *const name : {"B", "C"})
                    writer.AddSheetByName(name);
                for (const QString &name : all)
                    writer.DeleteSheet(name.toStdString());
                QCOMPARE(writer.GetSheetCount(), 3);
            },
            "A");

        const QString book = parts["xl/workbook.xml"];
        QByteArray found;
        static const QRegularExpression sheet_element("<sheet [^>]*>");
        auto sheets = sheet_element.globalMatch(book);
        while (sheets.hasNext())
            found += sheets.next().captured().contains("state=\"hidden\"") ? 'h' : 'v';
        QCOMPARE(found, states);
        static const QRegularExpression active_tab("activeTab=\"(\\d)\"");
        QCOMPARE(active_tab.match(book).captured(1).toLatin1(), active);
    }

    void usedRowsAreKeptBySheetName()
    {
        CExcelControllorWithC writer;
        writer.UpdateSheetUsedRow(9);
        writer.Init(Path(), "");
        writer.SetCellString(4, 0, "without a sheet", AnyLook());
        writer.SetFilterCoumn(0, 0, 1, 1);
        QCOMPARE(writer.GetUsedRowsCount(), 0);
        QCOMPARE(Log().filter("::Set"), QStringList());
        writer.AddSheetByName("A");
        writer.SetCellString(5, 0, "x", AnyLook());
        writer.SetCellString(3, 0, 1.5, AnyLook());
        writer.MergeCells(7, 0, 8, 1, "merged", AnyLook());
        QCOMPARE(writer.GetUsedRowsCount(), 3);
        writer.AddSheetByName("B");
        QCOMPARE(writer.GetUsedRowsCount(), 0);
        writer.UpdateSheetUsedRow(2);
        writer.UpdateSheetUsedRow(1);
        QCOMPARE(writer.GetUsedRowsCount(), 1);
        writer.AddSheetByName("A");
        QCOMPARE(writer.GetUsedRowsCount(), 3);
        writer.Close();
    }

    void theWriterServesAnotherWorkbookAfterClose()
    {
        CExcelControllorWithC writer;
        writer.Init(Path(), "");
        lxw_workbook *const first = writer.GetWorkBook();
        QVERIFY(writer.Init("second.xlsx", ""));
        QCOMPARE(writer.GetWorkBook(), first);
        writer.AddSheetByName("A");
        auto look = AnyLook();
        writer.SetCellString(0, 0, "first", look);
        writer.Close();
        QCOMPARE(writer.GetWorkBook(), nullptr);
        QCOMPARE(writer.GetSheetCount(), 0);
        QVERIFY(Read().value("xl/sharedStrings.xml").contains("first"));

        writer.Init(Path(), "");
        writer.AddSheetByName("A");
        writer.SetCellString(0, 0, "second", look); // the first one's formats are gone
        writer.Close();
        writer.Close();

        QCOMPARE(writer.LastCloseResult(), 0);
        QVERIFY(Read().value("xl/sharedStrings.xml").contains("second"));
        QVERIFY(!QFile::exists("second.xlsx"));
    }

    void theCacheDirectoryGoesWithWhatIsInItButNoLinkIsFollowed()
    {
        const QString made = folder_.Path("cache/FileGenerateCach");
        CExcelControllorWithC writer;
        writer.Init(Path(), folder_.Path("cache/").toStdString());
        QVERIFY(QDir(made).exists() && QFile::link(folder_.Path("precious"), made + "/link"));
        writer.Close();
        QVERIFY(!QDir(made).exists() && QDir(folder_.Path("cache")).exists());

        QVERIFY(QDir(folder_.Path()).mkpath("precious/folder"));
        QVERIFY(QFile::link(folder_.Path("precious"), made));
        writer.Init(Path(), folder_.Path("cache/").toStdString());
        writer.Close();
        QVERIFY(QDir(folder_.Path("precious/folder")).exists() && !QFileInfo(made).isSymLink());
    }

    void theDestructorNeitherSavesNorFrees()
    {
        auto writer = std::make_unique<CExcelControllorWithC>();
        writer->Init(Path(), Cache());
        writer->AddSheetByName("A");
        writer->SetCellString(0, 0, "x", AnyLook());
        lxw_workbook *const book = writer->GetWorkBook();
        writer.reset();

        lxw_workbook_free(book); // still whole
        QVERIFY(!QFile::exists(QString::fromStdString(Path())));
        QVERIFY(QDir(folder_.Path("FileGenerateCach")).exists());
    }

    void aDroppedWorkbookLeavesNothing()
    {
        const QDir descriptors("/proc/self/fd");
        const uint open_files = descriptors.count();
        CExcelControllorWithC writer;
        writer.Discard();
        writer.Init(Path(), Cache());
        for (const char *const name : {"A", "B"}) {
            writer.AddSheetByName(name);
            writer.SetCellString(0, 0, "x", AnyLook());
        }
        writer.Discard();

        QCOMPARE(writer.GetWorkBook(), nullptr);
        QCOMPARE(writer.GetSheetCount(), 0);
        QCOMPARE(QDir(folder_.Path()).count(), 2U); // . and ..
        QCOMPARE(QDir("/proc/self/fd").count(), open_files);
        writer.Init(Path(), Cache());
        writer.Close();
        QCOMPARE(writer.LastCloseResult(), 0);
    }

    void hardLooksAreTamed_data() { AddRows(kTamedRows); }

    void hardLooksAreTamed()
    {
        const auto &[name, colour, font, wanted] = FetchRow(kTamedRows);
        auto look = AnyLook();
        look->SetVal_background_color(colour);
        look->SetVal_font_faimily(font);
        const QByteArray styles = Written([&look](CExcelControllorWithC &writer) {
                                      writer.SetCellString(0, 0, "x", look);
                                  }).value("xl/styles.xml");

        QVERIFY2(styles.contains(wanted), styles);
    }
};

QTEST_GUILESS_MAIN(TestExcel)
#include "tst_excel.moc"
