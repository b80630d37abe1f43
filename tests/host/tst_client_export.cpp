// SPDX-License-Identifier: MIT
#include "export/BarChart.h"
#include "export/ExportText.h"
#include "export/IncidentExport.h"
#include "export/TimeLeft.h"
#include "export/XlsxLook.h"
#include "export/XlsxSummary.h"
#include "list/CsvFile.h"
#include "look/Language.h"
#include "support/Widgets.h"

#include <Vantor/CListExport>

using namespace Client;

namespace {

using Kind = Vantor::ExportColumnKind;

QJsonObject Sheet(const QJsonObject &workbook, int index)
{
    return workbook.value("sheets").toArray().at(index).toObject();
}

// The cells of a row as texts, numbers in their shortest form.
QStringList Cells(const QJsonObject &sheet, int row)
{
    QStringList cells;
    const QJsonArray values = sheet.value("rows").toArray().at(row).toArray();
    for (const auto &value : values)
        cells.append(value.isDouble() ? QString::number(value.toDouble(), 'g', 15)
                                      : value.toString());
    return cells;
}

// cells, kind
const Rows<const char *, Kind> kKindRows = {
    {"whole numbers and an empty cell", "0\n12\n\"\"\n-3\n", Kind::Number},
    {"fractions", "0.5\n-12.25\n", Kind::Number},
    {"fifteen digits", "123456789012345\n", Kind::Number},
    {"sixteen digits", "1234567890123456\n", Kind::ByCell},
    {"one with a leading zero", "12\n007\n", Kind::ByCell},
    {"an exponent", "1e3\n", Kind::ByCell},
    {"a plus sign", "+1\n", Kind::ByCell},
    {"separated thousands", "\"1,000\"\n", Kind::ByCell},
    {"nothing at all", "\"\"\n", Kind::ByCell},
    {"addresses", "http://a\nhttps://b\n", Kind::Link},
    {"one that is no address", "http://a\nftp://b\n", Kind::ByCell},
};

const Rows<const char *, int, const char *> kTimeLeftRows = {
    {"unknown", "en", -1, ""},
    {"nearly done", "en", 4, "a few seconds left"},
    {"rounded up", "en", 16, "about 20 seconds left"},
    {"a minute", "en", 56, "about 1 minute left"},
    {"minutes", "en", 140, "about 2 minutes left"},
    {"Arabic, a few seconds", "ar", 10, "بقي نحو ١٠ ثوانٍ"},
    {"Arabic, seconds", "ar", 20, "بقي نحو ٢٠ ثانية"},
    {"Arabic, one minute", "ar", 60, "بقيت نحو دقيقة واحدة"},
    {"Arabic, two minutes", "ar", 120, "بقيت نحو دقيقتين"},
    {"Arabic, a few minutes", "ar", 180, "بقي نحو ٣ دقائق"},
    {"Arabic, minutes", "ar", 660, "بقي نحو ١١ دقيقة"},
};

// language, count, text
const Rows<const char *, int, const char *> kCountRows = {
    {"English, one", "en", 1, "1 incident exported to f"},
    {"English, many", "en", 10000, "10,000 incidents exported to f"},
    {"Arabic, none", "ar", 0, u8"لم يُصدَّر أي حادث إلى \u200Ef"},
    {"Arabic, one", "ar", 1, u8"صُدِّر حادث واحد إلى \u200Ef"},
    {"Arabic, two", "ar", 2, u8"صُدِّر حادثان إلى \u200Ef"},
    {"Arabic, a few", "ar", 3, u8"صُدِّرت ٣ حوادث إلى \u200Ef"},
    {"Arabic, many", "ar", 11, u8"صُدِّر ١١ حادثًا إلى \u200Ef"},
    {"Arabic, hundreds", "ar", 100, u8"صُدِّر ١٠٠ حادث إلى \u200Ef"},
};

// The titles, or the cells of a row, with slashes between them.
QString Joined(const CIncidentList &list, int row = -1)
{
    QStringList texts;
    for (int column = 0; column < list.ColumnCount(); ++column)
        texts.append(row < 0 ? list.Title(column) : list.Text(row, column));
    return texts.join('/');
}

// bytes, titles, cells of the last row
const Rows<QByteArray, QString, QString> kReadingRows = {
    {"commas", "a,b\n1,2\n", "a/b", "1/2"},
    {"semicolons", "a;b\n1;2\n", "a/b", "1/2"},
    {"tabs", "a\tb\n1\t2\n", "a/b", "1/2"},
    {"a separator in a quoted title does not count", "\"x;y;z\",b\n1,2\n", "x;y;z/b", "1/2"},
    {"semicolons, and a comma in a title", "a;b, EUR\n1;2.5\n", "a/b, EUR", "1/2.5"},
    {"vertical bars", "a|b\n1|2\n", "a/b", "1/2"},
    {"a line that names the separator", "sep=|\r\na|b\r\n1|2\r\n", "a/b", "1/2"},
    {"blanks around cells", "a,b\n 1 ,2\n", "a/b", " 1 /2"},
    {"blanks before quotes", "a, \"b\"\n1, \"2\"\n", "a/b", "1/2"},
    {"a mark in a cell", "a,b\n\xEF\xBB\xBF\x31,2\n", "a/b", QChar(0xFEFF) + QString("1/2")},
    {"a byte-order mark", "\xEF\xBB\xBF\x61,b\n1,2\n", "a/b", "1/2"},
    {"a byte-order mark and a zero byte", QByteArray("\xEF\xBB\xBF\0a,b\n1,2\n", 12), "a/b", "1/2"},
    {"UTF-16LE", QByteArray("\xFF\xFE\x61\0,\0b\0\n\0\x31\0,\0\x32\0", 16), "a/b", "1/2"},
    {"UTF-16BE", QByteArray("\xFE\xFF\0a\0,\0b\0\n\0\x31\0,\0\x32", 16), "a/b", "1/2"},
    {"no line break at the end", "a,b\r\n1,2", "a/b", "1/2"},
    {"quotes, breaks and separators in cells", "a,b\n\"say \"\"hi\"\"\",\"1\r\n2,3\"\n", "a/b",
     "say \"hi\"/1\r\n2,3"},
    {"a short row is filled", "a,b\n1\n", "a/b", "1/"},
    {"a long row adds a column without a title", "a,b\n0,0\n1,2,3\n", "a/b/", "1/2/3"},
    {"UTF-8", "a,b\nشكر,2\n", "a/b", "شكر/2"},
    {"half a character at the end of a cell", "a,b\nM\xC3,2\n", "a/b", "MÃ/2"},
    {"Windows-1252 where it is no UTF-8", "a,b\nM\xFCnchen \x80\x93,2\n", "a/b", "München €“/2"},
};

// bytes, line; "": no message
const Rows<QByteArray, const char *> kQuoteRows = {
    {"in the first line", "\"a,b\n1,2\n", "line 1 "},
    {"behind a cell with line breaks", "a\n\"1\r\n2\"\r\n\"3\r\n4\r\n", "line 4 "},
    {"behind a doubled quote", "a\n\"1\"\"\n2\n", "line 2 "},
    {"behind a stray quote in a quoted cell", "a\n\"1\"x\n2\n", "line 2 "},
    {"behind blanks", "a,b\n1, \"2\n3,4\n", "line 2 "},
    {"lines that end with CR", "a\r1\r\"2\r3\r", "line 3 "},
    {"a closed quote at the end", "a\n\"1\n2\"", ""},
    {"blanks behind the closing quote", "a\n\"1\n2\" \n", ""},
    {"a stray quote that closes behind blanks", "a\n\"1\n\" \"\n2\n", ""},
    {"a quote within a plain cell", "a\n5\" pipe\n2\n", ""},
    {"open to the end of the last line", "a\n\"1", ""},
};

// bytes, reason
const Rows<QByteArray, const char *> kRefusedRows = {
    {"nothing at all", {}, "is empty"},
    {"only blank lines", "\n\r\n\n", "is empty"},
    {"only a mark", "\xEF\xBB\xBF", "is empty"},
    {"a picture", QByteArray("GIF89a\0\0\0,\n", 11), "zero bytes"},
    {"UTF-16 without a mark", QByteArray("a\0,\0", 4), "zero bytes"},
    {"a thousand and one columns", QByteArray(1000, ','), "more columns"},
};

} // namespace

