// SPDX-License-Identifier: MIT
#include "WorkbookReader.h"
#include "support/Files.h"
#include "support/TestGuard.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtTest/QTest>

#include <csignal>

namespace {

constexpr int kPatience_ms = 120000;

struct Outcome
{
    int status = -1; // -1: it did not end by itself
    QStringList output;
    QStringList errors;
};

QStringList Lines(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QProcessEnvironment NoDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    return environment;
}

Outcome WaitForEnd(QProcess &process)
{
    Outcome outcome;
    if (process.waitForFinished(kPatience_ms) && process.exitStatus() == QProcess::NormalExit)
        outcome.status = process.exitCode();
    outcome.output = Lines(process.readAllStandardOutput());
    outcome.errors = Lines(process.readAllStandardError());
    return outcome;
}

Outcome Start(const QString &program, const QStringList &arguments, const QString &folder,
              const QProcessEnvironment &environment = NoDisplay())
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
    process.start(program, arguments);
    return WaitForEnd(process);
}

QByteArrayList Quoted(const QByteArray &line)
{
    QByteArrayList cells = line.split(','); // the list included holds no quotes
    for (QByteArray &cell : cells)
        cell = '"' + cell + '"';
    return cells;
}

} // namespace

class tst_client_program : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void runWithoutDisplayLeavesListAndPictures();
    void displayThatDoesNotAnswerIsNone_data();
    void displayThatDoesNotAnswerIsNone();
    void usageNamesTheProgramWithoutItsFolder();
    void signalEndsTheExportWithoutAFile_data();
    void signalEndsTheExportWithoutAFile();
    void signalEndsTheWindow();
    void openQuoteIsToldOnTheWay();
    void exportTakesTheRowsThatMatch();
    void wrongUseEndsWithTwo_data();
    void wrongUseEndsWithTwo();
    void unusableFileEndsWithOne_data();
    void unusableFileEndsWithOne();
    void folderOfAnotherUserIsLeftAlone();
    void fullDiskLeavesTheEarlierFile_data();
    void fullDiskLeavesTheEarlierFile();

private:
    [[nodiscard]] Outcome Run(const QStringList &arguments) const;
    [[nodiscard]] QString Path(const char *name) const;
    [[nodiscard]] QStringList Files() const;

    CTestGuard guard_;
    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_client_program::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    guard_.Begin();
}

void tst_client_program::cleanup()
{
    const QString fault = guard_.End();
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

Outcome tst_client_program::Run(const QStringList &arguments) const
{
    return Start(QStringLiteral(CLIENT_PROGRAM), arguments, folder_->path());
}

QString tst_client_program::Path(const char *name) const
{
    return folder_->filePath(QLatin1String(name));
}

QStringList tst_client_program::Files() const
{
    return QDir(folder_->path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

void tst_client_program::runWithoutDisplayLeavesListAndPictures()
{
    const Outcome outcome = Run({});

    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.errors, QStringList());
    QByteArray expected("\xEF\xBB\xBF");
    const QByteArrayList lines =
        FileBytes(QStringLiteral(CLIENT_LIST)).replace("\r\n", "\n").split('\n');
    for (const QByteArray &line : lines)
        expected += Quoted(line).join(',') + "\r\n";
    QCOMPARE(lines.size(), 10001);
    QVERIFY(FileBytes(Path("out/incidents.csv")) == expected);

    const QJsonObject sheet = Sheet(ReadWorkbook(Path("out/incidents.xlsx")), 0);
    QCOMPARE(sheet.value(QStringLiteral("filter")).toString(), QStringLiteral("A1:N10001"));
    for (int row = 0; row < lines.size(); ++row) {
        QStringList cells = Cells(sheet, row);
        while (cells.size() < 14) // empty cells at the end of a row are left out
            cells.append(QString());
        QCOMPARE(cells, QString::fromUtf8(lines.at(row)).split(QLatin1Char(',')));
    }

    QVector<QImage> pictures;
    for (const char *const name :
         {"out/client-light-en.png", "out/client-dark-en.png", "out/client-light-ar.png",
          "out/client-dark-ar.png", "out/client-waiting.png"}) {
        const QImage picture(Path(name));
        QVERIFY2(picture.width() >= 1280 && picture.height() >= 800, name);
        QVERIFY2(!pictures.contains(picture), name);
        pictures.append(picture);
    }
    QVERIFY(pictures.at(0).pixelColor(640, 105).lightness() > 200);
    QVERIFY(pictures.at(1).pixelColor(640, 105).lightness() < 60);
}

void tst_client_program::displayThatDoesNotAnswerIsNone_data()
{
    QTest::addColumn<QString>("display");
    QTest::newRow("an empty name") << QString();
    QTest::newRow("a server that is gone") << QStringLiteral(":7777");
}

void tst_client_program::displayThatDoesNotAnswerIsNone()
{
    QFETCH(QString, display);
    QProcessEnvironment environment = NoDisplay();
    environment.insert(QStringLiteral("DISPLAY"), display);
    environment.insert(QStringLiteral("WAYLAND_DISPLAY"), QString());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QString());

    const Outcome outcome =
        Start(QStringLiteral(CLIENT_PROGRAM), {QStringLiteral("--rows"), QStringLiteral("20")},
              folder_->path(), environment);

    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.errors, QStringList());
    QVERIFY(Files().contains(QStringLiteral("out")));
}

