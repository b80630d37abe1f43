// SPDX-License-Identifier: MIT
// What libxlsxwriter would crash on, drop without a word or write so that the file does not open.
#include "ExcelParts.h"
#include "support/Test.h"

#include <Vantor/CExcelControllorWithC>

#include <xlsxwriter.h>

using Vantor::CExcelControllorWithC;
using Act = std::function<void(CExcelControllorWithC &)>;

Q_DECLARE_METATYPE(std::string)

namespace {

const QByteArray kReplaced = "\xEF\xBF\xBD";
const QByteArray kAnything = "<";
const QByteArray kNothing = "no such text";
const QString kSilent;
const QString kSheet = "xl/worksheets/sheet1.xml";
const QString kTexts = "xl/sharedStrings.xml";
const QString kBook = "xl/workbook.xml";
const QString kLinks = "xl/worksheets/_rels/sheet1.xml.rels";
const QString kDrawing = "xl/drawings/drawing1.xml";
const QString kOutside = "cells outside the sheet were left out";
const QString kNoPicture = "what is no PNG, JPEG, BMP or GIF picture was left out";
const QString kReplacedLine = "what a workbook cannot hold was replaced in a text";
const QString kNoLink = "links beyond the format's limits were written as plain text";

std::string Repeated(const char *text, int count)
{
    return QByteArray(text).repeated(count).toStdString();
}

Act Text(const std::string &text)
{
    return [text](CExcelControllorWithC &writer) { writer.SetCellString(0, 0, text, AnyLook()); };
}

Act Number(double value)
{
    return [value](CExcelControllorWithC &writer) { writer.SetCellString(0, 0, value, AnyLook()); };
}

Act CheckList(const std::string &list)
{
    return [list](CExcelControllorWithC &writer) { writer.SetCellValidCheck(0, 0, list); };
}

Act Link(std::string url, std::optional<std::string> text = {})
{
    return [url, text](CExcelControllorWithC &writer) mutable {
        text ? writer.SetLinkString(0, 0, url, *text) : writer.SetLinkString(0, 0, url);
    };
}

Act Picture(const std::string &bytes, std::uint64_t size)
{
    return [bytes, size](CExcelControllorWithC &writer) {
        writer.SetColumnPicsBuffer(0, 0, bytes, size);
    };
}

Act PictureWith(const std::function<void(Vantor::lxw_image_options_ &)> &change)
{
    return [change](CExcelControllorWithC &writer) {
        Vantor::lxw_image_options_ options;
        change(options);
        writer.SetColumnPicsBufferOpt(0, 0, PngBytes(10, 10),
                                      std::make_shared<Vantor::Clxw_image_options_>(options));
    };
}

// act: done twice; wanted: empty: there is no such part; logged: once, however often it happens
using Input =
    Row<Act, QString, QByteArray, QByteArray, QString>; // act, part, wanted, unwanted, logged

// cells, rows, columns, lists, validations
const Rows<int, int, int, int, int> kJoinedRows = {
    {"as many as can be counted", 255, 1, 0, 1, 255},
    {"one more", 256, 1, 0, 1, 1},
    {"thousands", 5000, 1, 0, 1, 1},
    {"no neighbours", 300, 2, 0, 1, 2},
    {"more ranges than one validation names", 5000, 2, 0, 1, 5},
    {"the same in a row", 5000, 0, 2, 1, 5},
    {"two lists in turn", 300, 1, 0, 2, 3},
    {"more lists than can be counted", 300, 1, 0, 300, 300},
};

} // namespace

class TestExcelInput : public CGuardedTest
{
    Q_OBJECT

    static void Row(const char *name, const Act &act, const QString &part, const QByteArray &wanted,
                    const QByteArray &unwanted = kNothing, const QString &logged = kSilent)
    {
        QTest::newRow(name) << std::any(Input{name, act, part, wanted, unwanted, logged});
    }

