// SPDX-License-Identifier: MIT
#include "export/BarChart.h"
#include "export/ExportText.h"
#include "export/IncidentExport.h"
#include "export/TimeLeft.h"
#include "export/XlsxLook.h"
#include "export/XlsxSummary.h"
#include "list/CsvFile.h"
#include "look/Language.h"
#include "support/Test.h"

#include <Vantor/CListExport>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtGui/QImage>
#include <QtWidgets/QApplication>

using namespace Client;

namespace {

using Kind = Vantor::ExportColumnKind;
using KindRow = Row<const char *, Kind>;              // cells, kind
using TextRow = Row<const char *, int, const char *>; // language, count, text

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
        QVERIFY(row.at(0).isString());
        QVERIFY(row.at(1).isDouble());
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

    void numbersThatWouldLoseDigitsStayTexts_data()
    {
        AddRows<KindRow>({{"whole numbers and an empty cell", "0\n12\n\"\"\n-3\n", Kind::Number},
                          {"fractions", "0.5\n-12.25\n", Kind::Number},
                          {"fifteen digits", "123456789012345\n", Kind::Number},
                          {"sixteen digits", "1234567890123456\n", Kind::ByCell},
                          {"one with a leading zero", "12\n007\n", Kind::ByCell},
                          {"an exponent", "1e3\n", Kind::ByCell},
                          {"a plus sign", "+1\n", Kind::ByCell},
                          {"separated thousands", "\"1,000\"\n", Kind::ByCell},
                          {"nothing at all", "\"\"\n", Kind::ByCell},
                          {"addresses", "http://a\nhttps://b\n", Kind::Link},
                          {"one that is no address", "http://a\nftp://b\n", Kind::ByCell}});
    }

    void numbersThatWouldLoseDigitsStayTexts()
    {
        const auto &[name, cells, kind] = FetchRow<KindRow>();
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

    void timeLeftIsToldInRoundNumbers_data()
    {
        AddRows<TextRow>({{"unknown", "en", -1, ""},
                          {"nearly done", "en", 4, "a few seconds left"},
                          {"rounded up", "en", 16, "about 20 seconds left"},
                          {"a minute", "en", 56, "about 1 minute left"},
                          {"minutes", "en", 140, "about 2 minutes left"},
                          {"Arabic, a few seconds", "ar", 10, "بقي نحو ١٠ ثوانٍ"},
                          {"Arabic, seconds", "ar", 20, "بقي نحو ٢٠ ثانية"},
                          {"Arabic, one minute", "ar", 60, "بقيت نحو دقيقة واحدة"},
                          {"Arabic, two minutes", "ar", 120, "بقيت نحو دقيقتين"},
                          {"Arabic, a few minutes", "ar", 180, "بقي نحو ٣ دقائق"},
                          {"Arabic, minutes", "ar", 660, "بقي نحو ١١ دقيقة"}});
    }

    void timeLeftIsToldInRoundNumbers()
    {
        const auto &[name, language, seconds, text] = FetchRow<TextRow>();
        language_.Apply(language);
        QCOMPARE(TimeLeftText(seconds), QString(text));
    }

    void countsFollowTheLanguage_data()
    {
        AddRows<TextRow>({{"English, one", "en", 1, "1 incident exported to f"},
                          {"English, many", "en", 10000, "10,000 incidents exported to f"},
                          {"Arabic, none", "ar", 0, u8"لم يُصدَّر أي حادث إلى \u200Ef"},
                          {"Arabic, one", "ar", 1, u8"صُدِّر حادث واحد إلى \u200Ef"},
                          {"Arabic, two", "ar", 2, u8"صُدِّر حادثان إلى \u200Ef"},
                          {"Arabic, a few", "ar", 3, u8"صُدِّرت ٣ حوادث إلى \u200Ef"},
                          {"Arabic, many", "ar", 11, u8"صُدِّر ١١ حادثًا إلى \u200Ef"},
                          {"Arabic, hundreds", "ar", 100, u8"صُدِّر ١٠٠ حادث إلى \u200Ef"}});
    }

    void countsFollowTheLanguage()
    {
        const auto &[name, language, count, text] = FetchRow<TextRow>();
        language_.Apply(language);
        Vantor::ListExportResult result;
        result.end = Vantor::ListExportResult::End::Done;
        result.rows = count;
        result.path = "f";
        QCOMPARE(ExportText(result), QString(text));
    }
};

QTEST_MAIN(tst_client_export)
#include "tst_client_export.moc"
