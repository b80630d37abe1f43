// SPDX-License-Identifier: MIT
#include "WorkbookReader.h"
#include "support/Test.h"

#include <QtCore/QProcess>
#include <QtGui/QImage>

#include <csignal>

namespace {

constexpr int kPatienceMs = 120000;

struct Outcome
{
    int status = -1; // -1: the program did not end by itself
    QStringList output;
    QStringList errors;
};

struct WrongUse
{
    const char *name;
    const char *arguments; // divided by blanks
    const char *message;
    int status;
};

struct FullDisk
{
    const char *name;
    const char *file;
    QString message;
};

struct Signal
{
    const char *name;
    int number;
};

QProcessEnvironment NoDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("QT_QPA_PLATFORM");
    environment.remove("DISPLAY");
    environment.remove("WAYLAND_DISPLAY");
    return environment;
}

QProcessEnvironment Display(const QString &name)
{
    QProcessEnvironment environment = NoDisplay();
    environment.insert("DISPLAY", name);
    environment.insert("WAYLAND_DISPLAY", QString());
    environment.insert("QT_QPA_PLATFORM", QString());
    return environment;
}

Outcome WaitForEnd(QProcess &process)
{
    const auto lines = [](const QByteArray &bytes) {
        return QString::fromUtf8(bytes).split('\n', Qt::SkipEmptyParts);
    };
    Outcome outcome;
    if (process.waitForFinished(kPatienceMs) && process.exitStatus() == QProcess::NormalExit)
        outcome.status = process.exitCode();
    outcome.output = lines(process.readAllStandardOutput());
    outcome.errors = lines(process.readAllStandardError());
    return outcome;
}

QByteArrayList Quoted(const QByteArray &line)
{
    QByteArrayList cells = line.split(','); // the list that is included holds no quotes
    for (QByteArray &cell : cells)
        cell = '"' + cell + '"';
    return cells;
}

} // namespace

