// SPDX-License-Identifier: MIT
#include "WorkbookReader.h"
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

#include <QtGui/QImage>
#include <QtWidgets/QApplication>

using namespace Client;

Q_DECLARE_METATYPE(Vantor::ExportColumnKind)

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
        return ReadWorkbook(Save(rows, "out.xlsx").path);
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
        const QByteArray csv = "text,number,link,\"a \"\"title\"\"\"\n"
                               "\"one, two\",1.5,https://example.org/a?b=1&c,\"line\nbreak\"\n"
                               "=1+1,-20,,\"  blanks  \"\n"
                               ",,http://example.org/,مرحبا <&>\n";

        const QJsonObject sheet = Sheet(Export(Rows(csv)), 0);

        QCOMPARE(Cells(sheet, 0), QStringList({"text", "number", "link", "a \"title\""}));
        QCOMPARE(Cells(sheet, 1),
                 QStringList({"one, two", "1.5", "https://example.org/a?b=1&c", "line\nbreak"}));
        QCOMPARE(Cells(sheet, 2), QStringList({"=1+1", "-20", QString(), "  blanks  "}));
        QCOMPARE(Cells(sheet, 3),
                 QStringList({QString(), QString(), "http://example.org/", "مرحبا <&>"}));
        const QJsonArray row = sheet.value("rows").toArray().at(1).toArray();
        QVERIFY(row.at(0).isString());
        QVERIFY(row.at(1).isDouble());
        QCOMPARE(sheet.value("links").toArray(), QJsonArray({"C2", "C4"}));
    }

    void numbersThatWouldLoseDigitsStayTexts_data()
    {
        QTest::addColumn<QByteArray>("cells");
        QTest::addColumn<Vantor::ExportColumnKind>("kind");
        const auto add = [](const char *name, const char *cells, Vantor::ExportColumnKind kind) {
            QTest::newRow(name) << QByteArray(cells) << kind;
        };
        add("whole numbers and an empty cell", "0\n12\n\"\"\n-3\n",
            Vantor::ExportColumnKind::Number);
        add("fractions", "0.5\n-12.25\n", Vantor::ExportColumnKind::Number);
        add("fifteen digits", "123456789012345\n", Vantor::ExportColumnKind::Number);
        add("sixteen digits", "1234567890123456\n", Vantor::ExportColumnKind::ByCell);
        add("one with a leading zero", "12\n007\n", Vantor::ExportColumnKind::ByCell);
        add("an exponent", "1e3\n", Vantor::ExportColumnKind::ByCell);
        add("a plus sign", "+1\n", Vantor::ExportColumnKind::ByCell);
        add("separated thousands", "\"1,000\"\n", Vantor::ExportColumnKind::ByCell);
        add("nothing at all", "\"\"\n", Vantor::ExportColumnKind::ByCell);
        add("addresses", "http://a\nhttps://b\n", Vantor::ExportColumnKind::Link);
        add("one that is no address", "http://a\nftp://b\n", Vantor::ExportColumnKind::ByCell);
    }

    void numbersThatWouldLoseDigitsStayTexts()
    {
        QFETCH(QByteArray, cells);
        QFETCH(Vantor::ExportColumnKind, kind);

        QCOMPARE(KindOf(*Rows("a\n" + cells).list, 0), kind);
    }

    void headerStandsOut()
    {
        const QByteArray csv = "a,a much longer title\n1," + QByteArray(500, 'x') + "\n";

        const QJsonObject sheet = Sheet(Export(Rows(csv)), 0);

        const QJsonObject look = sheet.value("firstLook").toObject();
        QVERIFY(look.value("bold").toBool());
        QCOMPARE(look.value("fill").toString(), "FFDCE6F8");
        QCOMPARE(look.value("font").toString(), "Segoe UI");
        QCOMPARE(sheet.value("filter").toString(), "A1:B2");
        QVERIFY(sheet.value("frozen").toBool());
        const QJsonArray widths = sheet.value("widths").toArray();
        QVERIFY(widths.at(0).toDouble() > 8 && widths.at(0).toDouble() < 9);
        QVERIFY(widths.at(1).toDouble() > 48 && widths.at(1).toDouble() < 49);
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
        CLanguageSwitch language;
        language.Apply("ar");

        const QJsonObject workbook = Export(Rows("a\n1\n"));

        QCOMPARE(Sheet(workbook, 0).value("name").toString(), "الحوادث");
        QCOMPARE(Sheet(workbook, 1).value("name").toString(), "الملخص");
        QVERIFY(Sheet(workbook, 0).value("rightToLeft").toBool());
        QVERIFY(Sheet(workbook, 1).value("rightToLeft").toBool());
        QCOMPARE(Sheet(workbook, 1).value("targets").toArray(), QJsonArray{"'الحوادث'!A1"});
    }

    void timeLeftIsKnownAfterASecond()
    {
        CTimeLeft estimate;
        estimate.Note(500, 0.05);
        QCOMPARE(estimate.Seconds(), -1);

        estimate.Note(1000, 0.1);

        QCOMPARE(estimate.Seconds(), 9);
    }

    void timeLeftFollowsAChangeOfSpeed()
    {
        CTimeLeft estimate;
        for (int i = 1; i <= 50; ++i)
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
        QTest::addColumn<QString>("language");
        QTest::addColumn<int>("seconds");
        QTest::addColumn<QString>("text");
        const auto add = [](const char *name, const char *language, int seconds,
                            const char16_t *text) {
            QTest::newRow(name) << QString::fromLatin1(language) << seconds
                                << QString::fromUtf16(text);
        };
        add("unknown", "en", -1, u"");
        add("nearly done", "en", 4, u"a few seconds left");
        add("rounded up", "en", 16, u"about 20 seconds left");
        add("a minute", "en", 56, u"about 1 minute left");
        add("minutes", "en", 140, u"about 2 minutes left");
        add("Arabic, a few seconds", "ar", 10, u"بقي نحو ١٠ ثوانٍ");
        add("Arabic, seconds", "ar", 20, u"بقي نحو ٢٠ ثانية");
        add("Arabic, one minute", "ar", 60, u"بقيت نحو دقيقة واحدة");
        add("Arabic, two minutes", "ar", 120, u"بقيت نحو دقيقتين");
        add("Arabic, a few minutes", "ar", 180, u"بقي نحو ٣ دقائق");
        add("Arabic, minutes", "ar", 660, u"بقي نحو ١١ دقيقة");
    }

    void timeLeftIsToldInRoundNumbers()
    {
        QFETCH(QString, language);
        QFETCH(int, seconds);
        QFETCH(QString, text);
        CLanguageSwitch spoken;
        spoken.Apply(language);

        QCOMPARE(TimeLeftText(seconds), text);
    }
};

QTEST_MAIN(tst_client_export)
#include "tst_client_export.moc"