    static void Replaced(const char *name, const std::string &text, const QByteArray &wanted)
    {
        Row(name, Text(text), kTexts, wanted, kNothing, kReplacedLine);
    }

    static void AddTexts()
    {
        const QString cut = "a text was cut to 32,767 characters";
        const QString no_number = "a number that is not finite was left out";
        Row("40,000 characters are cut", Text(std::string(40000, 'x')), kTexts,
            '>' + QByteArray(32767, 'x') + '<', kNothing, cut);
        Row("an emoji counts twice", Text(Repeated("😀", 16384)), kTexts,
            '>' + QByteArray("😀").repeated(16383) + '<', kNothing, cut);
        Replaced("a stray byte", "a\xFFz", "a" + kReplaced + "z");
        Replaced("a sequence cut short", "a\xE4\xB8", "a" + kReplaced);
        Replaced("a surrogate", "\xED\xA0\x80z", kReplaced + "z");
        Replaced("an overlong sequence", "\xE0\x80\x80z", kReplaced + "z");
        Replaced("beyond the last character", "\xF4\x90\x80\x80z", kReplaced + "z");
        Replaced("no character", "a\xEF\xBF\xBFz", "a" + kReplaced + "z");
        Replaced("zero bytes", {"a\0b\0c", 5}, "a" + kReplaced + "b" + kReplaced + "c");
        Row("text that looks like an escape", Text("a_x0041_x000D_"), kTexts,
            ">a_x005F_x0041_x005F_x000D_<");
        Row("an escape at the limit", Text(std::string(32760, 'x') + "_x000D_"), kTexts,
            ">" + QByteArray(32760, 'x') + "_x005F_<", kNothing, cut);
        Row("no number", Number(std::nan("")), kSheet, "<c r=\"A1\" s=\"1\"/>", "NAN", no_number);
        Row("infinity", Number(-std::numeric_limits<double>::infinity()), kSheet,
            "<c r=\"A1\" s=\"1\"/>", "INF", no_number);
    }

    static void AddPlaces()
    {
        const auto at = [](int row, int col) -> Act {
            return [row, col](CExcelControllorWithC &writer) {
                writer.SetCellString(0, 0, 1, AnyLook());
                writer.SetCellString(row, col, 2, AnyLook());
            };
        };
        Row("the last cell", at(1048575, 16383), kSheet, "r=\"XFD1048576\"");
        const std::pair<const char *, Act> outside[] = {{"a row too many", at(1048576, 0)},
                                                        {"a negative row", at(-1, 0)},
                                                        {"a column too many", at(0, 16384)},
                                                        {"a column that wraps to 0", at(0, 65536)},
                                                        {"one from below", at(0, -65536)}};
        for (const auto &[name, act] : outside)
            Row(name, act, kSheet, "<v>1</v>", "<v>2</v>", kOutside);
        Row(
            "the width of one column inside others",
            [](auto &writer) {
                writer.SetColumnWidth(0, 5, 10);
                writer.SetColumnWidth(2, 2, 30);
            },
            kSheet, "<col min=\"3\" max=\"3\" width=\"30.7109375\"");
        const auto widths = [](int width, bool in_pixels) -> Act {
            return [width, in_pixels](CExcelControllorWithC &writer) {
                if (in_pixels)
                    writer.SetColumnWidthtWithPixels(0, 0, width);
                else
                    writer.SetColumnWidth(0, 0, width);
            };
        };
        Row("a negative width", widths(-5, false), kSheet, "width=\"0\"", "width=\"-");
        Row("a width that would wrap", widths(300, false), kSheet, "width=\"255.7109375\"");
        Row("negative pixels", widths(-1, true), kSheet, "width=\"0\"", "width=\"-");
        Row("too many pixels", widths(100000, true), kSheet, "width=\"255.7109375\"");
        const auto height = [](int points) -> Act {
            return [points](CExcelControllorWithC &writer) { writer.SetRowHeight(0, points); };
        };
        Row("a negative height hides", height(-3), kSheet, "hidden=\"1\"", "ht=\"-");
        Row("a height beyond the format", height(500), kSheet, "ht=\"409\"");
        Row(
            "a filter beyond the sheet keeps the earlier",
            [](auto &writer) {
                writer.SetFilterCoumn(5, 2, 0, 0);
                writer.SetFilterCoumn(0, 0, 1048576, 0);
            },
            kSheet, "<autoFilter ref=\"A1:C6\"/>", kNothing, kOutside);
    }

