// SPDX-License-Identifier: MIT
// Columns that users choose, kept on the real server; and what a table shows when a server fails.
#include "server/ServerHarness.h"
#include "support/RawServer.h"
#include "support/Test.h"
#include "ui/ColumnSteps.h"

#include <Faceplate/GUIMessageTipManager.h>

#include <server/SampleAccounts.h>

using BusinessCommon::CNetCommManager;

namespace {

constexpr int kDefaultConnectMs = 3000;
constexpr int kDefaultReadMs = 10000;

bool LogInAs(const QString &user)
{
    for (const Server::SampleAccount &account : Server::kSampleAccounts) {
        if (user == account.name)
            return LogIn(account.name, account.password);
    }
    return false;
}

// What the server has for the user who is logged in.
QByteArray StoredText()
{
    ClientComm::CRapidJsonProto body;
    body.SetString("/AdaptiveLayoutRequest/Key", kColumnKey);
    body.SetString("/AdaptiveLayoutRequest/Type", "1");
    return QByteArray::fromStdString(
        Ask("GET", "/AdaptiveLayout", body.ToJson()).Text("/Data/AdaptiveLayout/LayoutData"));
}

} // namespace

class TestColumns : public CGuardedTest
{
    Q_OBJECT

protected:
    void SetUp() override
    {
        messages_ = 0;
        Faceplate::CGUIMessageTipManager::SetPresenter(
            [this](QWidget *, const QString &, int, int, int) { ++messages_; });
        server_ = std::make_unique<CTestServer>();
        const QString error = server_->Start();
        QVERIFY2(error.isEmpty(), qPrintable(error));
    }

    void TearDown() override
    {
        server_.reset();
        CNetCommManager::SetTimeouts(kDefaultConnectMs, kDefaultReadMs);
        Faceplate::CGUIMessageTipManager::SetPresenter(nullptr);
    }

private Q_SLOTS:
    void anyStepsKeepTableDropDownAndServerInAgreement()
    {
        QHash<QString, std::string> sessions;
        const auto log_in = [&sessions](const QString &user) {
            if (!sessions.contains(user)) {
                QVERIFY(LogInAs(user));
                sessions[user] = CNetCommManager::Session();
            }
            CNetCommManager::SetSession(sessions.value(user));
        };
        TakeColumnSteps(20261121, {log_in, [](const QString &) { return StoredText(); },
                                   [] { return CTable::changes; }});
        QCOMPARE(messages_, 0);
    }

    void aServerThatFailsLeavesASettledTable_data()
    {
        AddRows<Row<>>({{"says nothing"}, {"does not speak HTTP"}, {"gives a text for a number"}});
    }

    // First while reading, then while writing; each time there is one message, and work goes on.
    void aServerThatFailsLeavesASettledTable()
    {
        CRawServer bad(CRawServer::Fault(QTest::currentDataTag()));
        const auto fail = [&bad] {
            CNetCommManager::SetTimeouts(1000, 400);
            CNetCommManager::SetServer("127.0.0.1", bad.Port());
        };
        const auto heal = [this] {
            CNetCommManager::SetTimeouts(kDefaultConnectMs, kDefaultReadMs);
            CNetCommManager::SetServer("127.0.0.1", server_->Port());
        };
        QVERIFY(LogInAs("operator"));
        fail();
        CTable table(MakeColumns(4));
        QTRY_COMPARE(table.settled, 1);
        QCOMPARE(table.shown, QString("ABCD"));

        heal();
        table.Open(); // reads again
        QTRY_COMPARE(table.settled, 2);
        fail();
        table.ClickRow(0);
        QTRY_COMPARE(table.settled, 3);
        QCOMPARE(table.shown, QString("ABCD"));
        QCOMPARE(table.Rows(), QString("ABCD"));
        QCOMPARE(messages_, 2);

        heal();
        table.ClickRow(1);
        QTRY_COMPARE(table.settled, 4);
        QCOMPARE(table.shown, QString("ACD"));
        QCOMPARE(Stored(StoredText(), MakeColumns(4)), table.shown);
    }

    void tablesDoNotWaitForTheSumOfTheTimeouts()
    {
        CRawServer silent(CRawServer::Fault("says nothing"));
        CNetCommManager::SetTimeouts(1000, 1000);
        CNetCommManager::SetServer("127.0.0.1", silent.Port());
        std::vector<std::unique_ptr<CTable>> tables;
        for (int i = 0; i < 4; ++i)
            tables.push_back(std::make_unique<CTable>(MakeColumns(2)));

        QTRY_COMPARE(tables.back()->settled, 1);

        QCOMPARE(silent.Connections(), 1); // the others share the outcome of the first
        for (const auto &table : tables)
            QTRY_COMPARE(table->settled, 1);
    }

    // Two clients of one account: the last write wins, whole.
    void theLastOfTwoClientsWins()
    {
        QVERIFY(LogInAs("operator"));
        CTable first(MakeColumns(4));
        CTable second(MakeColumns(4));
        first.Open();
        QTRY_COMPARE(first.settled, 1);
        first.ClickRow(0);
        first.DropDown()->hide();
        second.Open();
        QTRY_COMPARE(second.settled, 1);
        second.ClickRow(1);
        QTRY_COMPARE(second.settled, 2);
        QTRY_COMPARE(first.settled, 2);

        CTable third(MakeColumns(4));

        QTRY_COMPARE(third.settled, 1);
        QCOMPARE(third.shown, QString("ACD"));
        QCOMPARE(first.shown, QString("BCD")); // until it asks again
    }

private:
    std::unique_ptr<CTestServer> server_;
    int messages_ = 0;
};

QTEST_MAIN(TestColumns)
#include "tst_columns.moc"
