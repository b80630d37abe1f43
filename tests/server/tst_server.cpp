// SPDX-License-Identifier: MIT
#include "server/ServerHarness.h"
#include "support/RawServer.h"
#include "support/TestGuard.h"

#include <Nim/Base/Encrypt.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <server/SampleAccounts.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QRandomGenerator>
#include <QtGui/QImage>
#include <QtTest/QTest>

#include <csignal>
#include <thread>

using BusinessCommon::CNetCommManager;

namespace {

constexpr qint64 kDay_s = 86400;
const auto &kOperator = Server::kSampleAccounts[0];
const auto &kSupervisor = Server::kSampleAccounts[1];

std::string LayoutBody(const std::string &key, const std::string &text)
{
    ClientComm::CRapidJsonProto body;
    body.SetString("/AdaptiveLayoutRequest/Key", key);
    body.SetString("/AdaptiveLayoutRequest/Type", "1");
    if (!text.empty())
        body.SetString("/AdaptiveLayoutRequest/LayoutData", text);
    return body.ToJson();
}

bool WriteLayout(const std::string &key, const std::string &text)
{
    const Answered answer = Ask("PUT", "/AdaptiveLayout", LayoutBody(key, text));
    return answer.is_sent && answer.error.error_code == 0 && answer.Int("/ErrorCode") == 0;
}

std::string StoredLayout(const std::string &key)
{
    return Ask("GET", "/AdaptiveLayout", LayoutBody(key, {}))
        .Text("/Data/AdaptiveLayout/LayoutData");
}

Answered CheckPassword(const std::string &password, const std::string &code = {},
                       const std::string &mark = {})
{
    ClientComm::CRapidJsonProto body;
    body.SetString("/CheckPasswordRequest/UserName", kOperator.name);
    body.SetString("/CheckPasswordRequest/PassWord", password);
    body.SetString("/CheckPasswordRequest/VerifyCode", code);
    body.SetString("/CheckPasswordRequest/VerifyMark", mark);
    return Ask("POST", "/Permission/CheckPassword", body.ToJson());
}

Answered AskForCode()
{
    return Ask("GET", "/VerificationCodeImage?CT=1",
               "<VerificationCodeImageRequest><UserName>operator</UserName><Type>0</Type>"
               "</VerificationCodeImageRequest>");
}

// Wait until the program listens, and send to it from now on.
bool TalkTo(QProcess &program, int *port = nullptr)
{
    if (!program.waitForReadyRead())
        return false;
    const int listening = program.readLine().simplified().split(' ').constLast().toInt();
    CNetCommManager::SetServer("127.0.0.1", listening);
    if (port)
        *port = listening;
    return listening > 0;
}

int ConnectTo(int port)
{
    const int client = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<uint16_t>(port));
    return connect(client, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0 ? client
                                                                                        : -1;
}

} // namespace

class TestServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        server_.now_s += kDay_s; // what the test before did is forgotten, but for the layouts
        if (!server_.IsRunning())
            QCOMPARE(server_.Start(), QString());
        server_.Use();
    }

    void cleanupTestCase() { server_.Stop(); }

    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void eachUserHasLayoutsOfHisOwnAndTheLastWriteWins()
    {
        QVERIFY(LogIn(kOperator.name, kOperator.password));
        QVERIFY(WriteLayout("list", "first"));
        QVERIFY(WriteLayout("list", "{\"a\":\"\xE2\x82\xAC\"}"));

        QVERIFY(LogIn(kSupervisor.name, kSupervisor.password));
        QCOMPARE(StoredLayout("list"), std::string());
        QVERIFY(WriteLayout("list", "the supervisor's"));
        server_.Stop();
        QCOMPARE(server_.Start(), QString()); // after a restart all of it is there
        QVERIFY(LogIn(kOperator.name, kOperator.password));

        QCOMPARE(StoredLayout("list"), std::string("{\"a\":\"\xE2\x82\xAC\"}"));
        QCOMPARE(StoredLayout("another"), std::string());
    }

    void badRequestsAreRefusedAndChangeNothing_data()
    {
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<bool>("has_session");
        QTest::addColumn<int>("status");
        const auto row = [](const char *name, const char *method, const char *path,
                            const QByteArray &body, int status, bool has_session = true) {
            QTest::newRow(name) << QByteArray(method) << QByteArray(path) << body << has_session
                                << status;
        };
        const QByteArray good = QByteArray::fromStdString(LayoutBody("list", "stolen"));
        row("no session", "PUT", "/AdaptiveLayout", good, 401, false);
        row("no body", "PUT", "/AdaptiveLayout", {}, 400);
        row("half a document", "PUT", "/AdaptiveLayout", good.left(good.size() - 3), 400);
        row("no text", "PUT", "/AdaptiveLayout",
            "{\"AdaptiveLayoutRequest\":{\"Key\":\"list\",\"Type\":1}}", 400);
        row("a text that is none", "PUT", "/AdaptiveLayout",
            "{\"AdaptiveLayoutRequest\":{\"Key\":\"list\",\"Type\":1,\"LayoutData\":{}}}", 400);
        row("a type that is no number", "PUT", "/AdaptiveLayout",
            "{\"AdaptiveLayoutRequest\":{\"Key\":\"list\",\"Type\":\"x\",\"LayoutData\":\"y\"}}",
            400);
        row("a key that is too long", "PUT", "/AdaptiveLayout",
            QByteArray::fromStdString(LayoutBody(std::string(600, 'k'), "x")), 400);
        row("a text that is too long", "PUT", "/AdaptiveLayout",
            QByteArray::fromStdString(LayoutBody("list", std::string(1'100'000, 'x'))), 413);
        row("a body that is too long", "PUT", "/AdaptiveLayout", QByteArray(3'000'000, 'x'), 413);
        row("a method that is not offered", "DELETE", "/AdaptiveLayout", good, 405);
        row("an unknown path", "GET", "/AdaptiveLayout/x", good, 404);
        row("a path outside", "GET", "/../../etc/passwd", good, 404);
        row("page 0", "GET", "/IncidentList", "{\"IncidentListRequest\":{\"Page\":0}}", 400);
        row("a page size beyond the limit", "GET", "/IncidentList",
            "{\"IncidentListRequest\":{\"PageSize\":1001}}", 400);
        row("a column that is none", "GET", "/IncidentList",
            "{\"IncidentListRequest\":{\"SortColumn\":\"1; DROP TABLE layout\"}}", 400);
        row("a login without a password", "POST", "/Session",
            "{\"LoginRequest\":{\"UserName\":\"operator\"}}", 400);
        row("a code for nobody", "GET", "/VerificationCodeImage", "{\"x\":1}", 400);
    }

    void badRequestsAreRefusedAndChangeNothing()
    {
        QFETCH(QByteArray, method);
        QFETCH(QByteArray, path);
        QFETCH(QByteArray, body);
        QFETCH(bool, has_session);
        QFETCH(int, status);
        QVERIFY(LogIn(kOperator.name, kOperator.password));
        QVERIFY(WriteLayout("list", "kept"));
        const std::string session = CNetCommManager::Session();
        if (!has_session)
            CNetCommManager::SetSession("guessed");

        const Answered answer = Ask(method.toStdString(), path.toStdString(), body.toStdString());

        QVERIFY(answer.is_sent);
        QCOMPARE(answer.error.module_code, int(BusinessCommon::kModuleHttp));
        QCOMPARE(answer.error.error_code, status);
        CNetCommManager::SetSession(session);
        QCOMPARE(StoredLayout("list"), std::string("kept"));
    }

    void requestsWithBodiesShareOneConnection()
    {
        QVERIFY(LogIn(kOperator.name, kOperator.password));
        const int client = ConnectTo(server_.Port());
        const auto send = [client](const std::string &method, const std::string &body) {
            CRawServer::Send(client,
                             method
                                 + " /Quorra/Brisent/Platform/V0/AdaptiveLayout HTTP/1.1\r\n"
                                   "Host: x\r\nAuthorization: Bearer "
                                 + CNetCommManager::Session() + "\r\nContent-Length: "
                                 + std::to_string(body.size()) + "\r\n\r\n" + body);
            return CRawServer::ReadRequest(client); // a reply is framed in the same way
        };

        const std::string first = send("GET", LayoutBody("shared connection", {}));
        const std::string second = send("PUT", LayoutBody("shared connection", "seen"));
        const std::string third = send("GET", LayoutBody("shared connection", {}));

        close(client);
        QVERIFY(first.find("200 OK") != std::string::npos);
        QVERIFY(first.find("\"LayoutData\":\"\"") != std::string::npos);
        QVERIFY(second.find("200 OK") != std::string::npos);
        QVERIFY(third.find("\"LayoutData\":\"seen\"") != std::string::npos);
    }

    void headersHaveALimit()
    {
        const int client = ConnectTo(server_.Port());

        CRawServer::Send(client, "GET / HTTP/1.1\r\nX: " + std::string(100'000, 'x') + "\r\n\r\n");
        char status[16] = "";
        const ssize_t count = recv(client, status, sizeof status - 1, MSG_WAITALL);

        close(client);
        QCOMPARE(QByteArray(status, int(count)).left(12), QByteArray("HTTP/1.1 431"));
    }

    void wrongPasswordsLeadToTheCode()
    {
        Answered answer = CheckPassword("wrong");
        QCOMPARE(answer.Int("/ErrorCode"), 40850);
        QCOMPARE(answer.Int("/Data/RemainCount"), 4);
        QCOMPARE(CheckPassword("wrong").Int("/ErrorCode"), 310);
        QCOMPARE(CheckPassword(kOperator.password).Int("/ErrorCode"), 214); // without a code

        const Answered code = AskForCode();
        const std::string mark = code.Text("/Data/VerificationInfo/VerificationMark");
        answer = CheckPassword(kOperator.password, "????", mark);
        QCOMPARE(answer.Int("/ErrorCode"), 311);
        QCOMPARE(answer.Int("/Data/CheckResult"), 0);
        QCOMPARE(CheckPassword(kOperator.password, "????", mark).Int("/ErrorCode"), 214); // used up
        std::string png;
        QVERIFY(Nim::Base::Encrypt::Base64Decode(
            png, code.Text("/Data/VerificationInfo/VerificationCodeImage")));
        const QImage image = QImage::fromData(QByteArray::fromStdString(png));
        QCOMPARE(image.size(), QSize(240, 80));

        // The failures are forgotten when the time is over.
        server_.now_s += 600;
        for (const int left : {4, 3})
            QCOMPARE(CheckPassword("wrong").Int("/Data/RemainCount"), left);
        server_.now_s += 600;
        answer = CheckPassword(kOperator.password);
        QCOMPARE(answer.Int("/ErrorCode"), 0);
        QCOMPARE(answer.Int("/Data/CheckResult"), 9);
        QCOMPARE(answer.Text("/Data/Session"), std::string()); // a check is no login
    }

    void triesWithTheCodeEndInTheLock()
    {
        int left = 4;
        for (; left > 0; --left) {
            const std::string mark = AskForCode().Text("/Data/VerificationInfo/VerificationMark");
            const Answered answer = CheckPassword("wrong", " w7KX ", mark);
            QCOMPARE(answer.Int("/ErrorCode"), left == 4 ? 40850 : 310);
            QCOMPARE(answer.Int("/Data/RemainCount"), left);
        }
        const std::string mark = AskForCode().Text("/Data/VerificationInfo/VerificationMark");
        QCOMPARE(CheckPassword("wrong", "W7KX", mark).Int("/ErrorCode"), 41050);

        server_.now_s += 100;
        const Answered locked = CheckPassword(kOperator.password);

        QCOMPARE(locked.Int("/ErrorCode"), 41050);
        QCOMPARE(locked.Int("/Data/LockRemainTime"), 500);
        QCOMPARE(locked.Int("/Data/RemainCount"), 0);
        QVERIFY(LogIn(kSupervisor.name, kSupervisor.password)); // others are not locked out
        server_.now_s += 500;
        QCOMPARE(CheckPassword(kOperator.password).Int("/Data/CheckResult"), 9);
    }

    void sessionsEndByLogoutAndByTime()
    {
        QVERIFY(LogIn(kOperator.name, kOperator.password));
        QCOMPARE(
            Ask("GET", "/Permission/SecuritySetting").Int("/Data/SecuritySetting/IPLock/FailCount"),
            5);
        QCOMPARE(Ask("DELETE", "/Session").error.error_code, 0);
        QCOMPARE(Ask("GET", "/Permission/SecuritySetting").error.error_code, 401);

        QVERIFY(LogIn(kOperator.name, kOperator.password));
        server_.now_s += kDay_s / 2;

        QCOMPARE(Ask("GET", "/Permission/SecuritySetting").error.error_code, 401);
        QVERIFY(!LogIn("nobody", "x"));
    }

    void incidentsComeByPages_data()
    {
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<int>("total");
        QTest::addColumn<int>("rows");
        QTest::addColumn<QByteArray>("first");
        QTest::newRow("by default the first hundred")
            << QByteArray() << 250 << 100 << QByteArray("Gate 1");
        QTest::newRow("the last page is short")
            << QByteArray("\"Page\":3") << 250 << 50 << QByteArray("Gate 201");
        QTest::newRow("behind the last page")
            << QByteArray("\"Page\":2147483647,\"PageSize\":1000") << 250 << 0 << QByteArray();
        QTest::newRow("numbers by size, the largest first")
            << QByteArray("\"SortColumn\":1,\"Descending\":1") << 250 << 100
            << QByteArray("Gate 107"); // 107 * 7 % 250 is 249
        QTest::newRow("what is searched is text, no pattern")
            << QByteArray("\"Filter\":\"ALL_25\"") << 2 << 2 << QByteArray("Gate 25");
    }

    void incidentsComeByPages()
    {
        QFETCH(QByteArray, request);
        QVERIFY(LogIn(kOperator.name, kOperator.password));

        const Answered page = Ask("GET", "/IncidentList",
                                  "{\"IncidentListRequest\":{" + request.toStdString() + "}}");

        const std::string list = "/Data/IncidentList/";
        QTEST(page.Int(list + "Total"), "total");
        QTEST(page.document->GetCount("/ResponseStatus" + list + "Rows"), "rows");
        QTEST(QByteArray::fromStdString(page.Text(list + "Rows/0/0")), "first");
        QCOMPARE(page.Text(list + "Titles/2"), std::string("Note"));
    }

    void twoClientsAtOnceLeaveOneOfTheirTexts()
    {
        QVERIFY(LogIn(kOperator.name, kOperator.password));
        std::atomic<int> failures{0};
        const auto write = [&failures](char letter) {
            for (int i = 0; i < 50; ++i)
                failures += WriteLayout("shared", std::string(5000, letter)) ? 0 : 1;
        };
        std::thread first(write, 'a');
        std::thread second(write, 'b');
        first.join();
        second.join();

        const std::string stored = StoredLayout("shared");
        QCOMPARE(failures, 0);
        QVERIFY(stored == std::string(5000, 'a') || stored == std::string(5000, 'b'));
    }

    void aStartThatFailsSaysWhy()
    {
        Server::ServerOptions options;
        options.data_path = server_.FilePath("no/such/folder.sqlite");
        QVERIFY(Server::CServer(options).Start().contains("folder.sqlite"));
        options.data_path = server_.FilePath("seed.csv"); // no database
        QVERIFY(Server::CServer(options).Start().contains("seed.csv"));
        options.data_path = server_.FilePath("other.sqlite");
        options.address = "elsewhere";
        QVERIFY(Server::CServer(options).Start().contains("elsewhere"));
        options.address = "127.0.0.1";
        options.port = server_.Port();
        QVERIFY(!Server::CServer(options).Start().isEmpty());
    }

    void whatWasAnsweredSurvivesTheKill()
    {
        // A stream of writes, killed at a hundred seeded moments; every answered one must be there.
        constexpr int kKills = 100;
        server_.Stop();
        QRandomGenerator random(20240607);
        std::string session;
        std::vector<std::string> answered;
        int number = 0;
        for (int kills = 0; kills < kKills; ++kills) {
            QProcess program;
            program.start(SERVER_PROGRAM, {"--data", server_.DataPath()});
            QVERIFY(TalkTo(program));
            CNetCommManager::SetSession(session);
            if (session.empty()) {
                QVERIFY(LogIn(kOperator.name, kOperator.password));
                session = CNetCommManager::Session();
            }
            std::thread killer;
            for (;;) {
                const std::string text = std::to_string(++number); // its own key, too
                if (!WriteLayout(text, text))
                    break; // this one may be there or not
                answered.push_back(text);
                if (killer.joinable())
                    continue;
                killer = std::thread([pid = static_cast<pid_t>(program.processId()),
                                      wait_us = random.bounded(0, 10000)] {
                    usleep(static_cast<useconds_t>(wait_us));
                    ::kill(pid, SIGKILL);
                });
            }
            QVERIFY(killer.joinable());
            killer.join();
            QVERIFY(program.waitForFinished());
        }

        QCOMPARE(server_.Start(), QString());
        CNetCommManager::SetSession(session);
        QVERIFY(answered.size() > kKills);
        for (const std::string &text : answered)
            QCOMPARE(StoredLayout(text), text);
    }

    void certificatesAreChecked_data()
    {
        QTest::addColumn<QString>("host");
        QTest::addColumn<bool>("is_known");
        QTest::addColumn<bool>("is_checked");
        QTest::addColumn<int>("code");
        QTest::newRow("known") << "127.0.0.1" << true << true << 0;
        QTest::newRow("known, for another host")
            << "127.0.0.2" << true << true << int(BusinessCommon::kNetCertificate);
        QTest::newRow("not known")
            << "127.0.0.1" << false << true << int(BusinessCommon::kNetCertificate);
        QTest::newRow("not checked") << "127.0.0.1" << false << false << 0;
    }

    void certificatesAreChecked()
    {
        QFETCH(QString, host);
        QFETCH(bool, is_known);
        QFETCH(bool, is_checked);
        QFETCH(int, code);
        server_.Stop();
        QProcess program;
        const QString certificate = TLS_FOLDER "/certificate.pem";
        const QString key = TLS_FOLDER "/key.pem";
        program.start(SERVER_PROGRAM, {"--data", server_.DataPath(), "--address", "0.0.0.0",
                                       "--sample-accounts", "--certificate", certificate, "--key",
                                       key});
        int port = 0;
        QVERIFY(TalkTo(program, &port));
        CNetCommManager::SetServer(host.toStdString(), port, true,
                                   is_known ? certificate.toStdString() : std::string());
        CNetCommManager::SetCertificateCheck(is_checked);

        const Answered answer = Ask("GET", "/AdaptiveLayout", LayoutBody("list", {}));
        const Answered again = Ask("GET", "/AdaptiveLayout", LayoutBody("list", {}));

        CNetCommManager::SetCertificateCheck(true);
        program.terminate();
        QVERIFY(program.waitForFinished());
        QCOMPARE(answer.error.error_code, code != 0 ? code : 401); // nobody has logged in
        QCOMPARE(again.error.error_code, answer.error.error_code);
    }

private:
    CTestGuard guard_;
    CTestServer server_;
};

QTEST_MAIN(TestServer)
#include "tst_server.moc"