    static void AddChecks()
    {
        const QString long_list = "a list of more than 255 characters was left out";
        Row("86 Chinese characters are 258 bytes", CheckList(Repeated("中", 86)), kSheet,
            "<formula1>\"" + QByteArray("中").repeated(86) + "\"</formula1>");
        Row("256 characters", CheckList(Repeated("中", 256)), kSheet, kAnything, "formula1",
            "WithC::SetCellValidCheck]Sheet Sheet: " + long_list);
        Row("255 characters before the last comma", CheckList(Repeated("a,", 128) + "b"), kSheet,
            kAnything, "formula1", long_list);
        Row("exactly 255", CheckList(Repeated("a,", 127) + "b"), kSheet, ",a,b\"</formula1>");
        Row("a control character in a list", CheckList("a\x01"), kSheet, "a" + kReplaced, kNothing,
            kReplacedLine);
        Row("an empty list", CheckList(""), kSheet, kAnything, "formula1", "Sheet Sheet: ");
        Row(
            "a range beyond", [](auto &writer) { writer.SetRangeValidCheck(0, 0, 0, 65536, "a"); },
            kSheet, kAnything, "formula1", kOutside);
    }

    static void AddLinks()
    {
        const std::string longest = "http://h/" + std::string(2070, 'x');
        const std::string chinese = "http://h/" + Repeated("中", 700);
        Row("2,079 bytes", Link(longest), kLinks, QByteArray::fromStdString(longest));
        Row("2,080 bytes", Link(longest + 'x'), kTexts, QByteArray::fromStdString(longest + 'x'),
            kNothing, kNoLink);
        Row("700 blanks that are escaped", Link("http://h/" + std::string(700, ' '), "shown"),
            kTexts, "<t>shown</t>", kNothing, kNoLink);
        Row("characters that fit, bytes that do not", Link(chinese), kTexts,
            QByteArray::fromStdString(chinese), kNothing, kNoLink);
        Row("a place that does not fit", Link("internal:A!" + Repeated("中", 700), "shown"), kSheet,
            kAnything, "hyperlink", kNoLink);
        Row("text that does not fit is cut", Link("http://h", std::string(40000, 'x')), kLinks,
            "http://h", kNothing, "a text was cut");
        Row("a stray byte in an address", Link("http://h/\xFF\x01"), kLinks,
            "http://h/" + kReplaced + kReplaced, kNothing, kReplacedLine);
        Row("an external word in the middle", Link("http://h?q=external:foo"), kLinks,
            "\"http://h?q=external%3Afoo\"");
        Row("it is shown as it was", Link("http://h?q=internal:foo"), kTexts,
            "<t>http://h?q=internal:foo</t>");
        Row("a control character in the text of a place", Link("internal:'s'!A1", "a\x01<b"),
            kSheet, "display=\"a" + kReplaced + "&lt;b\"");
        Row("a long Chinese text of a place", Link("internal:'s'!A1", Repeated("中", 1000)), kSheet,
            "display=\"" + QByteArray("中").repeated(693) + '"');
        Row("an empty text keeps the link", Link("http://h", ""), kLinks, "\"http://h\"");
        Row("an empty address", Link("", "a"), kTexts, "", kNothing);
        Row("a path", Link("C:\\x y"), kLinks, "\"C:\\x%20y\"");
        Row("only a place", Link("#A1"), kSheet, "location=\"A1\"");
    }

