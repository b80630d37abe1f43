// SPDX-License-Identifier: MIT
#include "ClientSession.h"
#include "pages/EvidencePage.h"
#include "window/DetailPanel.h"
#include "window/Panels.h"

#include <Vantor/CDockManager>
#include <Vantor/CDockWidget>

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>

using namespace Client;

namespace {

Vantor::CDockWidget *Dock()
{
    return Ravel::CUiSingleton<Vantor::CDockManager>::Instance().GetDockWidget();
}

// Without the isolates around names.
QString Plain(QString text)
{
    return text.remove(QChar(0x2068)).remove(QChar(0x2069));
}

void Click(QWidget *in, const char *button)
{
    QTest::mouseClick(in->findChild<QPushButton *>(button), Qt::LeftButton);
}

} // namespace

class TestClientPanels : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void panelsShowARowAndAskForTheFormat()
    {
        QWidget window;
        window.resize(900, 600);
        window.show();
        CPanels panels(&window);
        QStandardItemModel model(2, 3);
        model.setHorizontalHeaderLabels({"Date", "Airport", "Remarks"});
        model.setItem(1, 0, new QStandardItem("2026-03-01"));
        model.setItem(1, 1, new QStandardItem("<b>Oslo"));

        panels.ShowDetails(model.index(1, 1));
        const auto *const shown = Dock();
        panels.ShowDetails(model.index(1, 0)); // the second click of a double click
        QCOMPARE(Dock(), shown);
        QCOMPARE(shown->findChildren<QLabel *>("DetailText").size(), 2); // no empty cell
        Click(Dock(), "DockSaveButton");
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 QString("Date: 2026-03-01\nAirport: <b>Oslo\n"));
        Click(Dock(), "DockCancelButton");
        QTRY_VERIFY(Dock()->isHidden());

        QSignalSpy csv(&panels, &CPanels::SignalExportCsv);
        QSignalSpy xlsx(&panels, &CPanels::SignalExportXlsx);
        for (const int rows : {0, 5, 5}) { // nothing to export, a workbook, a CSV file
            panels.ShowExport({rows});
            if (xlsx.size() == 1)
                Dock()->findChildren<QRadioButton *>().constLast()->setChecked(true);
            Click(Dock(), "DockSaveButton");
        }
        QCOMPARE(xlsx.size() * 10 + csv.size(), 11);

        panels.ShowExport({1});
        QDialog dialog(&window);
        dialog.open(); // behind the panel it would be covered
        QTRY_VERIFY(Dock()->isHidden());
    }

    void evidenceArrivesWithAReport()
    {
        for (const char *const name : {"to/a.jpeg", "to/notes"})
            folder_.Put(name, "old");
        const QStringList files{folder_.Put("a.jpeg", "new"), folder_.Put("notes", "new"),
                                folder_.Put("gone.txt", "new")};
        CEvidencePage page;
        QSignalSpy copied(&page, &CEvidencePage::SignalCopied);
        page.AddFiles(files);
        QMimeData dropped;
        dropped.setUrls({QUrl::fromLocalFile(files.at(0)), QUrl::fromLocalFile(folder_.Path())});
        QDropEvent drop({5, 5}, Qt::CopyAction, &dropped, Qt::LeftButton, {});
        static_cast<QObject &>(page).event(&drop); // one is there already, the other is a folder
        const auto *const state = page.findChild<QLabel *>("EvidenceState");
        QVERIFY(state->text().contains("left out"));
        page.SetFolder(folder_.Path("to"));
        QVERIFY(QFile::remove(files.constLast()));

        Click(&page, "EvidenceCopy");

        QTRY_COMPARE(copied.size(), 1);
        QVERIFY(!copied.at(0).at(0).toBool()
                && state->text().startsWith("Files that have arrived: 2 of 3."));
        const auto *const list = page.findChild<QTreeWidget *>("EvidenceFiles");
        QStringList results;
        for (int row = 0; row < list->topLevelItemCount(); ++row) {
            results.append(Plain(list->topLevelItem(row)->text(2)));
            QVERIFY(!list->topLevelItem(row)->icon(2).isNull());
        }
        QCOMPARE(results, QStringList({"Copied as a(1).jpeg", "Copied as notes(1)",
                                       "Not copied: No such file or directory"}));
        QCOMPARE(folder_.Bytes("to/a.jpeg") + folder_.Bytes("to/notes(1)"), QByteArray("oldnew"));
        CLanguageSwitch language;
        for (const char *const code : {"ar", "en"}) { // in the middle of the work, and back
            language.Apply(code);
            QCoreApplication::processEvents();
            QCOMPARE(state->text().contains("2 of 3"), code[0] == 'e');
            QCOMPARE(list->topLevelItem(0)->text(2).startsWith("Copied"), code[0] == 'e');
        }
        page.OnCopy(); // again, and is closed while it runs
    }

    void closingTheWindowAsksWhetherToStop()
    {
        const QString held = folder_.Put("held", "1"); // its copy waits for the lease's end
        const int lease = open(qPrintable(held), O_RDWR | O_CLOEXEC);
        const auto before = std::signal(SIGIO, SIG_IGN);
        QCOMPARE(fcntl(lease, F_SETLEASE, F_WRLCK), 0);
        ClientSession session;
        CMainWindow &window = session.window;
        window.show();
        QVERIFY(window.Pages().Show("evidence"));
        auto *const page = window.findChild<CEvidencePage *>();
        page->AddFiles({held, folder_.Put("b", "2"), folder_.Put("c", "3")});
        page->SetFolder(folder_.PutFolder("to"));
        page->OnCopy();
        const auto *const work = window.findChild<QLabel *>("WorkElsewhere");
        window.Pages().Show("list");
        QTRY_COMPARE(work->text(), QString("Copying files: 0 of 3"));

        for (const char *const answer : {"&Go on copying", "&Stop and quit"}) {
            window.close();
            QVERIFY(window.isVisible());
            auto *const question = window.findChild<QMessageBox *>();
            QVERIFY(question && Plain(question->informativeText()).contains("b, c"));
            const auto buttons = question->buttons();
            for (QAbstractButton *const button : buttons)
                button->text() == answer ? button->click() : void();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QVERIFY(window.isVisible() && page->IsWorking());
        fcntl(lease, F_SETLEASE, F_UNLCK);
        QTRY_VERIFY(!window.isVisible());
        QCOMPARE(folder_.Files("to"), QStringList("held"));
        close(lease);
        std::signal(SIGIO, before);
    }
};

QTEST_MAIN(TestClientPanels)
#include "tst_client_panels.moc"