class TestClientProgram : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    // A display server that has gone counts as no display.
    void runWithoutDisplayLeavesListAndPictures()
    {
        const Outcome outcome = Start(CLIENT_PROGRAM, {}, Display(":7777"));

        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.errors, QStringList());
        QByteArray expected("\xEF\xBB\xBF");
        const QByteArrayList lines = FileBytes(CLIENT_LIST).replace("\r\n", "\n").split('\n');
        for (const QByteArray &line : lines)
            expected += Quoted(line).join(',') + "\r\n";
        QCOMPARE(lines.size(), 10001);
        QVERIFY(folder_.Bytes("out/incidents.csv") == expected);

        const QJsonObject sheet = Sheet(ReadWorkbook(folder_.Path("out/incidents.xlsx")), 0);
        QCOMPARE(sheet.value("filter").toString(), QString("A1:N10001"));
        for (int row = 0; row < lines.size(); ++row) {
            QStringList cells = Cells(sheet, row);
            while (cells.size() < 14) // empty cells at the end of a row are left out
                cells.append(QString());
            QCOMPARE(cells, QString::fromUtf8(lines.at(row)).split(','));
        }

        QVector<QImage> pictures;
        for (const char *const name : {"light-en", "dark-en", "light-ar", "dark-ar", "waiting"}) {
            const QImage picture(folder_.Path(QString("out/client-%1.png").arg(name)));
            QVERIFY2(picture.width() >= 1280 && picture.height() >= 800, name);
            QVERIFY2(!pictures.contains(picture), name);
            pictures.append(picture);
        }
        QVERIFY(pictures.at(0).pixelColor(640, 105).lightness() > 200);
        QVERIFY(pictures.at(1).pixelColor(640, 105).lightness() < 60);
    }

    void emptyNameOfADisplayCountsAsNoDisplay()
    {
        const Outcome outcome = Start(CLIENT_PROGRAM, {"--rows", "20"}, Display(""));

        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.errors, QStringList());
        QVERIFY(folder_.Files().contains("out"));
    }

    void signalEndsTheExportWithoutAFile_data()
    {
        AddRows<Signal>({{"from the keyboard", SIGINT},
                         {"from the system", SIGTERM},
                         {"from a terminal that is closed", SIGHUP}});
    }

    void signalEndsTheExportWithoutAFile()
    {
        const int number = FetchRow<Signal>().number;
        for (const int ignored : {SIGINT, SIGHUP}) // by scripts, in what they run in the background
            std::signal(ignored, SIG_DFL);
        folder_.Put("out.csv", "earlier");
        QProcess process;
        const QString temporary = folder_.PutFolder("temporary");
        QProcessEnvironment environment = NoDisplay();
        environment.insert("TMPDIR", temporary);
        process.setProcessEnvironment(environment);
        process.start(CLIENT_PROGRAM, {"--rows", "2000000", "--export", folder_.Path("out.csv")});
        QTRY_VERIFY_WITH_TIMEOUT(!FileNames(temporary).filter("vantor-export-").isEmpty(),
                                 kPatienceMs);

        QCOMPARE(kill(static_cast<pid_t>(process.processId()), number), 0);

        QCOMPARE(WaitForEnd(process).status, 128 + number);
        QCOMPARE(folder_.Files(), QStringList({"out.csv", "temporary"}));
        QCOMPARE(FileNames(temporary).filter("vantor-export-"), QStringList());
        QCOMPARE(folder_.Bytes("out.csv"), QByteArray("earlier"));
    }

    void signalEndsTheWindow()
    {
        QProcess process;
        QProcessEnvironment environment = NoDisplay();
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.insert("XDG_CONFIG_HOME", folder_.Path());
        process.setProcessEnvironment(environment);
        process.start(CLIENT_PROGRAM, QStringList());
        QVERIFY(process.waitForStarted());
        const QString status = QString("/proc/%1/status").arg(process.processId());
        const auto catches_both = [&status] {
            constexpr qulonglong kBoth = (1U << (SIGINT - 1)) | (1U << (SIGTERM - 1));
            const QByteArray bytes = FileBytes(status);
            const int mask_at = bytes.indexOf("SigCgt:") + int(sizeof "SigCgt:");
            return (bytes.mid(mask_at, 16).toULongLong(nullptr, 16) & kBoth) == kBoth;
        };
        QTRY_VERIFY_WITH_TIMEOUT(catches_both(), kPatienceMs);

        process.terminate();

        QCOMPARE(WaitForEnd(process).status, 128 + SIGTERM);
        QVERIFY(folder_.Files().contains("Vantor")); // the settings are kept
    }

    void exportTakesTheRowsThatMatch()
    {
        const Outcome outcome = Run(
            {"--rows", "20000", "--filter", "Herring gull", "--export", folder_.Path("gulls.csv")});

        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.errors, QStringList());
        QVERIFY(outcome.output.join(QString()).contains("104 incidents"));
        QCOMPARE(folder_.Bytes("gulls.csv").count("\r\n"), 105);
        QCOMPARE(folder_.Bytes("gulls.csv").count("Herring gull"), 104);
        QCOMPARE(folder_.Files(), QStringList("gulls.csv"));
    }

    void wrongUseIsReported_data()
    {
        AddRows<WrongUse>({
            {"help", "--help", "", 0},
            {"an unknown option", "--bogus", "bogus", 2},
            {"an argument too many", "list.csv", "list.csv", 2},
            {"no rows", "--rows 0", "--rows", 2},
            {"rows that are no number", "--rows many", "many", 2},
            {"more rows than an int counts", "--rows 99999999999", "99999999999", 2},
            {"more rows than a table holds", "--rows 10000001", "10,000,000", 2},
            {"a value missing", "--export", "export", 2},
            {"two tasks at once", "--headless --export list.csv", "--headless", 2},
            {"another kind of file", "--export list.ods", ".csv, .xlsx", 2},
            {"a name without an ending", "--export list", ".csv", 2},
            {"a list that is missing", "--open missing.csv", "missing.csv", 1},
            {"a list that is a folder", "--open folder", "folder", 1},
            {"an empty list", "--open empty.csv", "is empty", 1},
            {"nothing to repeat", "--open titles.csv --rows 5", "no row", 1},
            {"an export to a missing folder", "--export missing/out.csv", "does not exist", 1},
            {"a workbook to a missing folder", "--export missing/out.xlsx", "does not exist", 1},
            {"an export over a folder", "--export folder/x.csv/out.csv", "does not exist", 1},
            {"pictures in place of a file", "--headless --out empty.csv/out",
             "empty.csv/out: Not a directory", 1},
        });
    }

    void wrongUseIsReported()
    {
        const auto &row = FetchRow<WrongUse>();
        folder_.PutFolder("folder");
        folder_.Put("empty.csv", "");
        folder_.Put("titles.csv", "a,b\n");
        const QStringList before = folder_.Files();

        const Outcome outcome = Run(QString(row.arguments).split(' '));

        QCOMPARE(outcome.status, row.status);
        QCOMPARE(folder_.Files(), before);
        if (row.status == 0) {
            QCOMPARE(outcome.output.constFirst(), QString("Usage: vantor-client [options]"));
            return;
        }
        QCOMPARE(outcome.errors.size(), 1);
        QVERIFY2(outcome.errors.constFirst().contains(row.message),
                 qPrintable(outcome.errors.constFirst()));
    }

    void openQuoteIsReported()
    {
        folder_.Put("list.csv", "a,b\n1,2\n\"3,4\n5,6\n");

        const Outcome outcome = Run({"--open", "list.csv", "--export", "out.csv"});

        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.errors.size(), 1);
        QVERIFY(outcome.errors.constFirst().contains("line 3 is not closed"));
    }

    void folderOfAnotherUserIsLeftAlone()
    {
        folder_.Put("out.csv", "earlier");
        QVERIFY(QFile::setPermissions(folder_.Path(), QFile::Permissions(0x7055)));

        const Outcome outcome = Start("setpriv", {"--reuid=65534", "--clear-groups", CLIENT_PROGRAM,
                                                  "--export", folder_.Path("new.csv")});

        QCOMPARE(outcome.status, 1);
        QCOMPARE(outcome.errors.size(), 1);
        QVERIFY2(outcome.errors.constFirst().contains("Cannot write to the folder"),
                 qPrintable(outcome.errors.constFirst()));
        QCOMPARE(folder_.Files(), QStringList("out.csv"));
        QCOMPARE(folder_.Bytes("out.csv"), QByteArray("earlier"));
    }

    void fullDiskLeavesTheEarlierFile_data()
    {
        AddRows<FullDisk>(
            {{"a list", "out.csv", "Writing failed: File too large. %1 was not written."},
             // A workbook's sheets meet the limit first, in temporary files.
             {"a workbook", "out.xlsx",
              QString("There is not enough room for temporary files in %1. Nothing was exported.")
                  .arg(QDir::tempPath())}});
    }

    void fullDiskLeavesTheEarlierFile()
    {
        const auto &row = FetchRow<FullDisk>();
        const QString path = folder_.Put(row.file, "earlier");

        const Outcome outcome = Start(
            "bash", {"-c", "ulimit -f 64; exec \"$0\" --export \"$1\"", CLIENT_PROGRAM, path});

        QCOMPARE(outcome.status, 1);
        QVERIFY2(outcome.errors.size() == 1, qPrintable(outcome.errors.join('\n')));
        QCOMPARE(outcome.errors.constLast(),
                 "vantor-client: " + QString(row.message).replace("%1", path));
        QCOMPARE(folder_.Files(), QStringList(row.file));
        QCOMPARE(folder_.Bytes(row.file), QByteArray("earlier"));
    }

private:
    Outcome Start(const QString &program, const QStringList &arguments,
                  const QProcessEnvironment &environment = NoDisplay()) const
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(folder_.Path());
        process.start(program, arguments);
        return WaitForEnd(process);
    }

    Outcome Run(const QStringList &arguments) const { return Start(CLIENT_PROGRAM, arguments); }
};

QTEST_MAIN(TestClientProgram)
#include "tst_client_program.moc"