void tst_client_program::usageNamesTheProgramWithoutItsFolder()
{
    const Outcome outcome = Run({QStringLiteral("--help")});

    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.output.constFirst(), QStringLiteral("Usage: vantor-client [options]"));
}

void tst_client_program::signalEndsTheExportWithoutAFile_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("from the keyboard") << SIGINT;
    QTest::newRow("from the system") << SIGTERM;
}

void tst_client_program::signalEndsTheExportWithoutAFile()
{
    QFETCH(int, number);
    std::signal(SIGINT, SIG_DFL); // ignored in what a script runs in the background
    QProcess process;
    process.setProcessEnvironment(NoDisplay());
    process.start(QStringLiteral(CLIENT_PROGRAM),
                  {QStringLiteral("--rows"), QStringLiteral("2000000"), QStringLiteral("--export"),
                   Path("out.csv")});
    QTRY_COMPARE_WITH_TIMEOUT(Files().size(), 1, kPatience_ms); // the temporary file

    QCOMPARE(kill(static_cast<pid_t>(process.processId()), number), 0);

    const Outcome outcome = WaitForEnd(process);
    QCOMPARE(outcome.status, 128 + number);
    QCOMPARE(Files(), QStringList());
}

void tst_client_program::signalEndsTheWindow()
{
    QProcess process;
    QProcessEnvironment environment = NoDisplay();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder_->path());
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(CLIENT_PROGRAM), QStringList());
    QVERIFY(process.waitForStarted());
    const QString status = QStringLiteral("/proc/%1/status").arg(process.processId());
    const auto catches_both = [&status] {
        constexpr qulonglong kBoth = (1U << (SIGINT - 1)) | (1U << (SIGTERM - 1));
        const QByteArray bytes = FileBytes(status);
        const int mask_at = bytes.indexOf("SigCgt:") + int(sizeof "SigCgt:");
        return (bytes.mid(mask_at, 16).toULongLong(nullptr, 16) & kBoth) == kBoth;
    };
    QTRY_VERIFY_WITH_TIMEOUT(catches_both(), kPatience_ms);

    process.terminate();

    QCOMPARE(WaitForEnd(process).status, 128 + SIGTERM);
    QVERIFY(Files().contains(QStringLiteral("Vantor"))); // the settings are kept
}

void tst_client_program::openQuoteIsToldOnTheWay()
{
    QFile list(Path("list.csv"));
    QVERIFY(list.open(QIODevice::WriteOnly));
    list.write("a,b\n1,2\n\"3,4\n5,6\n");
    list.close();

    const Outcome outcome = Run({QStringLiteral("--open"), QStringLiteral("list.csv"),
                                 QStringLiteral("--export"), QStringLiteral("out.csv")});

    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.errors.size(), 1);
    QVERIFY2(outcome.errors.constFirst().contains(QStringLiteral("line 3 is not closed")),
             qPrintable(outcome.errors.constFirst()));
}

void tst_client_program::exportTakesTheRowsThatMatch()
{
    const Outcome outcome =
        Run({QStringLiteral("--rows"), QStringLiteral("20000"), QStringLiteral("--filter"),
             QStringLiteral("Herring gull"), QStringLiteral("--export"), Path("gulls.csv")});

    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.errors, QStringList());
    QVERIFY(outcome.output.join(QString()).contains(QStringLiteral("104 incidents")));
    const QByteArrayList lines = FileBytes(Path("gulls.csv")).trimmed().split('\n');
    QCOMPARE(lines.size(), 105);
    for (int i = 1; i < lines.size(); ++i)
        QVERIFY2(lines.at(i).contains("Herring gull"), lines.at(i).constData());
    QCOMPARE(Files(), QStringList{QStringLiteral("gulls.csv")});
}

void tst_client_program::wrongUseEndsWithTwo_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    const auto add = [](const char *name, const char *arguments, const char *message) {
        QTest::newRow(name) << QString::fromLatin1(arguments).split(QLatin1Char(' '))
                            << QString::fromLatin1(message);
    };
    add("an unknown option", "--bogus", "bogus");
    add("an argument too many", "list.csv", "list.csv");
    add("no rows", "--rows 0", "--rows");
    add("rows that are no number", "--rows many", "many");
    add("more rows than an int counts", "--rows 99999999999", "99999999999");
    add("more rows than a table holds", "--rows 10000001", "10,000,000");
    add("a value missing", "--export", "export");
    add("two works at once", "--headless --export list.csv", "--headless");
    add("another kind of file", "--export list.ods", ".csv, .xlsx");
    add("a name without an ending", "--export list", ".csv");
}

