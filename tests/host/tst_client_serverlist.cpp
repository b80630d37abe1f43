// SPDX-License-Identifier: MIT
#include "link/ServerLink.h"
#include "pages/ServerListPage.h"
#include "support/Widgets.h"

#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CMutiPageWidget>

#include <QtCore/QStandardPaths>
#include <QtWidgets/QScrollBar>

using namespace Client;

// The page over the real server, in this process.
class tst_client_serverlist : public CGuardedTest
{
    Q_OBJECT

protected:
    void SetUp() override { qputenv("XDG_DATA_HOME", folder_.Path().toLocal8Bit()); }

private Q_SLOTS:
    void withoutServerThePageTellsSo()
    {
        const CServerListPage page;

        QCOMPARE(State(page), QStringLiteral("There is no server."));
    }

    void pagesComeFromTheServer()
    {
        CServerLink link;
        CServerListPage page;
        page.resize(900, 500);
        link.Start({}, CServerLink::Users().constFirst());
        auto *const list = page.findChild<Vantor::CMutiPageWidget *>();
        const QAbstractItemModel *const rows = list->GetTreeView()->model();
        const auto cell = [rows](int row) { return rows->index(row, 3).data().toString(); };
        list->GetItemPerPageComboBox()->setCurrentIndex(1);

        QTRY_COMPARE_WITH_TIMEOUT(rows->rowCount(), 100, 30000);
        QTRY_COMPARE(Label(page, "ptr_total_page_"), QStringLiteral("/100"));
        QCOMPARE(list->TopLevelItemCount(), 10000);
        const QString first = cell(0);
        list->GetNextPageBtn()->click();
        QTRY_VERIFY(cell(0) != first);
        QCOMPARE(list->GetCurrentPage(), 2);

        auto *const search = page.findChild<QLineEdit *>(QStringLiteral("ServerSearch"));
        search->setText(QStringLiteral("herring gull"));
        QTest::keyClick(search, Qt::Key_Return);
        QTRY_COMPARE(rows->rowCount(), 52);
        QCOMPARE(Label(page, "ptr_total_page_"), QStringLiteral("/1"));
        QVERIFY(!list->GetNextPageBtn()->isEnabled());

        search->clear();
        page.findChild<QCheckBox *>(QStringLiteral("TotalKnown"))->setChecked(false);
        QTest::keyClick(search, Qt::Key_Return);
        QTRY_COMPARE(rows->rowCount(), 100);
        QVERIFY(page.findChild<QLabel *>(QStringLiteral("ptr_total_page_"))->isHidden());
        QVERIFY(list->GetNextPageBtn()->isEnabled()); // a full page: more may follow

        page.show();
        list->GetItemPerPageComboBox()->setCurrentIndex(0);
        QTRY_COMPARE(rows->rowCount(), list->GetItemsPerPage());
        QTRY_VERIFY(list->GetTreeView()->horizontalScrollBar()->maximum() > 0);
        QCOMPARE(list->GetTreeView()->verticalScrollBar()->maximum(), 0); // all rows fit
    }

private:
    static QString Label(const QWidget &page, const char *name)
    {
        return page.findChild<QLabel *>(QLatin1String(name))->text();
    }
    static QString State(const QWidget &page) { return Label(page, "ServerState"); }
};

QTEST_MAIN(tst_client_serverlist)
#include "tst_client_serverlist.moc"
