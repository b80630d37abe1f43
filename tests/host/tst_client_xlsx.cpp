// SPDX-License-Identifier: MIT
#include "WorkbookReader.h"
#include "app/CommandLine.h"
#include "export/BarChart.h"
#include "export/ListExport.h"
#include "export/TimeLeft.h"
#include "export/XlsxExport.h"
#include "export/XlsxLook.h"
#include "export/XlsxSummary.h"
#include "list/CsvFile.h"
#include "look/Language.h"
#include "support/Files.h"
#include "support/TestGuard.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <numeric>

using namespace Client;

Q_DECLARE_METATYPE(Client::XlsxKind)

namespace {

QStringList EntriesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System
                                  | QDir::NoDotAndDotDot);
}

int OpenFiles()
{
    return EntriesOf(QStringLiteral("/proc/self/fd")).size();
}

IncidentRows AllRows(const IncidentListPtr &list)
{
    QVector<int> rows(list->RowCount());
    std::iota(rows.begin(), rows.end(), 0);
    return {list, rows};
}

} // namespace

class tst_client_xlsx : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<ExportResult>(); }
    void init();
    void cleanup();

    void exportedCellsReadBackAsTheyWere();
    void numbersThatWouldLoseDigitsStayTexts_data();
    void numbersThatWouldLoseDigitsStayTexts();
    void headerStandsOut();
    void rowsThatASheetCannotHoldContinueOnTheNext();
    void listWithoutRowsLeavesItsTitles();
    void summaryTellsWhatIsMostFrequent();
    void workbookFollowsTheLanguage();

    void windowStaysAliveWhileItExports();
    void cancelledExportLeavesNothing_data();
    void cancelledExportLeavesNothing();
    void exportDeletedOnTheWayLeavesNothing();
    void fileInPlaceOfTheTemporaryFolderIsTold();

    void timeLeftIsKnownAfterASecond();
    void timeLeftFollowsAChangeOfSpeed();
    void timeLeftIsToldInRoundNumbers_data();
    void timeLeftIsToldInRoundNumbers();

private:
    [[nodiscard]] QString Path() const { return folder_->filePath(QStringLiteral("out.xlsx")); }
    [[nodiscard]] static IncidentRows Rows(const QByteArray &csv, int repeated = 0);
    [[nodiscard]] QJsonObject Export(const IncidentRows &rows) const;

    CTestGuard guard_;
    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<QTemporaryDir> temporary_; // all temporary files of the process
};

void tst_client_xlsx::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    temporary_ = std::make_unique<QTemporaryDir>();
    qputenv("TMPDIR", QFile::encodeName(temporary_->path()));
    CLanguageSwitch().Apply(QStringLiteral("en"));
    guard_.Begin();
}

void tst_client_xlsx::cleanup()
{
    const QStringList left = EntriesOf(temporary_->path());
    qunsetenv("TMPDIR");
    qApp->setLayoutDirection(Qt::LeftToRight);
    const QString fault = guard_.End();
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
    QCOMPARE(left, QStringList());
}

IncidentRows tst_client_xlsx::Rows(const QByteArray &csv, int repeated)
{
    const QTemporaryDir elsewhere;
    const QString path = elsewhere.filePath(QStringLiteral("source.csv"));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(csv);
    file.close();
    const IncidentListPtr list = ReadCsvFile(path).list;
    return AllRows(repeated > 0 ? list->Resized(repeated) : list);
}

QJsonObject tst_client_xlsx::Export(const IncidentRows &rows) const
{
    CListExport job(rows, nullptr);
    QSignalSpy finished(&job, &CListExport::SignalFinished);
    job.Start(Path());
    if (!finished.wait(30000))
        return {};
    const auto result = finished.constFirst().constFirst().value<ExportResult>();
    return result.is_done && EntriesOf(folder_->path()) == QStringList{QStringLiteral("out.xlsx")}
               ? ReadWorkbook(Path())
               : QJsonObject();
}

