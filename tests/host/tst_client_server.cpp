// SPDX-License-Identifier: MIT
#include "ClientSession.h"

#include <BusinessCommon/NetCommManager.h>

#include <QtWidgets/QStatusBar>

using namespace Client;
using BusinessCommon::CNetCommManager;

namespace {

using Address = Row<QString, bool>; // address, is_one

// Whether the server still takes a session.
bool IsOpen(const std::string &session)
{
    ClientComm::CClientSendInfo send;
    send.SetVal_URL("/Quorra/Brisent/Platform/V0/Permission/SecuritySetting");
    send.SetVal_Method("GET");
    ClientComm::CClientRecvInfo recv;
    Nim::Base::CSingleton<CNetCommManager>::Instance().ClientSynSendAs(session, recv, send);
    return recv.GetVal_Error_code().error_code == 0;
}

} // namespace

class TestClientServer : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void theMenuSwitchesTheUserAndEndsTheLastSession()
    {
        ClientSession session;
        QVERIFY(session.Start("supervisor"));
        const std::string first = CNetCommManager::Session();
        QVERIFY(IsOpen(first));
        const auto actions = session.window.findChildren<QAction *>();
        const auto action = [&actions](const QString &text) {
            return *std::find_if(actions.begin(), actions.end(),
                                 [&text](const QAction *one) { return one->text() == text; });
        };
        QVERIFY(action("supervisor")->isChecked());
        action("visitor")->trigger();
        action("operator")->trigger(); // while the visitor is being logged in
        QTRY_COMPARE(session.link.User(), QString("operator"));

        QVERIFY(action("operator")->isChecked());
        QVERIFY(session.window.statusBar()->currentMessage().contains("operator"));
        QVERIFY(IsOpen(CNetCommManager::Session()));
        QVERIFY(!IsOpen(first));
    }

    void aServerThatIsMissingIsReported()
    {
        CServerLink link;
        QSignalSpy failed(&link, &CServerLink::SignalFailed);

        link.Start("127.0.0.1:1", "operator");

        QTRY_COMPARE(failed.size(), 1);
        QVERIFY(link.User().isEmpty());
    }

    void addressesAreChecked_data()
    {
        AddRows<Address>({{"host and port", "server:8080", true},
                          {"IPv6", "[::1]:8080", true},
                          {"TLS", "https://server.example:443", true},
                          {"no port", "server", false},
                          {"no host", ":8080", false},
                          {"a port that is none", "server:99999", false},
                          {"another protocol", "ftp://server:21", false},
                          {"a path", "server:80/x", false}});
    }

    void addressesAreChecked()
    {
        const auto &[name, address, is_one] = FetchRow<Address>();
        QCOMPARE(CServerLink::IsAddress(address), is_one);
        QCOMPARE(ReadCommandLine({"client", "--server", address}).error.isEmpty(), is_one);
    }

private:
    const CDataHome home_;
};

QTEST_MAIN(TestClientServer)
#include "tst_client_server.moc"