class tst_client_export : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override { language_.Apply("en"); }
    void TearDown() override { QApplication::setLayoutDirection(Qt::LeftToRight); }

    [[nodiscard]] IncidentRows Rows(const QByteArray &csv) const
    {
        return FindRows(ReadCsvFile(folder_.Put("source.csv", csv)).list, {});
    }
    [[nodiscard]] Vantor::ListExportResult Save(const IncidentRows &rows, const char *name) const
    {
        Vantor::CListExport job;
        SetIncidents(job, rows);
        QSignalSpy finished(&job, &Vantor::CListExport::SignalFinished);
        job.Start(folder_.Path(name));
        return finished.wait(30000)
                   ? finished.constFirst().constFirst().value<Vantor::ListExportResult>()
                   : Vantor::ListExportResult();
    }
    [[nodiscard]] QJsonObject Export(const IncidentRows &rows) const
    {
        QProcess python; // its zip and XML readers are not those that wrote the file
        python.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        python.start("python3", {READ_XLSX, Save(rows, "out.xlsx").path});
        python.waitForFinished();
        return QJsonDocument::fromJson(python.readAllStandardOutput()).object();
    }

    CLanguageSwitch language_;

    QString Write(const QByteArray &bytes) const { return folder_.Put("list.csv", bytes); }