    static void AddPictures()
    {
        const std::string png = PngBytes(10, 10);
        const auto file = [](const std::string &path) -> Act {
            return [path](CExcelControllorWithC &writer) { writer.SetColumnPics(0, 0, path); };
        };
        const QString unreadable = "a picture file that cannot be read was left out";
        const auto none = [](const char *name, const Act &act, const QString &why = kNoPicture) {
            Row(name, act, kDrawing, "", kNothing, why);
        };
        none("a missing file", file("missing.png"), unreadable);
        none("a directory", file("/tmp"), unreadable);
        none("an empty file", file("/dev/null"));
        Row("more bytes than there are", Picture(png, png.size() + 1000), kDrawing, "<xdr:pic>");
        none("no bytes", Picture("", 10));
        none("none of the bytes", Picture(png, 0));
        none("junk", Picture("junk that is long enough to be read", 35));
        none("cut behind the header", Picture(png, 32));
        none(
            "a row too many",
            [png](auto &writer) {
                writer.SetColumnPicsBuffer(1048576, 0, png, png.size());
                writer.SetColumnPicsBuffer(0, 70000, png, png.size());
                writer.SetColumnPicsBuffer(-1, -1, png, png.size());
            },
            kOutside);
        Row("a negative scale", PictureWith([](auto &options) { options.x_scale = -2; }), kDrawing,
            "<xdr:colOff>95238</xdr:colOff>");
        Row("a scale that is no number",
            PictureWith([](auto &options) { options.y_scale = std::nan(""); }), kDrawing,
            "<xdr:rowOff>95238</xdr:rowOff>");
        const QString smaller = "a picture larger than the sheet was made smaller";
        Row("a scale without end", PictureWith([](auto &options) { options.x_scale = 1e18; }),
            kDrawing, "<xdr:col>511</xdr:col>", kNothing, smaller);
        Row("a scale beyond the sheet", PictureWith([](auto &options) { options.y_scale = 1e6; }),
            kDrawing, "<xdr:row>1638</xdr:row>", kNothing, smaller);
        Row("offsets without end", PictureWith([](auto &options) {
                options.x_offset = std::numeric_limits<int>::max();
                options.y_offset = std::numeric_limits<int>::min();
            }),
            kDrawing, "<xdr:col>511</xdr:col>", kNothing, smaller);
        const std::string cell_sized = PngBytes(64, 20);
        Row(
            "as large as the last cell",
            [cell_sized](auto &writer) {
                writer.SetColumnPicsBuffer(1048575, 16383, cell_sized, cell_sized.size());
            },
            kDrawing, "<xdr:col>16383</xdr:col>", "<xdr:col>16384", smaller);
        const auto sized = [](int px, const std::string &picture, int offset_px) -> Act {
            return [=](CExcelControllorWithC &writer) {
                Vantor::lxw_image_options_ options;
                options.x_offset = options.y_offset = offset_px;
                writer.SetColumnPicsBufferOpt(
                    1048575, 16383, picture,
                    std::make_shared<Vantor::Clxw_image_options_>(options));
                writer.SetColumnWidthtWithPixels(16382, 16383, px);
                writer.SetRowHeightWithPixels(1048575, px);
            };
        };
        const QByteArray behind = "<xdr:col>16384";
        Row("in a last cell that is narrow", sized(10, cell_sized, 0), kDrawing,
            "<xdr:rowOff>85725</xdr:rowOff></xdr:to>", behind, smaller);
        Row("in a last cell that is large", sized(65, cell_sized, 0), kDrawing,
            "<xdr:rowOff>190476</xdr:rowOff></xdr:to>", behind);
        Row("in front of a last cell", sized(10, cell_sized, -60), kDrawing,
            "<xdr:row>1048572</xdr:row>", behind);
        Row("in a hidden last cell", sized(0, cell_sized, 0), kDrawing,
            "<xdr:row>1048574</xdr:row>", behind, smaller);
        std::string huge = png;
        huge[17] = 1; // 65,546 pixels wide
        none("too wide for a picture", Picture(huge, huge.size()));
        std::string dense = png;
        const std::size_t density = dense.find("pHYs");
        std::fill_n(dense.begin() + static_cast<long>(density) + 4, 8, '\0');
        Row("a density of 0", Picture(dense, dense.size()), kDrawing, "<xdr:col>0</xdr:col>");
        static char stray[] = "a\xFF\x01";
        static std::string long_url = "http://h/" + std::string(2080, 'x');
        Row("a long one", PictureWith([](auto &options) { options.url = long_url.data(); }),
            kDrawing, "<xdr:pic>", "hlinkClick",
            "a picture's link beyond the format's limits was left out");
        Row("texts with stray bytes", PictureWith([](auto &options) {
                options.description = options.url = options.tip = stray;
            }),
            kDrawing, "descr=\"a" + kReplaced + kReplaced, kNothing, kReplacedLine);
    }

