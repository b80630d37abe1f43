// SPDX-License-Identifier: MIT
#include "ClientSession.h"
#include "list/CsvFile.h"

#include <BusinessCommon/NetCommManager.h>
#include <Vantor/CCustomizeColumnButton>
#include <Vantor/CItemDragMovableListView>

using namespace Client;
using BusinessCommon::CNetCommManager;

namespace {

constexpr int kGlancePx = 240; // the minimum width

struct Session : ClientSession
{
    explicit Session(const QString &list)
    {
        window.SetList(ReadCsvFile(list).list, "list.csv");
        window.resize(900, 600);
        window.show();
    }

    Vantor::CCustomizeColumnButton *Button() const
    {
        return window.findChild<Vantor::CCustomizeColumnButton *>();
    }
    Vantor::CItemDragMovableListView *Rows() const
    {
        return Button()->findChild<Vantor::CItemDragMovableListView *>();
    }
    QHeaderView *Header() const
    {
        return qobject_cast<QHeaderView *>(Button()->parentWidget()->parentWidget());
    }
    QRadioButton *Maximum() const
    {
        return window.findChild<QRadioButton *>("ptr_max_width_radio_");
    }

    QString Title(int column) const
    {
        return Header()->model()->headerData(column, Qt::Horizontal).toString();
    }

    // The titles that are shown, in their order.
    QString Titles() const
    {
        QString titles;
        for (int place = 0; place < Header()->count(); ++place) {
            const int column = Header()->logicalIndex(place);
            titles += Header()->isSectionHidden(column) ? QString() : Title(column);
        }
        return titles;
    }

    int WidthOfD() const
    {
        int column = 0;
        while (Title(column) != "D")
            ++column;
        return Header()->sectionSize(column);
    }

    // Whether the user's choice has been read.
    bool IsReady(const QString &user) const
    {
        return link.User() == user && Rows() && Rows()->isEnabled();
    }
};

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

// address, is_one
const Rows<QString, bool> kAddressRows = {
    {"host and port", "server:8080", true},
    {"IPv6", "[::1]:8080", true},
    {"TLS", "https://server.example:443", true},
    {"no port", "server", false},
    {"no host", ":8080", false},
    {"a port that is none", "server:99999", false},
    {"another protocol", "ftp://server:21", false},
    {"a path", "server:80/x", false},
};

// arguments, message
const Rows<const char *, const char *> kBadUsageRows = {
    {"an argument too many", "list.csv", "list.csv"},
    {"no rows", "--rows 0", "--rows"},
    {"rows that are no number", "--rows many", "many"},
    {"more than an int counts", "--rows 99999999999", "99999999999"},
    {"more than a table holds", "--rows 10000001", "10,000,000"},
    {"a value missing", "--export", "export"},
    {"two tasks", "--headless --export list.csv", "--headless"},
    {"another kind of file", "--export list.ods", ".csv, .xlsx"},
};

} // namespace

class TestClientColumns : public CGuardedTest
{
    Q_OBJECT

    void TearDown() override { CLanguageSwitch().Apply("en"); }

