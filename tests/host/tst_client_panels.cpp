// SPDX-License-Identifier: MIT
#include "pages/EvidencePage.h"
#include "support/Files.h"
#include "support/TestGuard.h"
#include "window/DetailPanel.h"
#include "window/ExportPanel.h"
#include "window/Panels.h"

#include <Vantor/CDockManager>
#include <Vantor/CDockWidget>

#include <QtCore/QDir>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QStandardItemModel>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QTreeWidget>

using namespace Client;

class tst_client_panels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard_.Begin(); }

    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void rowIsShownInFullAndCopied()
    {
        QWidget window;
        window.resize(900, 600);
        window.show();
        CPanels panels(&window);
        QStandardItemModel model(2, 3);
        model.setHorizontalHeaderLabels({"Date", "Airport", "Remarks"});
        for (int column = 0; column < 2; ++column)
            model.setItem(1, column, new QStandardItem(column == 0 ? "2026-03-01" : "<b>Oslo"));

        panels.ShowDetails(model.index(1, 1));

        auto *const dock = Ravel::CUiSingleton<Vantor::CDockManager>::Instance().GetDockWidget();
        auto *const details = dock->findChild<CDetailPanel *>();
        QVERIFY(details->isVisible());
        QCOMPARE(details->findChildren<QLabel *>("DetailText").size(), 2); // none for an empty cell
        panels.ShowDetails(model.index(1, 0)); // the second click of a double click
        QCOMPARE(Ravel::CUiSingleton<Vantor::CDockManager>::Instance().GetDockWidget(), dock);
        QTest::mouseClick(details->findChild<QPushButton *>("DockSaveButton"), Qt::LeftButton);
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 QString("Date: 2026-03-01\nAirport: <b>Oslo\n"));
        QTest::mouseClick(details->findChild<QPushButton *>("DockCancelButton"), Qt::LeftButton);
        QTRY_VERIFY(dock->isHidden());
        QCOMPARE(details->parentWidget(), &window);
    }

    void exportPanelAsksForTheFormat()
    {
        QWidget window;
        window.resize(900, 600);
        window.show();
        CPanels panels(&window);
        QSignalSpy csv(&panels, &CPanels::SignalExportCsv);
        QSignalSpy xlsx(&panels, &CPanels::SignalExportXlsx);
        panels.ShowExport(0);
        auto *const save = window.findChild<CDetailPanel *>() // the other one stays at home
                               ? Ravel::CUiSingleton<Vantor::CDockManager>::Instance()
                                     .GetDockWidget()
                                     ->findChild<QPushButton *>("DockSaveButton")
                               : nullptr;
        QVERIFY(save && !save->isEnabled()); // there is nothing to export
        panels.ShowExport(5);
        QTest::mouseClick(save, Qt::LeftButton);
        QCOMPARE(xlsx.size(), 1);
        panels.ShowExport(5);
        save->window()->findChildren<QRadioButton *>().constLast()->setChecked(true);
        QTest::mouseClick(save, Qt::LeftButton);
        QCOMPARE(csv.size(), 1);
    }

    void evidenceArrivesWithAReport()
    {
        QTemporaryDir from;
        const QTemporaryDir to;
        for (const char *const name : {"a.jpeg", "notes", "gone.txt"}) {
            QFile file(from.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write("new") == 3);
        }
        for (const char *const name : {"a.jpeg", "notes"}) {
            QFile file(to.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
        }
        CEvidencePage page;
        QSignalSpy copied(&page, &CEvidencePage::SignalCopied);
        const QStringList files{from.filePath("a.jpeg"), from.filePath("notes"),
                                from.filePath("gone.txt")};
        page.AddFiles(files + files + QStringList(from.path())); // each once, no folders
        page.SetFolder(to.path());
        QVERIFY(QFile::remove(files.constLast()));

        QTest::mouseClick(page.findChild<QPushButton *>("EvidenceCopy"), Qt::LeftButton);

        QTRY_COMPARE(copied.size(), 1);
        QVERIFY(!copied.at(0).at(0).toBool());
        const auto *const list = page.findChild<QTreeWidget *>("EvidenceFiles");
        QCOMPARE(list->topLevelItemCount(), 3);
        QCOMPARE(list->topLevelItem(0)->text(2), QString("Copied as a(1).jpeg"));
        QCOMPARE(list->topLevelItem(1)->text(2), QString("Copied as notes(1)"));
        QVERIFY(list->topLevelItem(2)->text(2).startsWith("Not copied: "));
        QCOMPARE(FileBytes(to.filePath("a.jpeg")) + FileBytes(to.filePath("notes(1)")),
                 QByteArray("oldnew"));
        QVERIFY(page.findChild<QLabel *>("EvidenceState")->text().startsWith("2 of 3"));
        page.OnCopy(); // again
        page.OnStop();
        QTRY_COMPARE(copied.size(), 2);
        QVERIFY(page.findChild<QPushButton *>("EvidenceCopy")->isEnabled());
        page.OnCopy(); // and is closed while it runs
    }

private:
    CTestGuard guard_;
};

QTEST_MAIN(tst_client_panels)
#include "tst_client_panels.moc"