void tst_client_xlsx::exportedCellsReadBackAsTheyWere()
{
    const QByteArray csv = "text,number,link,\"a \"\"title\"\"\"\n"
                           "\"one, two\",1.5,https://example.org/a?b=1&c,\"line\nbreak\"\n"
                           "=1+1,-20,,\"  blanks  \"\n"
                           ",,http://example.org/,مرحبا <&>\n";

    const QJsonObject sheet = Sheet(Export(Rows(csv)), 0);

    QCOMPARE(Cells(sheet, 0), QStringList({QStringLiteral("text"), QStringLiteral("number"),
                                           QStringLiteral("link"), QStringLiteral("a \"title\"")}));
    QCOMPARE(Cells(sheet, 1), QStringList({QStringLiteral("one, two"), QStringLiteral("1.5"),
                                           QStringLiteral("https://example.org/a?b=1&c"),
                                           QStringLiteral("line\nbreak")}));
    QCOMPARE(Cells(sheet, 2), QStringList({QStringLiteral("=1+1"), QStringLiteral("-20"), QString(),
                                           QStringLiteral("  blanks  ")}));
    QCOMPARE(Cells(sheet, 3),
             QStringList({QString(), QString(), QStringLiteral("http://example.org/"),
                          QStringLiteral("مرحبا <&>")}));
    const QJsonArray row = sheet.value(QStringLiteral("rows")).toArray().at(1).toArray();
    QVERIFY(row.at(0).isString());
    QVERIFY(row.at(1).isDouble());
    QCOMPARE(sheet.value(QStringLiteral("links")).toArray(),
             QJsonArray({QStringLiteral("C2"), QStringLiteral("C4")}));
}

void tst_client_xlsx::numbersThatWouldLoseDigitsStayTexts_data()
{
    QTest::addColumn<QByteArray>("cells");
    QTest::addColumn<XlsxKind>("kind");
    const auto add = [](const char *name, const char *cells, XlsxKind kind) {
        QTest::newRow(name) << QByteArray(cells) << kind;
    };
    add("whole numbers and an empty cell", "0\n12\n\"\"\n-3\n", XlsxKind::Number);
    add("fractions", "0.5\n-12.25\n", XlsxKind::Number);
    add("fifteen digits", "123456789012345\n", XlsxKind::Number);
    add("sixteen digits", "1234567890123456\n", XlsxKind::Text);
    add("one with a leading zero", "12\n007\n", XlsxKind::Text);
    add("an exponent", "1e3\n", XlsxKind::Text);
    add("a plus sign", "+1\n", XlsxKind::Text);
    add("separated thousands", "\"1,000\"\n", XlsxKind::Text);
    add("nothing at all", "\"\"\n", XlsxKind::Text);
    add("addresses", "http://a\nhttps://b\n", XlsxKind::Link);
    add("one that is no address", "http://a\nftp://b\n", XlsxKind::Text);
}

void tst_client_xlsx::numbersThatWouldLoseDigitsStayTexts()
{
    QFETCH(QByteArray, cells);
    QFETCH(XlsxKind, kind);

    QCOMPARE(KindOf(*Rows("a\n" + cells).list, 0), kind);
}

void tst_client_xlsx::headerStandsOut()
{
    const QByteArray csv = "a,a much longer title\n1," + QByteArray(500, 'x') + "\n";

    const QJsonObject sheet = Sheet(Export(Rows(csv)), 0);

    const QJsonObject look = sheet.value(QStringLiteral("firstLook")).toObject();
    QVERIFY(look.value(QStringLiteral("bold")).toBool());
    QCOMPARE(look.value(QStringLiteral("fill")).toString(), QStringLiteral("FFDCE6F8"));
    QCOMPARE(look.value(QStringLiteral("font")).toString(), QStringLiteral("Segoe UI"));
    QCOMPARE(sheet.value(QStringLiteral("filter")).toString(), QStringLiteral("A1:B2"));
    QVERIFY(sheet.value(QStringLiteral("frozen")).toBool());
    const QJsonArray widths = sheet.value(QStringLiteral("widths")).toArray();
    QVERIFY(widths.at(0).toDouble() > 8 && widths.at(0).toDouble() < 9);
    QVERIFY(widths.at(1).toDouble() > 48 && widths.at(1).toDouble() < 49);
}