private Q_SLOTS:
    void columnsAreThoseThatTheUserSees()
    {
        IncidentRows rows = Rows("first,\"a \"\"title\"\"\",=c\n007,\" =1+1\",x\n1.50,-5,y\n");
        rows.columns = {2, 1, 0};

        const Vantor::ListExportResult result = Save(rows, "out.csv");

        QCOMPARE(ExportText(result), "2 incidents exported to " + folder_.Path("out.csv"));
        QCOMPARE(folder_.Bytes("out.csv"),
                 QByteArray("\xEF\xBB\xBF\"'=c\",\"a \"\"title\"\"\",\"first\"\r\n"
                            "\"x\",\"' =1+1\",\"007\"\r\n\"y\",\"-5\",\"1.50\"\r\n"));
        QCOMPARE(Cells(Sheet(Export(rows), 0), 2), QStringList({"y", "-5", "1.50"}));
    }

    void whatAWorkbookCannotHoldIsTold()
    {
        guard_.AnnounceLogLines();
        const Vantor::ListExportResult result =
            Save(Rows("a\n" + QByteArray(40000, 'x') + "\n"), "out.xlsx");

        QVERIFY(LossText(result).contains("1 cell cut to 32,767 characters"));
        QCOMPARE(LossText(Save(Rows("a\nx\n"), "out.xlsx")), QString());
    }

    void rowsAreFoundByTextInAnyColumn()
    {
        const IncidentRows all = Rows("number,species\n1,Gull\n2,Crow\n3,Herring gull\n");
        QCOMPARE(FindRows(all.list->Resized(7), "ull").rows, (QVector<int>{0, 2, 3, 5, 6}));
        QCOMPARE(FindRows(all.list, "GULL").rows, QVector<int>());
        QCOMPARE(all.rows.size(), 3);
    }

    void exportedCellsReadBackAsTheyWere()
    {
        const QByteArray csv = "text,n,link,\"a \"\"title\"\"\"\n"
                               "\"one, two\",1.5,https://example.org/a?b=1&c,\"line\nbreak\"\n"
                               "=1+1,-20,,\"  blanks  \"\n"
                               ",,http://example.org/,"
                               + QByteArray(500, 'x') + "مرحبا <&>\n";

        const QJsonObject sheet = Sheet(Export(Rows(csv)), 0);

        QCOMPARE(Cells(sheet, 0), QStringList({"text", "n", "link", "a \"title\""}));
        QCOMPARE(Cells(sheet, 1),
                 QStringList({"one, two", "1.5", "https://example.org/a?b=1&c", "line\nbreak"}));
        QCOMPARE(Cells(sheet, 2), QStringList({"=1+1", "-20", QString(), "  blanks  "}));
        QCOMPARE(Cells(sheet, 3),
                 QStringList({"", "", "http://example.org/", QString(500, 'x') + "مرحبا <&>"}));
        const QJsonArray row = sheet.value("rows").toArray().at(1).toArray();
        QVERIFY(row.at(0).isString() && row.at(1).isDouble());
        QCOMPARE(sheet.value("links").toArray(), QJsonArray({"C2", "C4"}));

        // The header stands out.
        const QJsonObject look = sheet.value("firstLook").toObject();
        QVERIFY(look.value("bold").toBool());
        QCOMPARE(look.value("fill").toString(), "FFDCE6F8");
        QCOMPARE(look.value("font").toString(), "Segoe UI");
        QCOMPARE(sheet.value("filter").toString(), "A1:D4");
        QVERIFY(sheet.value("frozen").toBool());
        const QJsonArray widths = sheet.value("widths").toArray();
        QVERIFY(widths.at(1).toDouble() > 8 && widths.at(1).toDouble() < 9);
        QVERIFY(widths.at(3).toDouble() > 48 && widths.at(3).toDouble() < 49);
    }

    void numbersThatWouldLoseDigitsStayTexts_data() { AddRows(kKindRows); }

    void numbersThatWouldLoseDigitsStayTexts()
    {
        const auto &[name, cells, kind] = FetchRow(kKindRows);
        QCOMPARE(KindOf(*Rows(QByteArray("a\n") + cells).list, 0), kind);
    }

    void summaryTellsWhatIsMostFrequent()
    {
        IncidentRows rows = Rows("bird,number,date\n"
                                 "gull,1,1\ngull,2,2\ngull,3,3\nowl,4,4\n,5,5\n,6,6\n,7,7\n"
                                 ",8,8\nowl,9,9\nkite,10,10\nowl,11,a\nowl,12,b\nkite,13,c\n"
                                 ",14,d\n,15,e\n,16,f\n");
        rows.filter = "searched";
        rows.rows.removeLast();

        const QJsonObject workbook = Export(rows);

        const QJsonObject summary = Sheet(workbook, 1);
        QCOMPARE(Cells(summary, 1), QStringList({"Rows", "15"}));
        QCOMPARE(Cells(summary, 2), QStringList({"Searched for", "searched"}));
        QCOMPARE(Cells(summary, 5), QStringList({"bird", "Count"}));
        QCOMPARE(Cells(summary, 6), QStringList({"owl", "4"}));
        QCOMPARE(Cells(summary, 7), QStringList({"gull", "3"}));
        QCOMPARE(Cells(summary, 8), QStringList({"kite", "2"}));
        QCOMPARE(summary.value("rows").toArray().size(), 9);
        QCOMPARE(workbook.value("pictures").toArray().size(), 1);
        QCOMPARE(workbook.value("descriptions").toArray(),
                 QJsonArray{"Bar chart of the most frequent values in bird"});

        const BarChart chart = PaintBarChart("bird", MostFrequent(rows, 0, 2));
        const QImage picture = QImage::fromData(chart.png, "PNG");
        QCOMPARE(picture.width(), 620 * chart.pixels_per_point);
        const auto blue_pixels = [&](int y) {
            int count = 0;
            for (int x = 0; x < picture.width(); ++x)
                count += picture.pixel(x, y * chart.pixels_per_point) == 0xFF2F6FED ? 1 : 0;
            return count;
        };
        QVERIFY(blue_pixels(36) > 0);
        QCOMPARE(qRound(4.0 * blue_pixels(56) / blue_pixels(36)), 3); // three gulls, four owls
    }

    void workbookFollowsTheLanguage()
    {
        language_.Apply("ar");

        const QJsonObject workbook = Export(Rows("a\n1\n"));

        QCOMPARE(Sheet(workbook, 0).value("name").toString(), "الحوادث");
        QCOMPARE(Sheet(workbook, 1).value("name").toString(), "الملخص");
        QVERIFY(Sheet(workbook, 0).value("rightToLeft").toBool());
        QVERIFY(Sheet(workbook, 1).value("rightToLeft").toBool());
        QCOMPARE(Sheet(workbook, 1).value("targets").toArray(), QJsonArray{"'الحوادث'!A1"});
    }

    void timeLeftIsKnownAfterASecondAndFollowsTheSpeed()
    {
        CTimeLeft estimate;
        estimate.Note(900, 0.09);
        QCOMPARE(estimate.Seconds(), -1);
        for (int i = 10; i <= 50; ++i)
            estimate.Note(qint64{i} * 100, i * 0.01);
        QCOMPARE(estimate.Seconds(), 5);
        estimate.Note(5100, 0.501);
        QCOMPARE(estimate.Seconds(), 5); // one slow step does not startle
        for (int i = 2; i <= 200; ++i)
            estimate.Note(5000 + qint64{i} * 100, 0.5 + i * 0.001);
        QVERIFY(qAbs(estimate.Seconds() - 30) <= 1);
    }

    void timeLeftIsToldInRoundNumbers_data() { AddRows(kTimeLeftRows); }

    void timeLeftIsToldInRoundNumbers()
    {
        const auto &[name, language, seconds, text] = FetchRow(kTimeLeftRows);
        language_.Apply(language);
        QCOMPARE(TimeLeftText(seconds), QString(text));
    }

    void countsFollowTheLanguage_data() { AddRows(kCountRows); }

    void countsFollowTheLanguage()
    {
        const auto &[name, language, count, text] = FetchRow(kCountRows);
        language_.Apply(language);
        Vantor::ListExportResult result;
        result.end = Vantor::ListExportResult::End::Done;
        result.rows = count;
        result.path = "f";
        QCOMPARE(ExportText(result), QString(text));
    }

    void readingKeepsTitlesAndCells_data() { AddRows(kReadingRows); }

    void readingKeepsTitlesAndCells()
    {
        const auto &[name, bytes, titles, cells] = FetchRow(kReadingRows);

        const IncidentListPtr list = ReadCsvFile(Write(bytes)).list;

        QVERIFY(list);
        QCOMPARE(Joined(*list), titles);
        QCOMPARE(Joined(*list, list->RowCount() - 1), cells);
    }

    void cellsAndCharactersAcrossBlocksStayWhole()
    {
        QByteArray bytes("number,text\n");
        constexpr int kRows = 200000; // some megabytes, so that blocks end within cells
        for (int row = 0; row < kRows; ++row)
            bytes += QByteArray::number(row) + ",\"قيمة, " + QByteArray::number(row % 7) + "\"\n";
        qint64 last_done = 0;

        const ReadResult result = ReadCsvFile(Write(bytes), [&last_done](qint64 done, qint64) {
            last_done = done;
            return true;
        });

        QVERIFY(result.list);
        QCOMPARE(result.list->RowCount(), kRows);
        QCOMPARE(last_done, qint64(bytes.size()));
        for (int row = 0; row < kRows; ++row) {
            if (result.list->Text(row, 0) != QString::number(row)
                || result.list->Text(row, 1) != QString("قيمة, %1").arg(row % 7))
                QFAIL(qPrintable(QString("row %1 differs").arg(row)));
        }

        // The bytes of the first title put the middle of a surrogate pair at one mebibyte.
        const QString title = QString(1024 * 512 - 2, QLatin1Char('x'));
        const QString text = QChar(QChar::ByteOrderMark) + title + "😀\n1\n";
        const QByteArray wide(reinterpret_cast<const char *>(text.utf16()), 2 * text.size());

        const IncidentListPtr list = ReadCsvFile(Write(wide)).list;

        QVERIFY(list != nullptr && list->Title(0) == title + "😀");
        QCOMPARE(list->Text(0, 0), "1");
    }

    void openQuoteIsToldWithItsLine_data() { AddRows(kQuoteRows); }

    void openQuoteIsToldWithItsLine()
    {
        const auto &[name, bytes, line] = FetchRow(kQuoteRows);

        const ReadResult result = ReadCsvFile(Write(bytes));

        QVERIFY(result.list != nullptr);
        QCOMPARE(result.warning.isEmpty(), !*line);
        QVERIFY2(result.warning.contains(line), qPrintable(result.warning));
    }

    void aGuessedEncodingIsTold()
    {
        QVERIFY(ReadCsvFile(Write("a\n\x80\n")).warning.contains("windows-1252"));
        QCOMPARE(ReadCsvFile(Write("a\n€\n")).warning, QString());
        QCOMPARE(ReadCsvFile(Write("a;b\n1,2;3\n"), {}, ',').list->ColumnCount(), 2);
    }

    void whatIsNoListIsRefusedWithAReason_data() { AddRows(kRefusedRows); }

    void whatIsNoListIsRefusedWithAReason()
    {
        const auto &[name, bytes, reason] = FetchRow(kRefusedRows);

        const ReadResult result = ReadCsvFile(Write(bytes));

        QVERIFY(!result.list);
        QVERIFY2(result.error.contains(reason), qPrintable(result.error));
        QVERIFY2(result.error.contains("list.csv"), qPrintable(result.error));
    }

    void cancelledReadingGivesNeitherListNorError()
    {
        const ReadResult result =
            ReadCsvFile(Write("a,b\n1,2\n"), [](qint64, qint64) { return false; });

        QVERIFY(!result.list);
        QCOMPARE(result.error, QString());
    }
};

QTEST_MAIN(tst_client_export)
#include "tst_client_export.moc"
