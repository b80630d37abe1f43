// SPDX-License-Identifier: MIT
// Columns that users choose, kept on the real server.
#include "server/ServerHarness.h"
#include "support/RawServer.h"
#include "ui/ColumnTable.h"

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

// 400 checks, moves, resets, restarts and changes of the user; after each, the table, the
// drop-down and the stored text agree, and a user gets back the columns that he left.
void TakeColumnSteps(quint32 seed, const std::function<void(const QString &)> &log_in)
{
    constexpr int kSteps = 400;
    constexpr int kColumns = 8;
    QRandomGenerator random(seed);
    Columns columns = MakeColumns(kColumns);
    columns[2].SetVal_b_manual_check(false);
    columns[5].SetVal_b_manual_sort(false);
    QString user = "operator";
    QHash<QString, QString> left_by;
    QHash<QString, QByteArray> stored_by;
    log_in(user);
    auto table = std::make_unique<CTable>(columns);
    table->Open();
    QVERIFY(table->WaitSettled(1));
    for (int step = 0; step < kSteps; ++step) {
        const int writes = CTable::changes;
        const int settled = table->settled;
        const QString before = table->Rows(false);
        bool is_load = false;
        const int row = random.bounded(kColumns);
        switch (random.bounded(10)) {
        case 0:
            QTest::mouseClick(table->Reset(), Qt::LeftButton);
            break;
        case 1:
            QTest::keyClick(table->AllBox(), Qt::Key_Space);
            break;
        case 2:
            is_load = true;
            table = std::make_unique<CTable>(columns);
            table->Open();
            QVERIFY(table->WaitSettled(1));
            break;
        case 3:
            is_load = true;
            user = random.bounded(2) ? "operator" : "visitor";
            log_in(user);
            table->button->UpdateAfterSwitchUser();
            QVERIFY(table->WaitSettled(settled + 1));
            break;
        case 4:
        case 5:
            table->DragTo(row, random.bounded(kColumns));
            table->Drop();
            break;
        case 6:
            table->List()->setCurrentIndex(table->Model()->index(row, 0));
            QTest::keyClick(table->List(), row % 2 ? Qt::Key_Up : Qt::Key_Down, Qt::AltModifier);
            break;
        default:
            table->ClickRow(row);
        }
        if (is_load) { // which writes nothing
            QCOMPARE(CTable::changes, writes);
            QCOMPARE(StoredText(), stored_by.value(user));
            QCOMPARE(table->shown, left_by.value(user, QStringLiteral("ABCDEFGH")));
        } else if (CTable::changes > writes) {
            QCOMPARE(CTable::changes, writes + 1);
            QVERIFY(table->WaitSettled(settled + 1));
        } else { // a fixed column
            QCOMPARE(table->Rows(false), before);
        }
        QCOMPARE(table->Given(), table->shown);
        QCOMPARE(table->Rows(), table->shown);
        stored_by[user] = StoredText();
        if (!stored_by.value(user).isEmpty())
            QCOMPARE(Stored(stored_by.value(user), columns), table->shown);
        QCOMPARE(table->Rows(false).indexOf('F'), 5); // it keeps its place
        QVERIFY(table->shown.contains('C'));
        left_by[user] = table->shown;
    }
    QVERIFY(left_by.size() == 2);
}

} // namespace

class TestColumns : public CGuardedTest
{
    Q_OBJECT

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

    std::unique_ptr<CTestServer> server_;
    int messages_ = 0;

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
        TakeColumnSteps(20261121, log_in);
        QCOMPARE(messages_, 0);
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
};

QTEST_MAIN(TestColumns)
#include "tst_columns.moc"