void tst_client_xlsx::rowsThatASheetCannotHoldContinueOnTheNext()
{
    const IncidentRows rows = Rows("a,b\n1,x\n2,y\n3,z\n4,x\n5,y\n");
    const std::unique_ptr<CRowWriter> writer = MakeXlsxRowWriter(2);
    QVERIFY(writer->Open(Path(), rows));
    writer->Append(0, 3);
    writer->Append(3, 5);
    writer->Write();
    QVERIFY(writer->Close());

    const QJsonObject workbook = ReadWorkbook(Path());

    QCOMPARE(workbook.value(QStringLiteral("sheets")).toArray().size(), 4);
    const struct
    {
        const char *name;
        const char *filter;
        const char *last;
    } sheets[] = {
        {"Incidents", "A1:B3", "2"}, {"Incidents 2", "A1:B3", "4"}, {"Incidents 3", "A1:B2", "5"}};
    for (int i = 0; i < 3; ++i) {
        const QJsonObject sheet = Sheet(workbook, i);
        QCOMPARE(sheet.value(QStringLiteral("name")).toString(), QLatin1String(sheets[i].name));
        QCOMPARE(sheet.value(QStringLiteral("filter")).toString(), QLatin1String(sheets[i].filter));
        QCOMPARE(Cells(sheet, 0), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
        const int last = sheet.value(QStringLiteral("rows")).toArray().size() - 1;
        QCOMPARE(Cells(sheet, last).constFirst(), QLatin1String(sheets[i].last));
    }
    const QJsonObject summary = Sheet(workbook, 3);
    QCOMPARE(summary.value(QStringLiteral("name")).toString(), QStringLiteral("Summary"));
    QCOMPARE(summary.value(QStringLiteral("targets")).toArray(),
             QJsonArray({QStringLiteral("'Incidents'!A1"), QStringLiteral("'Incidents 2'!A1"),
                         QStringLiteral("'Incidents 3'!A1")}));
}

void tst_client_xlsx::listWithoutRowsLeavesItsTitles()
{
    const QJsonObject workbook = Export(Rows("a,b\n"));

    QCOMPARE(Sheet(workbook, 0).value(QStringLiteral("rows")).toArray().size(), 1);
    QCOMPARE(Sheet(workbook, 0).value(QStringLiteral("filter")).toString(),
             QStringLiteral("A1:B1"));
    QCOMPARE(Cells(Sheet(workbook, 1), 1).constFirst(), QStringLiteral("Rows"));
    QCOMPARE(workbook.value(QStringLiteral("pictures")).toArray().size(), 0);
}

void tst_client_xlsx::summaryTellsWhatIsMostFrequent()
{
    IncidentRows rows = Rows("bird,number,date\n"
                             "gull,1,1\ngull,2,2\ngull,3,3\nowl,4,4\n,5,5\n,6,6\n,7,7\n"
                             ",8,8\nowl,9,9\nkite,10,10\nowl,11,a\nowl,12,b\nkite,13,c\n"
                             ",14,d\n,15,e\n,16,f\n");
    rows.filter = QStringLiteral("searched");
    rows.rows.removeLast();

    const QJsonObject workbook = Export(rows);

    const QJsonObject summary = Sheet(workbook, 1);
    QCOMPARE(Cells(summary, 1), QStringList({QStringLiteral("Rows"), QStringLiteral("15")}));
    QCOMPARE(Cells(summary, 2),
             QStringList({QStringLiteral("Searched for"), QStringLiteral("searched")}));
    QCOMPARE(Cells(summary, 5), QStringList({QStringLiteral("bird"), QStringLiteral("Count")}));
    QCOMPARE(Cells(summary, 6), QStringList({QStringLiteral("owl"), QStringLiteral("4")}));
    QCOMPARE(Cells(summary, 7), QStringList({QStringLiteral("gull"), QStringLiteral("3")}));
    QCOMPARE(Cells(summary, 8), QStringList({QStringLiteral("kite"), QStringLiteral("2")}));
    QCOMPARE(summary.value(QStringLiteral("rows")).toArray().size(), 9);
    QCOMPARE(workbook.value(QStringLiteral("pictures")).toArray().size(), 1);
    QCOMPARE(workbook.value(QStringLiteral("descriptions")).toArray(),
             QJsonArray{QStringLiteral("Bar chart of the most frequent values in bird")});

    const BarChart chart = PaintBarChart(QStringLiteral("bird"), MostFrequent(rows, 0, 2));
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

void tst_client_xlsx::workbookFollowsTheLanguage()
{
    CLanguageSwitch language;
    language.Apply(QStringLiteral("ar"));

    const QJsonObject workbook = Export(Rows("a\n1\n"));

    QCOMPARE(Sheet(workbook, 0).value(QStringLiteral("name")).toString(),
             QStringLiteral("الحوادث"));
    QCOMPARE(Sheet(workbook, 1).value(QStringLiteral("name")).toString(), QStringLiteral("الملخص"));
    QVERIFY(Sheet(workbook, 0).value(QStringLiteral("rightToLeft")).toBool());
    QVERIFY(Sheet(workbook, 1).value(QStringLiteral("rightToLeft")).toBool());
    QCOMPARE(Sheet(workbook, 1).value(QStringLiteral("targets")).toArray(),
             QJsonArray{QStringLiteral("'الحوادث'!A1")});
}

void tst_client_xlsx::windowStaysAliveWhileItExports()
{
    constexpr int kRows = 200000;
    const IncidentListPtr list = ReadCsvFile(Options().ListPath()).list->Resized(kRows);
    CListExport job(AllRows(list), nullptr);
    QSignalSpy finished(&job, &CListExport::SignalFinished);
    QSignalSpy progress(&job, &CListExport::SignalProgress);
    QElapsedTimer since_tick;
    qint64 longest_ms = 0;
    int ticks = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        longest_ms = std::max(longest_ms, since_tick.restart());
        ++ticks;
    });
    since_tick.start();
    timer.start(std::chrono::milliseconds(10));

    job.Start(Path());

    QVERIFY(finished.wait(90000));
    const auto result = finished.constFirst().constFirst().value<ExportResult>();
    QVERIFY2(result.is_done, qPrintable(result.error));
    QCOMPARE(result.rows, kRows);
    QVERIFY2(ticks > 20, qPrintable(QString::number(ticks)));
    QVERIFY2(longest_ms < 1000, qPrintable(QString::number(longest_ms)));
    QVERIFY(progress.size() > 1);
    for (int i = 1; i < progress.size(); ++i)
        QVERIFY(progress.at(i).at(0).toInt() >= progress.at(i - 1).at(0).toInt());
}