    const CDataHome home_;

private Q_SLOTS:
    void eachUserFindsHisColumnsAndAnotherListHasItsOwn()
    {
        const QByteArray row = "a,b,c," + QByteArray(60, 'd') + ",e\r\n";
        const QString list = folder_.Put("list.csv", "A,B,C,D,E\r\n" + row.repeated(50));
        auto session = std::make_unique<Session>(list);
        QVERIFY(session->Start("supervisor"));
        QTRY_VERIFY(session->IsReady("supervisor"));
        QCOMPARE(session->Titles(), QString("ABCDE"));
        QCOMPARE(session->WidthOfD(), kGlancePx);

        QTest::mouseClick(session->Button(), Qt::LeftButton);
        QTest::keyClick(session->Rows(), Qt::Key_Down);
        QTest::keyClick(session->Rows(), Qt::Key_Space);
        QTRY_COMPARE(session->Titles(), QString("ACDE"));
        QTest::keyClick(session->Rows(), Qt::Key_Down, Qt::AltModifier);
        QTest::keyClick(session->Rows(), Qt::Key_Down);
        QTest::keyClick(session->Rows(), Qt::Key_Up, Qt::AltModifier);
        QTest::keyClick(session->Rows(), Qt::Key_Up, Qt::AltModifier);
        QTRY_COMPARE(session->Titles(), QString("ADCE"));
        QTest::keyClick(session->Rows(), Qt::Key_Escape);
        QTest::keyClick(session->Maximum(), Qt::Key_Space);
        QVERIFY(session->WidthOfD() > kGlancePx);

        session->link.SwitchUser("visitor");
        QTRY_VERIFY(session->IsReady("visitor"));
        QTRY_COMPARE(session->Titles(), QString("ABCDE"));
        QTRY_COMPARE(session->WidthOfD(), kGlancePx);
        const QString other = folder_.Put("other.csv", "X,Y\r\n1,2\r\n");
        session->window.SetList(ReadCsvFile(other).list, "other.csv");
        QCOMPARE(session->Titles(), QString("XY"));
        QTRY_COMPARE(session->Rows()->model()->rowCount(), 2);

        session.reset();
        session = std::make_unique<Session>(list);
        QVERIFY(session->Start("supervisor"));
        QTRY_COMPARE(session->Titles(), QString("ADCE"));
        QTRY_VERIFY(session->Maximum()->isChecked() && session->WidthOfD() > kGlancePx);
        session->language.Apply("ar"); // builds the list again, from right to left
        QTRY_COMPARE(session->Header()->layoutDirection(), Qt::RightToLeft);
        QTRY_COMPARE(session->Titles(), QString("ADCE"));
    }

    void theMenuSwitchesTheUserAndEndsTheLastSession()
    {
        ClientSession session;
        QVERIFY(session.Start("supervisor"));
        const std::string first = CNetCommManager::Session();
        QVERIFY(IsOpen(first));
        const auto action = [&session](const QString &text) {
            const auto all = session.window.findChildren<QAction *>();
            return *std::find_if(all.begin(), all.end(),
                                 [&text](const QAction *one) { return one->text() == text; });
        };
        QVERIFY(action("supervisor")->isChecked());
        action("visitor")->trigger();
        action("operator")->trigger(); // while the visitor is being logged in
        QTRY_COMPARE(session.link.User(), QString("operator"));

        QVERIFY(action("operator")->isChecked());
        QVERIFY(session.window.statusBar()->currentMessage().contains("operator"));
        QVERIFY(IsOpen(CNetCommManager::Session()) && !IsOpen(first));
    }

    void aServerThatIsMissingIsReported()
    {
        CServerLink link;
        QSignalSpy failed(&link, &CServerLink::SignalFailed);

        link.Start("127.0.0.1:1", "operator");

        QTRY_COMPARE(failed.size(), 1);
        QVERIFY(link.User().isEmpty());
    }

    void addressesAreChecked_data() { AddRows(kAddressRows); }

    void addressesAreChecked()
    {
        const auto &[name, address, is_one] = FetchRow(kAddressRows);
        QCOMPARE(CServerLink::IsAddress(address), is_one);
        QCOMPARE(ReadCommandLine({"client", "--server", address}).error.isEmpty(), is_one);
    }

    void badUsageIsExplained_data() { AddRows(kBadUsageRows); }

    void badUsageIsExplained()
    {
        const auto &[name, arguments, message] = FetchRow(kBadUsageRows);
        const auto line = ReadCommandLine(QString("client %1").arg(arguments).split(' '));
        QVERIFY2(line.error.contains(message), qPrintable(line.error));
    }
};

QTEST_MAIN(TestClientColumns)
#include "tst_client_columns.moc"
