// SPDX-License-Identifier: MIT
#include "export/ExportTarget.h"
#include "export/ListExport.h"
#include "list/CsvFile.h"
#include "list/ListModel.h"
#include "support/Files.h"
#include "support/TestGuard.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <numeric>

using namespace Client;

class tst_client_export : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<ExportResult>(); }
    void init();
    void cleanup();

    void exportedCellsReadBackAsTheyWere();
    void formulasAreDefused();
    void listWithoutRowsLeavesItsTitles();
    void cancelledExportLeavesTheEarlierFile();
    void exportDeletedOnTheWayLeavesTheEarlierFile();

    void unwritableTargetIsRefusedWithAReason_data();
    void unwritableTargetIsRefusedWithAReason();
    void linkKeepsPointingToTheFileBehindIt();
    void replacedFileKeepsItsPermissions();
    void newFileHasThePermissionsOfAnyOther();

private:
    [[nodiscard]] QString Path(const char *name) const;
    void Put(const char *name, const QByteArray &bytes) const;
    [[nodiscard]] QStringList Files() const;
    [[nodiscard]] IncidentRows Rows(const QByteArray &csv, int repeated = 0) const;
    [[nodiscard]] static ExportResult Export(const IncidentRows &rows, const QString &path);

    CTestGuard guard_;
    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_client_export::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    guard_.Begin();
}

void tst_client_export::cleanup()
{
    const QString fault = guard_.End();
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
    folder_.reset();
}

QString tst_client_export::Path(const char *name) const
{
    return folder_->filePath(QLatin1String(name));
}

