// SPDX-License-Identifier: MIT
#include "support/Test.h"

namespace {

constexpr int kPatienceMs = 120000;

struct Outcome
{
    int status = -1; // -1: the program did not end by itself
    QStringList output;
    QStringList errors;
};

QProcessEnvironment NoDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("QT_QPA_PLATFORM");
    environment.remove("DISPLAY");
    environment.remove("WAYLAND_DISPLAY");
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
    static const QRegularExpression no_progress("^(?!.*: \\d+.?%)"); // on a slow machine
    outcome.errors = lines(process.readAllStandardError()).filter(no_progress);
    return outcome;
}

// arguments (divided by blanks), message, status
const Rows<const char *, const char *, int> kWrongUseRows = {
    {"help", "--help", "", 0},
    {"an unknown option", "--bogus", "bogus", 2},
    {"a list that is missing", "--open missing.csv", "missing.csv", 1},
    {"nothing to repeat", "--open titles.csv --rows 5", "no row", 1},
    {"an export to a missing folder", "--export missing/out.csv", "does not exist", 1},
    {"in place of a file", "--headless --out empty.csv/out", "empty.csv/out: Not a directory", 1},
};

// file, shell command, message
const Rows<const char *, const char *, QString> kUnwrittenRows = {
    {"a list on a full disk", "out.csv", "ulimit -f 64; exec",
     "Writing failed: File too large. %1 was not written."},
    // A workbook's sheets meet the limit first, in temporary files.
    {"a workbook on a full disk", "out.xlsx", "ulimit -f 64; exec",
     QString("There is not enough room for temporary files in %1. Nothing was exported.")
         .arg(QDir::tempPath())},
    {"in another user's folder", "out.csv",
     "chmod 755 .; chmod 666 out.csv; exec setpriv --reuid=65534 --clear-groups",
     "Cannot write to the folder "},
};

} // namespace

class TestClientProgram : public CGuardedTest
{
    Q_OBJECT

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

private Q_SLOTS:
    // A display server that has gone counts as no display.
    void runWithoutDisplayLeavesListAndPictures()
    {
        QProcessEnvironment environment = NoDisplay();
        environment.insert("DISPLAY", ":7777");
        environment.insert("WAYLAND_DISPLAY", QString()); // an empty name is no display either
        const Outcome outcome = Start(CLIENT_PROGRAM, {}, environment);

        QVERIFY2(outcome.errors.isEmpty(), qPrintable(outcome.errors.join('\n')));
        QCOMPARE(outcome.status, 0);
        QByteArray list = FileBytes(CLIENT_LIST).replace("\r\n", "\n"); // holds no quotes
        QCOMPARE(list.count('\n'), 10000);
        list.replace(",", "\",\"").replace("\n", "\"\r\n\"");
        QVERIFY(folder_.Bytes("out/incidents.csv") == "\xEF\xBB\xBF\"" + list + "\"\r\n");

        QVERIFY(folder_.Bytes("out/incidents.xlsx").startsWith("PK"));

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

    void signalsEndExportsWithoutAFile()
    {
        folder_.Put("out.csv", "earlier");
        const QString temporary = folder_.PutFolder("temporary");
        QProcessEnvironment environment = NoDisplay();
        environment.insert("TMPDIR", temporary);
        std::map<int, QProcess> exports; // by the signal that ends them
        for (const int number : {SIGINT, SIGHUP, SIGTERM}) {
            std::signal(SIGINT, SIG_DFL); // scripts ignore it for what they run in the background
            std::signal(SIGHUP, number == SIGTERM ? SIG_IGN : SIG_DFL); // nohup ignores this one
            exports[number].setProcessEnvironment(environment);
            exports[number].start(CLIENT_PROGRAM,
                                  {"--rows", "1000000", "--export", folder_.Path("out.csv")});
        }
        QTRY_COMPARE_WITH_TIMEOUT(FileNames(temporary).filter("vantor-export-").size(), 3,
                                  kPatienceMs);
        kill(pid_t(exports[SIGTERM].processId()), SIGHUP);
        for (auto &[number, process] : exports) { // in the order of their numbers
            QCOMPARE(kill(pid_t(process.processId()), number), 0);
            QCOMPARE(WaitForEnd(process).status, 128 + number);
        }
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

    void exportTakesTheRowsThatMatchAndTellsOfAnOpenQuote()
    {
        folder_.Put("list.csv", "a,b\n1,gull\n2,crow\n\"3,4\n5,6\n"); // three rows
        const Outcome outcome =
            Run({"--open", "list.csv", "--rows", "7", "--filter", "gull", "--export", "out.csv"});

        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.errors.size(), 1);
        QVERIFY(outcome.errors.constFirst().contains("line 4 is not closed"));
        QVERIFY(outcome.output.join(QString()).contains("3 incidents"));
        QCOMPARE(folder_.Bytes("out.csv"),
                 "\xEF\xBB\xBF\"a\",\"b\"\r\n" + QByteArray("\"1\",\"gull\"\r\n").repeated(3));
        QCOMPARE(folder_.Files(), QStringList({"list.csv", "out.csv"}));
    }

    void wrongUseIsReported_data() { AddRows(kWrongUseRows); }

    void wrongUseIsReported()
    {
        const auto &[name, arguments, message, status] = FetchRow(kWrongUseRows);
        folder_.Put("empty.csv", "");
        folder_.Put("titles.csv", "a,b\n");
        const QStringList before = folder_.Files();

        const Outcome outcome = Run(QString(arguments).split(' '));

        QCOMPARE(outcome.status, status);
        QCOMPARE(folder_.Files(), before);
        if (status == 0) {
            QCOMPARE(outcome.output.constFirst(), QString("Usage: vantor-client [options]"));
            return;
        }
        QCOMPARE(outcome.errors.size(), 1);
        QVERIFY2(outcome.errors.constFirst().contains(message),
                 qPrintable(outcome.errors.constFirst()));
    }

    void whatCannotBeWrittenLeavesTheEarlierFile_data() { AddRows(kUnwrittenRows); }

    void whatCannotBeWrittenLeavesTheEarlierFile()
    {
        const auto &[name, file, command, message] = FetchRow(kUnwrittenRows);
        const QString path = folder_.Put(file, "earlier");

        const Outcome outcome = Start(
            "bash", {"-c", QString(command) + " \"$0\" --export \"$1\"", CLIENT_PROGRAM, path});

        QCOMPARE(outcome.status, 1);
        QVERIFY2(outcome.errors.size() == 1, qPrintable(outcome.errors.join('\n')));
        QVERIFY2(outcome.errors.constLast().startsWith("vantor-client: "
                                                       + QString(message).replace("%1", path)),
                 qPrintable(outcome.errors.constLast()));
        QCOMPARE(folder_.Files(), QStringList(file));
        QCOMPARE(folder_.Bytes(file), QByteArray("earlier"));
    }
};

QTEST_MAIN(TestClientProgram)
#include "tst_client_program.moc"
