// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"
#include "link/ServerLink.h"
#include "look/Language.h"
#include "look/Theme.h"
#include "support/TestGuard.h"
#include "window/MainWindow.h"

#include <BusinessCommon/NetCommManager.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStatusBar>

using namespace Client;
using BusinessCommon::CNetCommManager;

class TestClientServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(folder_.isValid());
        qputenv("XDG_DATA_HOME", folder_.path().toLocal8Bit()); // where the client's server keeps
    }

    void init() { guard_.Begin(); }

    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void theMenuSwitchesTheUserOfTheClientsOwnServer()
    {
        CThemeSwitch theme;
        CLanguageSwitch language;
        CServerLink link;
        CMainWindow window(theme, language);
        window.SetServerLink(link);
        QSignalSpy changed(&link, &CServerLink::SignalUserChanged);

        link.Start(QString(), "supervisor");
        QTRY_COMPARE_WITH_TIMEOUT(changed.size(), 1, 30000); // fills its database
        const std::string first = CNetCommManager::Session();
        const auto actions = window.findChildren<QAction *>();
        const auto action = [&actions](const QString &text) {
            return *std::find_if(actions.begin(), actions.end(),
                                 [&text](const QAction *one) { return one->text() == text; });
        };
        QVERIFY(action("supervisor")->isChecked());
        action("visitor")->trigger();
        action("operator")->trigger(); // while the visitor is on the way
        QTRY_COMPARE(link.User(), QString("operator"));

        QVERIFY(action("operator")->isChecked());
        QVERIFY(window.statusBar()->currentMessage().contains("operator"));
        QVERIFY(!first.empty() && CNetCommManager::Session() != first);
        QCOMPARE(CServerLink::Current(), &link);
    }

    void aServerThatIsNotThereIsToldOf()
    {
        CServerLink link;
        QSignalSpy failed(&link, &CServerLink::SignalFailed);

        link.Start("127.0.0.1:1", "operator");

        QTRY_COMPARE(failed.size(), 1);
        QVERIFY(link.User().isEmpty());
    }

    void addressesAreChecked_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<bool>("is_one");
        QTest::newRow("host and port") << "server:8080" << true;
        QTest::newRow("IPv6") << "[::1]:8080" << true;
        QTest::newRow("TLS") << "https://server.example:443" << true;
        QTest::newRow("no port") << "server" << false;
        QTest::newRow("no host") << ":8080" << false;
        QTest::newRow("a port that is none") << "server:99999" << false;
        QTest::newRow("another protocol") << "ftp://server:21" << false;
        QTest::newRow("a path") << "server:80/x" << false;
    }

    void addressesAreChecked()
    {
        QFETCH(QString, address);
        QTEST(CServerLink::IsAddress(address), "is_one");
        QTEST(ReadCommandLine({"client", "--server", address}).error.isEmpty(), "is_one");
    }

private:
    CTestGuard guard_;
    QTemporaryDir folder_;
};

QTEST_MAIN(TestClientServer)
#include "tst_client_server.moc"