    static void AddMerges()
    {
        const auto merge = [](int row, int col, int last_row, int last_col) -> Act {
            return [=](CExcelControllorWithC &writer) {
                writer.MergeCells(row, col, last_row, last_col, "merged", AnyLook());
            };
        };
        const QString overlaps = "overlaps another";
        Row("one cell", merge(1, 1, 1, 1), kSheet, "<c r=\"B2\"", "mergeCell");
        Row("corners swapped", merge(5, 3, 0, 0), kSheet, "<mergeCell ref=\"A1:D6\"/>", kNothing,
            overlaps);
        Row("beyond the sheet", merge(0, 0, 0, 16384), kSheet, kAnything, "mergeCell", kOutside);
        Row(
            "an overlap keeps its text",
            [](auto &writer) {
                writer.MergeCells(0, 0, 9, 1, "first", AnyLook());
                writer.MergeCells(20, 0, 21, 1, "apart", AnyLook());
                writer.MergeCells(5, 1, 6, 2, "second", AnyLook());
            },
            kTexts, "<t>second</t>", kNothing, overlaps);
        Row(
            "only the first of two stays merged",
            [](auto &writer) {
                writer.MergeCells(5, 0, 6, 1, "first", AnyLook());
                writer.MergeCells(0, 1, 9, 1, "taller", AnyLook());
            },
            kSheet, "<mergeCells count=\"1\">", kNothing, overlaps);
    }

    static void AddNames()
    {
        const auto add = [](const std::string &name) -> Act {
            return [name](CExcelControllorWithC &writer) { writer.AddSheetByName(name); };
        };
        Row("eleven Chinese characters", add(Repeated("中", 11)), kBook,
            "name=\"" + QByteArray("中").repeated(10) + '"');
        Row("an apostrophe at the cut", add(std::string(30, 'n') + "''x"), kBook,
            "name=\"" + QByteArray(30, 'n') + '"');
        Row("stray bytes in a name", add("a\xFF\x01z"), kBook,
            "name=\"a" + kReplaced + kReplaced + "z\"");
    }

    Parts Written(const Act &fill, const std::string &cache = {})
    {
        return WrittenParts(folder_.Path("a.xlsx"), fill, "Sheet", cache);
    }

private Q_SLOTS:
    void hardInputNeitherDamagesTheFileNorIsLost_data()
    {
        QTest::addColumn<std::any>("row");
        AddTexts();
        AddPlaces();
        AddChecks();
        AddLinks();
        AddPictures();
        AddMerges();
        AddNames();
    }

    void hardInputNeitherDamagesTheFileNorIsLost()
    {
        const auto &[name, act, part, wanted, unwanted, logged] = FetchRow<Input>();
        if (!logged.isEmpty())
            guard_.AnnounceLogLines();

        const Parts parts = Written([run = act](CExcelControllorWithC &writer) {
            run(writer);
            run(writer);
        });

        const QByteArray found = parts[part];
        QVERIFY2(wanted.isEmpty() ? found.isEmpty() : found.contains(wanted), found.left(2000));
        QVERIFY2(!found.contains(unwanted), found.left(2000));
        const QStringList faults = guard_.LogLines().filter("5 ClientWarningAndMore");
        QCOMPARE(faults.size(), logged.isEmpty() ? 0 : 1);
        QVERIFY2(faults.join("").contains(logged), qPrintable(faults.join("")));
    }

