// SPDX-License-Identifier: MIT
#include "support/Widgets.h"

#include <Ravel/ChaseDialog.h>
#include <Ravel/WaitWatcher.h>
#include <Vantor/CCSVParser>

#include <QtCore/QThreadPool>

using Vantor::CCSVParser;

namespace {

constexpr int kManyLines =
    20000; // more than a pipe holds, so that the write blocks until it is drained

Ravel::CChaseDialog *WaitingDialog()
{
    return qobject_cast<Ravel::CChaseDialog *>(QApplication::activeModalWidget());
}

// Runs `step` once the waiting dialog is shown.
void OnceWaiting(QObject *context, const std::function<void(Ravel::CChaseDialog &)> &step)
{
    QTimer::singleShot(0, context, [context, step] {
        if (Ravel::CChaseDialog *const dialog = WaitingDialog())
            step(*dialog);
        else
            OnceWaiting(context, step);
    });
}

void Fill(CCSVParser &parser, int lines = kManyLines)
{
    for (int i = 0; i < lines; ++i)
        parser.AppendLine({QString::number(i), "text"});
}

QByteArray Expected(int lines, bool with_row_ends)
{
    QByteArray bytes = "\xEF\xBB\xBF";
    for (int i = 0; i < lines; ++i)
        bytes += "\"" + QByteArray::number(i) + "\",\"text\"" + (with_row_ends ? "\r\n" : ",");
    return bytes;
}

} // namespace

class TestCsvParserWait : public CGuardedTest
{
    Q_OBJECT

    void TearDown() override
    {
        QVERIFY(!Ravel::CUiSingleton<Ravel::CWaitWatcher>::Instance().IsWaiting());
    }

private Q_SLOTS:
    void theCallReturnsWithTheFileWrittenAndTheLinesKept()
    {
        const QString path = folder_.Path("a.csv");
        CCSVParser parser(nullptr);
        QVERIFY(parser.OpenFile(path));
        Fill(parser);

        parser.WriteCSVFileWithChase();
        const QByteArray once = FileBytes(path);
        parser.WriteCSVFileWithChase();
        parser.CloseFile();

        QCOMPARE(once, Expected(kManyLines, true));
        QCOMPARE(FileBytes(path), once + once.mid(3)); // the lines stay, the mark is written once
    }

    void theDialogCannotBeClosedAndForcingItAwayDoesNotEndTheWrite()
    {
        CPipe pipe(false);
        CCSVParser parser(nullptr);
        QVERIFY(parser.OpenFile(pipe.Path()));
        Fill(parser);
        bool was_waiting = false;
        bool survived = false;
        OnceWaiting(&parser, [&](Ravel::CChaseDialog &dialog) {
            was_waiting = Ravel::CUiSingleton<Ravel::CWaitWatcher>::Instance().IsWaiting();
            QTest::keyClick(&dialog, Qt::Key_Escape);
            dialog.close();
            survived = dialog.isVisible();
            dialog.done(0);
            pipe.Drain();
        });

        parser.WriteCSVFileWithChase();
        parser.CloseFile();

        QVERIFY(was_waiting && survived);
        QCOMPARE(pipe.Bytes(), Expected(kManyLines, false));
    }

    void whileAWriteRunsTheOthersWaitOrAreRefused()
    {
        guard_.AnnounceLogLines();
        CPipe pipe(false);
        CCSVParser parser(nullptr);
        QVERIFY(parser.OpenFile(pipe.Path()));
        Fill(parser);
        bool reopened = true;
        OnceWaiting(&parser, [&](Ravel::CChaseDialog &) {
            parser.WriteCSVFileWithChase();
            parser.WriteCSVFile();
            reopened = parser.OpenFile(folder_.Path("other.csv"));
            parser.AppendLine({"for the next write"});
            pipe.Drain();
            parser.CloseFile(); // waits for the write
        });

        parser.WriteCSVFileWithChase();

        QVERIFY(!reopened);
        QCOMPARE(pipe.Bytes(), Expected(kManyLines, false));
        QCOMPARE(guard_.LogLines().filter("Refused: a write is running.").size(), 3);
    }

    // The task is long done, but its dialog is still to close.
    void aSecondWriteBeforeTheFirstReturnsIsRefused()
    {
        guard_.AnnounceLogLines();
        const QString path = folder_.Path("once.csv");
        CCSVParser parser(nullptr);
        QVERIFY(parser.OpenFile(path));
        Fill(parser, 1);
        bool reopened = true;
        QTimer::singleShot(0, &parser, [&] {
            QThreadPool::globalInstance()->waitForDone();
            parser.WriteCSVFileWithChase();
            reopened = parser.OpenFile(folder_.Path("other.csv"));
        });

        parser.WriteCSVFileWithChase();
        parser.CloseFile();

        QVERIFY(!reopened);
        QCOMPARE(FileBytes(path), Expected(1, true));
    }

    void parserAndParentMayGoWhileAWriteRuns_data()
    {
        AddRows<Row<bool>>({{"the parser", false}, {"its parent, and the dialog with it", true}});
    }

    void parserAndParentMayGoWhileAWriteRuns()
    {
        const bool whole_window = std::get<1>(FetchRow<Row<bool>>());
        CPipe pipe(false);
        const QPointer<QWidget> window(new QWidget);
        const QPointer<CCSVParser> parser(new CCSVParser(window));
        QVERIFY(parser->OpenFile(pipe.Path()));
        Fill(*parser);
        OnceWaiting(qApp, [&](Ravel::CChaseDialog &) {
            delete (whole_window ? window.data() : static_cast<QObject *>(parser));
            pipe.Drain();
        });

        parser->WriteCSVFileWithChase();

        QVERIFY(!parser && QThreadPool::globalInstance()->waitForDone());
        delete window;
    }
};

QTEST_MAIN(TestCsvParserWait)
#include "tst_csvparser_wait.moc"