void tst_client_program::wrongUseEndsWithTwo()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);

    const Outcome outcome = Run(arguments);

    QCOMPARE(outcome.status, 2);
    QCOMPARE(outcome.errors.size(), 1);
    QVERIFY2(outcome.errors.constFirst().contains(message),
             qPrintable(outcome.errors.constFirst()));
    QCOMPARE(Files(), QStringList());
}

void tst_client_program::unusableFileEndsWithOne_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    const auto add = [](const char *name, const char *arguments, const char *message) {
        QTest::newRow(name) << QString::fromLatin1(arguments).split(QLatin1Char(' '))
                            << QString::fromLatin1(message);
    };
    add("a list that is missing", "--open missing.csv", "missing.csv");
    add("a list that is a folder", "--open folder", "folder");
    add("an empty list", "--open empty.csv", "is empty");
    add("nothing to repeat", "--open titles.csv --rows 5", "no row");
    add("an export to a missing folder", "--export missing/out.csv", "does not exist");
    add("a workbook to a missing folder", "--export missing/out.xlsx", "does not exist");
    add("an export over a folder", "--export folder/x.csv/out.csv", "does not exist");
    add("pictures to where a file is", "--headless --out empty.csv/out",
        "empty.csv/out: Not a directory");
}

void tst_client_program::unusableFileEndsWithOne()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    QVERIFY(QDir(folder_->path()).mkdir(QStringLiteral("folder")));
    QFile empty(Path("empty.csv"));
    QVERIFY(empty.open(QIODevice::WriteOnly));
    QFile titles(Path("titles.csv"));
    QVERIFY(titles.open(QIODevice::WriteOnly));
    titles.write("a,b\n");
    titles.close();
    const QStringList before = Files();

    const Outcome outcome = Run(arguments);

    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.errors.size(), 1);
    QVERIFY2(outcome.errors.constFirst().contains(message),
             qPrintable(outcome.errors.constFirst()));
    QCOMPARE(Files(), before);
}

void tst_client_program::folderOfAnotherUserIsLeftAlone()
{
    QFile earlier(Path("out.csv"));
    QVERIFY(earlier.open(QIODevice::WriteOnly));
    earlier.write("earlier");
    earlier.close();
    const QFile::Permissions readable =
        QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(folder_->path(), readable | QFile::WriteOwner));

    const Outcome outcome =
        Start(QStringLiteral("setpriv"),
              {QStringLiteral("--reuid=65534"), QStringLiteral("--clear-groups"),
               QStringLiteral(CLIENT_PROGRAM), QStringLiteral("--export"), Path("new.csv")},
              folder_->path());

    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.errors.size(), 1);
    QVERIFY2(outcome.errors.constFirst().contains(QStringLiteral("Cannot write to the folder")),
             qPrintable(outcome.errors.constFirst()));
    QCOMPARE(Files(), QStringList{QStringLiteral("out.csv")});
    QCOMPARE(FileBytes(Path("out.csv")), QByteArray("earlier"));
}

void tst_client_program::fullDiskLeavesTheEarlierFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    QTest::newRow("a list") << QStringLiteral(
        "out.csv") << QStringLiteral("Writing failed: File too large. %1 was not written.");
    QTest::newRow("a workbook") << QStringLiteral("out.xlsx")
                                << QStringLiteral("There is not enough room for temporary files "
                                                  "in %1. Nothing was exported.");
}

void tst_client_program::fullDiskLeavesTheEarlierFile()
{
    QFETCH(QString, name);
    QFETCH(QString, message);
    QFile earlier(folder_->filePath(name));
    QVERIFY(earlier.open(QIODevice::WriteOnly));
    earlier.write("earlier");
    earlier.close();

    const Outcome outcome =
        Start(QStringLiteral("bash"),
              {QStringLiteral("-c"), QStringLiteral("ulimit -f 64; exec \"$0\" --export \"$1\""),
               QStringLiteral(CLIENT_PROGRAM), folder_->filePath(name)},
              folder_->path());

    QCOMPARE(outcome.status, 1);
    // The libraries' lines about the cause, then ours.
    const QStringList causes = outcome.errors.filter(QStringLiteral("ClientWarningAndMore:"));
    QVERIFY2(!causes.isEmpty(), qPrintable(outcome.errors.join(QLatin1Char('\n'))));
    // A workbook's sheets meet the limit first, in temporary files.
    const bool is_temporary = message.contains(QStringLiteral("temporary"));
    QCOMPARE(outcome.errors.constLast(),
             QStringLiteral("vantor-client: ")
                 + message.arg(is_temporary ? QDir::tempPath() : folder_->filePath(name)));
    QCOMPARE(Files(), QStringList{name});
    QCOMPARE(FileBytes(folder_->filePath(name)), QByteArray("earlier"));
}

QTEST_MAIN(tst_client_program)
#include "tst_client_program.moc"