    void inConstantMemoryOnlyRowsAboveTheCurrentOneAreLost()
    {
        guard_.AnnounceLogLines();

        const Parts parts = Written(
            [](CExcelControllorWithC &writer) {
                writer.MergeCells(0, 0, 2, 1, "tall", AnyLook());
                writer.SetCellString(1, 3, "below", AnyLook());
                writer.SetCellString(5, 4, "overwritten", AnyLook());
                writer.SetCellString(5, 4, "last wins", AnyLook());
                writer.SetCellString(5, 1, "left of it", AnyLook());
                writer.SetFilterCoumn(0, 0, 0, 3);
                writer.SetCellString(3, 0, "lost", AnyLook());
                writer.SetRowHeight(2, 30);
            },
            folder_.Path().toStdString() + '/');

        const QByteArray sheet = parts[kSheet];
        for (const char *const kept :
             {">tall<", ">below<", ">last wins<", ">left of it<", "\"A1:B3\"", "ref=\"A1:D6\""})
            QVERIFY2(sheet.contains(kept), sheet);
        QVERIFY(!sheet.contains("overwritten") && !sheet.contains("lost"));
        const QStringList faults = guard_.LogLines().filter("5 ClientWarningAndMore");
        QCOMPARE(faults.size(), 1);
        QVERIFY(faults.constFirst().contains("what came for a row above the current one"));
    }

    void sheetsContinueAfterOthersWereAdded()
    {
        for (const QString &cache : {QString(), folder_.Path("between/")}) {
            const Parts parts = Written(
                [](CExcelControllorWithC &writer) {
                    writer.SetCellString(0, 0, 1, AnyLook());
                    writer.AddSheetByName("second");
                    writer.SetCellString(0, 0, 2, AnyLook());
                    writer.AddSheetByName("Sheet");
                    writer.SetCellString(writer.GetUsedRowsCount() + 1, 0, 3, AnyLook());
                },
                cache.toStdString());

            QVERIFY(parts[kSheet].contains("<v>1</v>") && parts[kSheet].contains("<v>3</v>"));
            QVERIFY(parts["xl/worksheets/sheet2.xml"].contains("<v>2</v>"));
        }
    }

    void refusedNamesCountAndSwallowWhatIsWritten_data()
    {
        QTest::addColumn<std::string>("name");
        for (const char *const name :
             {"", "a[", "a]", "a:", "a*", "a?", "a/", "a\\", "'a", "SHEET"})
            QTest::addRow("\"%s\"", name) << std::string(name);
    }

    void refusedNamesCountAndSwallowWhatIsWritten()
    {
        QFETCH(std::string, name);
        guard_.AnnounceLogLines();
        const Parts parts = Written([&name](CExcelControllorWithC &writer) {
            QVERIFY(writer.AddSheetByName(name) && writer.AddSheetByName(name));
            QCOMPARE(writer.GetSheetCount(), 2);
            QVERIFY(!writer.GetWorkSheet(name));
            writer.SetCellString(4, 0, "swallowed", AnyLook());
            writer.UpdateSheetUsedRow(7);
            QCOMPARE(writer.GetUsedRowsCount(), 7);
        });

        QVERIFY(!parts.contains("xl/worksheets/sheet2.xml"));
        QVERIFY(!parts[kTexts].contains("swallowed"));
        QCOMPARE(guard_.LogLines().filter("the name was refused").size(), 1);
    }

    void listsAreJoinedWhereThereAreTooMany_data() { AddRows(kJoinedRows); }