void tst_client_xlsx::cancelledExportLeavesNothing_data()
{
    QTest::addColumn<int>("rows");
    QTest::newRow("while the rows are written") << 1;
    QTest::newRow("while the file is saved") << 200000;
}

void tst_client_xlsx::cancelledExportLeavesNothing()
{
    QFETCH(int, rows);
    QFile earlier(Path());
    QVERIFY(earlier.open(QIODevice::WriteOnly));
    earlier.write("earlier");
    earlier.close();
    const int open_files = OpenFiles();
    auto job = std::make_unique<CListExport>(Rows("a,b,c\nsome text,1,2\nother text,3,4\n", 200000),
                                             nullptr);
    QSignalSpy finished(job.get(), &CListExport::SignalFinished);
    bool is_cancelled = false;
    connect(job.get(), &CListExport::SignalProgress, job.get(), [&](int done, int total) {
        if (done >= rows && done < total) {
            is_cancelled = true;
            job->Cancel();
        }
    });

    job->Start(Path());

    QVERIFY(finished.wait(60000));
    QVERIFY(is_cancelled);
    const auto result = finished.constFirst().constFirst().value<ExportResult>();
    QVERIFY(!result.is_done);
    QCOMPARE(result.error, QString());
    QCOMPARE(FileBytes(Path()), QByteArray("earlier"));
    QCOMPARE(EntriesOf(folder_->path()), QStringList{QStringLiteral("out.xlsx")});
    job.reset();
    QCOMPARE(OpenFiles(), open_files); // an open file without a name would still fill the disk
}

void tst_client_xlsx::exportDeletedOnTheWayLeavesNothing()
{
    auto job = std::make_unique<CListExport>(Rows("a\n1\n", 500000), nullptr);
    QSignalSpy progress(job.get(), &CListExport::SignalProgress);
    job->Start(Path());
    QVERIFY(progress.wait());

    job.reset();

    QCOMPARE(EntriesOf(folder_->path()), QStringList());
}

void tst_client_xlsx::fileInPlaceOfTheTemporaryFolderIsTold()
{
    CListExport job(Rows("a\n1\n"), nullptr);
    qputenv("TMPDIR", QFile::encodeName(QCoreApplication::applicationFilePath()));
    QSignalSpy finished(&job, &CListExport::SignalFinished);

    job.Start(Path());

    QVERIFY(finished.wait(30000));
    const auto result = finished.constFirst().constFirst().value<ExportResult>();
    QVERIFY(!result.is_done);
    QVERIFY2(result.error.startsWith(QStringLiteral("Cannot make a folder for temporary files")),
             qPrintable(result.error));
    QCOMPARE(EntriesOf(folder_->path()), QStringList());
}

void tst_client_xlsx::timeLeftIsKnownAfterASecond()
{
    CTimeLeft estimate;
    estimate.Note(500, 0.05);
    QCOMPARE(estimate.Seconds(), -1);

    estimate.Note(1000, 0.1);

    QCOMPARE(estimate.Seconds(), 9);
}

void tst_client_xlsx::timeLeftFollowsAChangeOfSpeed()
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

void tst_client_xlsx::timeLeftIsToldInRoundNumbers_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("seconds");
    QTest::addColumn<QString>("text");
    const auto add = [](const char *name, const char *language, int seconds, const char16_t *text) {
        QTest::newRow(name) << QString::fromLatin1(language) << seconds << QString::fromUtf16(text);
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

void tst_client_xlsx::timeLeftIsToldInRoundNumbers()
{
    QFETCH(QString, language);
    QFETCH(int, seconds);
    QFETCH(QString, text);
    CLanguageSwitch spoken;
    spoken.Apply(language);

    QCOMPARE(TimeLeftText(seconds), text);
}

QTEST_MAIN(tst_client_xlsx)
#include "tst_client_xlsx.moc"