void tst_client_export::Put(const char *name, const QByteArray &bytes) const
{
    QFile file(Path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

QStringList tst_client_export::Files() const
{
    return QDir(folder_->path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

IncidentRows tst_client_export::Rows(const QByteArray &csv, int repeated) const
{
    const QTemporaryDir elsewhere;
    const QString path = elsewhere.filePath(QStringLiteral("source.csv"));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(csv);
    file.close();
    IncidentListPtr list = ReadCsvFile(path).list;
    if (repeated > 0)
        list = list->Resized(repeated);
    QVector<int> rows(list->RowCount());
    std::iota(rows.begin(), rows.end(), 0);
    return {list, rows};
}

ExportResult tst_client_export::Export(const IncidentRows &rows, const QString &path)
{
    CListExport job(rows, nullptr);
    QSignalSpy finished(&job, &CListExport::SignalFinished);
    job.Start(path);
    if (finished.isEmpty() && !finished.wait(30000))
        return {};
    return finished.constFirst().constFirst().value<ExportResult>();
}

void tst_client_export::exportedCellsReadBackAsTheyWere()
{
    const QByteArray csv = "first,\"a \"\"title\"\"\"\n"
                           "\"one, two; three\",\"say \"\"hi\"\"\"\n"
                           "\"line\nbreak\",\"  blanks  \"\n"
                           "\"two\n\nbreaks\",مرحبا\n"
                           ",last\n";
    const IncidentRows rows = Rows(csv);

    const ExportResult result = Export(rows, Path("out.csv"));

    QVERIFY2(result.is_done, qPrintable(result.error));
    QCOMPARE(result.rows, 4);
    QCOMPARE(FileBytes(Path("out.csv")), QByteArray("\xEF\xBB\xBF\"first\",\"a \"\"title\"\"\"\r\n"
                                                    "\"one, two; three\",\"say \"\"hi\"\"\"\r\n"
                                                    "\"line\nbreak\",\"  blanks  \"\r\n"
                                                    "\"two\n\nbreaks\",\"مرحبا\"\r\n"
                                                    "\"\",\"last\"\r\n"));
    QCOMPARE(Files(), QStringList{QStringLiteral("out.csv")});
}

void tst_client_export::formulasAreDefused()
{
    const ExportResult result = Export(Rows("a,b\n=1+1, @x\n"), Path("out.csv"));

    QVERIFY(result.is_done);
    QCOMPARE(FileBytes(Path("out.csv")),
             QByteArray("\xEF\xBB\xBF\"a\",\"b\"\r\n\"'=1+1\",\"'@x\"\r\n"));
}

void tst_client_export::listWithoutRowsLeavesItsTitles()
{
    const ExportResult result = Export(Rows("a,b\n"), Path("out.csv"));

    QVERIFY(result.is_done);
    QCOMPARE(result.rows, 0);
    QCOMPARE(FileBytes(Path("out.csv")), QByteArray("\xEF\xBB\xBF\"a\",\"b\"\r\n"));
}

void tst_client_export::cancelledExportLeavesTheEarlierFile()
{
    Put("out.csv", "earlier");
    CListExport job(Rows("a\n1\n", 50000), nullptr);
    QSignalSpy finished(&job, &CListExport::SignalFinished);
    connect(&job, &CListExport::SignalProgress, &job, [&job](int rows, int) {
        if (rows > 10000)
            job.Cancel();
    });

    job.Start(Path("out.csv"));

    QVERIFY(finished.wait());
    const auto result = finished.constFirst().constFirst().value<ExportResult>();
    QVERIFY(!result.is_done);
    QCOMPARE(result.error, QString());
    QVERIFY(result.rows < 50000);
    QCOMPARE(FileBytes(Path("out.csv")), QByteArray("earlier"));
    QCOMPARE(Files(), QStringList{QStringLiteral("out.csv")});
}

void tst_client_export::exportDeletedOnTheWayLeavesTheEarlierFile()
{
    Put("out.csv", "earlier");
    auto job = std::make_unique<CListExport>(Rows("a\n1\n", 50000), nullptr);
    QSignalSpy collected(job.get(), &CListExport::SignalProgress);
    job->Start(Path("out.csv"));
    QVERIFY(collected.wait());

    job.reset();

    QCOMPARE(FileBytes(Path("out.csv")), QByteArray("earlier"));
    QCOMPARE(Files(), QStringList{QStringLiteral("out.csv")});
}

void tst_client_export::unwritableTargetIsRefusedWithAReason_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("a folder that is missing")
        << QStringLiteral("missing/out.csv") << QStringLiteral("does not exist");
    QTest::newRow("a file in place of the folder")
        << QStringLiteral("file.csv/out.csv") << QStringLiteral("does not exist");
    QTest::newRow("a folder in place of the file")
        << QStringLiteral("folder.csv") << QStringLiteral("is a folder");
    QTest::newRow("a device") << QStringLiteral("device.csv") << QStringLiteral("is a device");
    QTest::newRow("links in a ring") << QStringLiteral("ring.csv") << QStringLiteral("nowhere");
}

void tst_client_export::unwritableTargetIsRefusedWithAReason()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    Put("file.csv", "earlier");
    QVERIFY(QDir(folder_->path()).mkdir(QStringLiteral("folder.csv")));
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), Path("device.csv")));
    QVERIFY(QFile::link(Path("ring.csv"), Path("ring2.csv")));
    QVERIFY(QFile::link(Path("ring2.csv"), Path("ring.csv")));
    const QStringList before = Files();

    const ExportResult result = Export(Rows("a\n1\n"), folder_->filePath(name));

    QVERIFY(!result.is_done);
    QVERIFY2(result.error.contains(reason), qPrintable(result.error));
    QCOMPARE(Files(), before);
    QCOMPARE(FileBytes(Path("file.csv")), QByteArray("earlier"));
}

void tst_client_export::linkKeepsPointingToTheFileBehindIt()
{
    Put("real.csv", "earlier");
    QVERIFY(QFile::link(QStringLiteral("real.csv"), Path("link.csv")));

    const ExportResult result = Export(Rows("a\n1\n"), Path("link.csv"));

    QVERIFY2(result.is_done, qPrintable(result.error));
    QVERIFY(QFileInfo(Path("link.csv")).isSymLink());
    QCOMPARE(FileBytes(Path("real.csv")), QByteArray("\xEF\xBB\xBF\"a\"\r\n\"1\"\r\n"));
}

void tst_client_export::replacedFileKeepsItsPermissions()
{
    Put("out.csv", "earlier");
    const QFile::Permissions only_owner = QFile::ReadOwner | QFile::WriteOwner;
    QVERIFY(QFile::setPermissions(Path("out.csv"), only_owner));

    QVERIFY(Export(Rows("a\n1\n"), Path("out.csv")).is_done);

    const QFile::Permissions of_others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QCOMPARE(QFile::permissions(Path("out.csv")) & of_others, QFile::Permissions());
}

void tst_client_export::newFileHasThePermissionsOfAnyOther()
{
    Put("plain.csv", "");

    QVERIFY(Export(Rows("a\n1\n"), Path("out.csv")).is_done);

    QCOMPARE(QFile::permissions(Path("out.csv")), QFile::permissions(Path("plain.csv")));
}

QTEST_MAIN(tst_client_export)
#include "tst_client_export.moc"