    void listsAreJoinedWhereThereAreTooMany()
    {
        const auto [name, cells, rows, columns, lists, validations] = FetchRow(kJoinedRows);
        Vantor::CExcelControllorWithC writer;
        writer.Init(folder_.Path("a.xlsx").toStdString(), "");
        writer.AddSheetByName("Sheet");
        for (int i = 0; i < cells; ++i)
            writer.SetCellValidCheck(i * rows, i * columns, "a<&\"," + std::to_string(i % lists));
        writer.Close();

        const QByteArray sheet = ReadParts(folder_.Path("a.xlsx")).value(kSheet);
        QCOMPARE(
            sheet.count("<dataValidation type=\"list\" allowBlank=\"1\" showInputMessage=\"1\" "
                        "showErrorMessage=\"1\" sqref=\""),
            validations);
        QVERIFY(
            sheet.contains("<dataValidations count=\"" + QByteArray::number(validations) + '"'));
        QCOMPARE(writer.LastCloseResult(), 0);
        QVERIFY(writer.LastCloseNotes().IsEmpty());
    }

    void looksBehindTheLimitTakeTheNearest()
    {
        guard_.AnnounceLogLines();
        Vantor::CExcelControllorWithC writer;
        writer.Init(folder_.Path("a.xlsx").toStdString(), "");
        writer.AddSheetByName("Sheet");
        auto look = AnyLook();
        look->SetVal_is_blod(true);
        for (int color = 0; color < 64001; ++color) {
            look->SetVal_background_color(
                QString("#%1").arg(color + 1, 6, 16, QChar('0')).toStdString());
            writer.SetCellString(color, 0, 1.0, look);
        }
        const auto formats = writer.GetWorkBook()->formats;
        int count = 0;
        lxw_format *format = nullptr;
        STAILQ_FOREACH(format, formats, list_pointers)++ count;
        writer.Discard();

        QCOMPARE(count, 2 + 64000); // two are the workbook's own
        QCOMPARE(guard_.LogLines().filter("looks beyond the 64,000th").size(), 1);
    }

    void heightsOfRowsToComeAreHeldInConstantMemory()
    {
        const Parts parts = Written(
            [](CExcelControllorWithC &writer) {
                for (int row = 0; row < 50; ++row)
                    writer.SetRowHeight(row, 30 + row);
                for (int row = 0; row < 40; ++row)
                    writer.SetCellString(row, 0, "cell", nullptr);
            },
            folder_.Path().toStdString() + '/');

        QCOMPARE(parts[kSheet].count(">cell<"), 40);
        for (int row = 0; row < 50; ++row)
            QVERIFY(parts[kSheet].contains("r=\"" + QByteArray::number(row + 1) + "\" "));
        QCOMPARE(parts[kSheet].count("customHeight=\"1\""), 50);
    }

    void linksBehindTheLimitOfASheetKeepTheirText()
    {
        guard_.AnnounceLogLines();
        const Parts parts = Written([](CExcelControllorWithC &writer) {
            std::string url = "https://example.org";
            for (int row = 0; row < 65540; ++row)
                writer.SetLinkString(row, 0, url);
        });

        QCOMPARE(parts[kSheet].count("<hyperlink "), 65530);
        QCOMPARE(parts[kSheet].count("t=\"s\""), 65540);
        QCOMPARE(guard_.LogLines().filter(kNoLink).size(), 1);
    }

    void aPictureFileMayGoBeforeClose()
    {
        const QByteArray picture = QByteArray::fromStdString(PngBytes(10, 10));
        const QString path = folder_.Put("gate.png", picture);
        const Parts parts = Written([&path](CExcelControllorWithC &writer) {
            writer.SetColumnPics(0, 0, path.toStdString());
            QFile::remove(path);
        });

        QCOMPARE(parts["xl/media/image1.png"], picture);
        QVERIFY(parts[kDrawing].contains("descr=\"gate.png\""));
    }
};

QTEST_GUILESS_MAIN(TestExcelInput)
#include "tst_excel_input.moc"
