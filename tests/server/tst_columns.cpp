// SPDX-License-Identifier: MIT
// Columns that users choose, kept on the real server; and what a table shows when a server fails.
#include "server/ServerHarness.h"
#include "support/TestGuard.h"
#include "ui/ColumnSteps.h"

#include <Faceplate/GUIMessageTipManager.h>

#include <server/SampleAccounts.h>

#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>

#include <memory>

using BusinessCommon::CNetCommManager;

namespace {

constexpr int kDefaultConnect_ms = 3000;
constexpr int kDefaultRead_ms = 10000;

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

QByteArray Reply(const QByteArray &body, int length = -1)
{
    return "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: "
           + QByteArray::number(length < 0 ? body.size() : length) + "\r\n\r\n" + body;
}

/// A server that gives every request the same bytes and hangs up, or says nothing at all.
class CBadServer : public QTcpServer
{
public:
    explicit CBadServer(QByteArray bytes) : bytes_(std::move(bytes))
    {
        connect(this, &QTcpServer::newConnection, this, &CBadServer::OnConnection);
        listen(QHostAddress::LocalHost);
    }

private:
    void OnConnection()
    {
        QTcpSocket *const socket = nextPendingConnection();
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
            socket->readAll();
            if (bytes_.isEmpty())
                return;
            socket->write(bytes_);
            socket->disconnectFromHost();
        });
    }

    const QByteArray bytes_;
};

} // namespace

class TestColumns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        messages_ = 0;
        Faceplate::CGUIMessageTipManager::SetPresenter(
            [this](QWidget *, const QString &, int, int, int) { ++messages_; });
        server_ = std::make_unique<CTestServer>();
        const QString error = server_->Start();
        QVERIFY2(error.isEmpty(), qPrintable(error));
    }

    void cleanup()
    {
        server_.reset();
        CNetCommManager::SetTimeouts(kDefaultConnect_ms, kDefaultRead_ms);
        Faceplate::CGUIMessageTipManager::SetPresenter(nullptr);
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

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
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray head = R"({"ResponseStatus":{"ErrorCode":0,"ErrorModule":0,"Data":)";
        QTest::newRow("says nothing") << QByteArray();
        QTest::newRow("garbage") << QByteArray("\x16\x03\x01 no HTTP at all\r\n\r\n");
        QTest::newRow("no document") << Reply("<html>It works!");
        QTest::newRow("half a body") << Reply(head, 4000);
        QTest::newRow("wrong types") << Reply(R"({"ResponseStatus":[1,{"ErrorCode":"no"}]})");
        QTest::newRow("an error of its own")
            << Reply(R"({"ResponseStatus":{"ErrorCode":77,"ErrorModule":9}})");
        QTest::newRow("refused") << QByteArray("HTTP/1.1 503 No\r\nContent-Length: 0\r\n\r\n");
        QTest::newRow("a huge body")
            << Reply(head + '"' + QByteArray(int(BusinessCommon::kMaximumReplyBytes) + 1, 'x'));
    }

    // First while reading, then while writing; each time the user is told once, and goes on.
    void aServerThatFailsLeavesASettledTable()
    {
        QFETCH(QByteArray, bytes);
        CBadServer bad(bytes);
        CNetCommManager::SetTimeouts(1000, 400);
        const auto fail = [&bad] { CNetCommManager::SetServer("127.0.0.1", bad.serverPort()); };
        const auto heal = [this] { CNetCommManager::SetServer("127.0.0.1", server_->Port()); };
        QVERIFY(LogInAs("operator"));
        fail();
        CTable table(MakeColumns(4));
        QTRY_COMPARE(table.settled, 1);
        QCOMPARE(table.shown, QString("ABCD"));
        QCOMPARE(messages_, 1);

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

    void aServerThatGoesAndComesBackIsUsedAgain()
    {
        QVERIFY(LogInAs("operator"));
        CTable table(MakeColumns(4));
        table.Open();
        QTRY_COMPARE(table.settled, 1);
        const int port = server_->Port();
        server_->Stop();
        table.ClickRow(0);
        QTRY_COMPARE(table.settled, 2);
        QCOMPARE(table.shown, QString("ABCD"));
        QCOMPARE(messages_, 1);

        QCOMPARE(server_->Start(port), QString());
        QVERIFY(LogInAs("operator"));
        table.ClickRow(3);

        QTRY_COMPARE(table.shown, QString("ABC"));
        QCOMPARE(Stored(StoredText(), MakeColumns(4)), table.shown);
    }

    // Two clients on one account: the last write wins, whole.
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
    CTestGuard guard_;
    std::unique_ptr<CTestServer> server_;
    int messages_ = 0;
};

QTEST_MAIN(TestColumns)
#include "tst_columns.moc"
