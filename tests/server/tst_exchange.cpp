// SPDX-License-Identifier: MIT
#include "server/ServerHarness.h"
#include "support/RawServer.h"
#include "support/Test.h"

#include <BusinessCommon/AdaptiveColumnWidthManager.h>
#include <ClientFramework/FrameworkManagerInterface.h>

#include <netdb.h>
#include <server/SampleAccounts.h>

#include <future>

using namespace BusinessCommon;
using Param = CAdaptiveColumnWidthObserver::Param;

namespace {

constexpr int kReadTimeMs = 300;

// A name server that is silent until the test says otherwise.
std::promise<void> name_server_speaks;
std::promise<void> name_server_has_ended;

class CRecorder : public CAdaptiveColumnWidthObserver
{
public:
    void UpdateAdaptiveColumnWidthCurrentState(const Param &param) override
    {
        QCOMPARE(QThread::currentThread(), qApp->thread());
        answers.push_back(param);
        if (on_answer)
            on_answer();
    }

    QStringList Texts() const
    {
        QStringList texts;
        for (const Param &param : answers)
            texts.append(QString::fromStdString(param.result.receive_data));
        return texts;
    }

    std::vector<Param> answers;
    std::function<void()> on_answer;
};

std::shared_ptr<AdaptiveLayout> Layout(const std::string &key, const std::string &text = {})
{
    return std::make_shared<AdaptiveLayout>(AdaptiveLayout{key, 1, text});
}

// module, code, layout_code
const Rows<int, int, int> kFaultRows = {
    {"closes at once", kModuleNetwork, kNetBroken, kNetBroken},
    {"says nothing", kModuleNetwork, kNetTimeout, kNetTimeout},
    {"sends a byte now and then", kModuleNetwork, kNetTimeout, kNetTimeout},
    {"never ends its headers", kModuleNetwork, kNetTimeout, kNetTimeout},
    {"has a long status line", kModuleNetwork, kNetTooLarge, kNetTooLarge},
    {"sends header fields without end", kModuleNetwork, kNetTooLarge, kNetTooLarge},
    {"sends a header line without end", kModuleNetwork, kNetTooLarge, kNetTooLarge},
    {"sends interim replies without end", kModuleNetwork, kNetTooLarge, kNetTooLarge},
    {"sends a chunk size without end", kModuleNetwork, kNetBroken, kNetBroken},
    {"sends trailers without end", kModuleNetwork, kNetTooLarge, kNetTooLarge},
    {"does not speak HTTP", kModuleNetwork, kNetBroken, kNetBroken},
    {"ends within the body", kModuleNetwork, kNetBroken, kNetBroken},
    {"announces too much", kModuleNetwork, kNetTooLarge, kNetTooLarge},
    {"sends without end", kModuleNetwork, kNetTooLarge, kNetTooLarge},
    {"gives an array for a text", 0, 0, kNetBadReply},
    {"fails", kModuleHttp, 500, 500},
    {"refuses with a code of its own", 7, 77, 77},
    {"sends no document", 0, 0, kNetBadReply},
};

// is_sent, error code, is_success
const Rows<bool, const char *, bool> kLoginRows = {
    {"a success", true, "0", true},
    {"a transport that failed", false, "0", false},
    {"a code beyond 32 bits", true, "4294967337", false},
    {"a code that is no number", true, "\"locked\"", false},
    {"a code that is an object", true, "{}", false},
    {"no code", true, "null", false},
    {"an error", true, "40850", false},
};

} // namespace

// Instead of the C library's.
extern "C" __attribute__((visibility("default"))) int
getaddrinfo(const char *node, const char *service, const addrinfo *hints, addrinfo **result)
{
    static const auto original =
        reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
    if (!node || std::string(node) != "silent.invalid")
        return original(node, service, hints, result);
    name_server_speaks.get_future().wait_for(std::chrono::seconds(20));
    name_server_has_ended.set_value();
    return EAI_AGAIN;
}

class TestExchange : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        CNetCommManager::SetTimeouts(kReadTimeMs, kReadTimeMs);
        CNetCommManager::SetSession({});
    }

    void TearDown() override
    {
        CNetCommManager::SetTransport(nullptr);
        CAdaptiveColumnWidthManager::SetHandler(nullptr);
        QVERIFY(CAdaptiveColumnWidthManager::FinishWrites(5000));
    }

    CTestServer healthy_;

private Q_SLOTS:
    void initTestCase() { QCOMPARE(healthy_.Start(), QString()); }
    void cleanupTestCase() { healthy_.Stop(); }

    void faultsOfTheServerAreReportedInTime_data() { AddRows(kFaultRows); }

    void faultsOfTheServerAreReportedInTime()
    {
        const auto &[name, module, code, layout_code] = FetchRow(kFaultRows);
        const CRawServer server(CRawServer::Fault(name));
        CNetCommManager::SetServer("127.0.0.1", server.Port());
        if (code != kNetTimeout)
            CNetCommManager::SetTimeouts(60000, 60000); // another limit ends it

        const Answered answer = Ask("GET", "/AdaptiveLayout", "{}");

        QCOMPARE(answer.is_sent, module != kModuleNetwork);
        QCOMPARE(answer.error.module_code, module);
        QCOMPARE(answer.error.error_code, code);
        QCOMPARE(answer.error.sub_system, module == kModuleNetwork ? kNetSubSystem : 0);

        // The layout manager reports it, and its next request succeeds.
        CAdaptiveColumnWidthManager manager;
        CRecorder recorder;
        manager.RegisterObserver(&recorder);
        manager.AsyRequestAdaptiveColumnWidth(Layout("list"));
        QTRY_COMPARE(recorder.answers.size(), size_t(1));
        QCOMPARE(recorder.answers[0].current_column_state, 0);
        QCOMPARE(recorder.answers[0].error_code.second, layout_code);
        CNetCommManager::SetTimeouts(60000, 60000);
        healthy_.Use();
        QVERIFY(LogIn(Server::kSampleAccounts[0].name, Server::kSampleAccounts[0].password));
        manager.AsyRequestAdaptiveColumnWidth(Layout("list", "text"));
        QTRY_COMPARE(recorder.answers.size(), size_t(2));
        QCOMPARE(recorder.answers[1].current_column_state, 1);
        QCOMPARE(recorder.answers[1].get_or_post, 1);
    }

    void onlyAReadableSuccessLogsIn_data() { AddRows(kLoginRows); }

    void onlyAReadableSuccessLogsIn()
    {
        const auto &[name, is_sent, code, is_success] = FetchRow(kLoginRows);
        CNetCommManager::SetTransport(
            [is_sent = is_sent, code = std::string(code)](auto &recv, const auto &) {
                recv.SetVal_Receive_Data("{\"ResponseStatus\":{\"ErrorCode\":" + code
                                         + ",\"Data\":{\"CheckResult\":9}}}");
                return is_sent;
            });
        ClientFramework::CCheckPwdResultParam result;

        Nim::Base::CSingleton<ClientFramework::CFrameworkManagerInterface>::Instance()
            .CheckPassword("plugin", {}, result);

        QCOMPARE(result.GetVal_check_result(), is_success ? 9 : 0);
        QCOMPARE(result.GetVal_error_code().error_code == 0, is_success);
    }

    void whatCannotBeSentIsRefused()
    {
        CNetCommManager::SetServer("127.0.0.1", 1); // no server listens
        QCOMPARE(Ask("GET", "/x").error.error_code, int(kNetConnect));
        CNetCommManager::SetServer("", 0);
        QCOMPARE(Ask("GET", "/x").error.error_code, int(kNetConnect));
        CNetCommManager::SetServer("127.0.0.1", 1);
        QCOMPARE(Ask("GET /x HTTP/1.1\r\nEvil: 1\r\n", "/x").error.error_code, int(kNetBadRequest));
        CNetCommManager::SetSession("token\r\nEvil: 1");
        QCOMPARE(Ask("GET", "/x").error.error_code, int(kNetBadRequest));

        guard_.AnnounceLogLines();
        CNetCommManager::SetSession({});
        CNetCommManager::SetTransport(
            [](ClientComm::CClientRecvInfo &, const ClientComm::CClientSendInfo &) -> bool {
                throw std::runtime_error("unplugged");
            });
        QCOMPARE(Ask("GET", "/x").error.error_code, int(kNetFailed));
        QVERIFY(guard_.LogLines().constLast().contains("unplugged"));
    }

    void aSilentNameServerIsNotWaitedFor()
    {
        CNetCommManager::SetServer("silent.invalid", 80);

        QCOMPARE(Ask("GET", "/x").error.error_code, int(kNetTimeout));

        auto end = name_server_has_ended.get_future();
        QVERIFY(end.wait_for(std::chrono::seconds(0)) == std::future_status::timeout);
        name_server_speaks.set_value();
        end.wait();
    }

    void requestsWithBodiesShareTheThreadsConnection()
    {
        const CRawServer server([](int socket) {
            while (!CRawServer::ReadRequest(socket).empty())
                CRawServer::Send(socket, CRawServer::ReplyWith("{}"));
        });
        CNetCommManager::SetServer("127.0.0.1", server.Port());

        Ask("GET", "/a", "{\"a\":1}");
        Ask("PUT", "/b", "{\"b\":2}");
        Ask("GET", "/c", "<c/>");
        QCOMPARE(server.Connections(), 1);
        std::thread([] { Ask("GET", "/d", "{\"d\":4}"); }).join();
        QCOMPARE(server.Connections(), 2);
        Ask("POST", "/e", "{}"); // on a stale connection, it might be sent twice
        QCOMPARE(server.Connections(), 3);
    }

    void aManagerMayGoWhileItsAnswersAreOnTheWay()
    {
        healthy_.Use();
        QVERIFY(LogIn(Server::kSampleAccounts[0].name, Server::kSampleAccounts[0].password));
        CRecorder told;
        for (int round = 0; round < 20; ++round) {
            auto manager = std::make_unique<CAdaptiveColumnWidthManager>();
            CRecorder recorder;
            manager->RegisterObserver(&recorder);
            recorder.on_answer = [&manager] { manager.reset(); }; // from within the answer
            const std::string text = "text " + std::to_string(round);
            manager->AsyRequestAdaptiveColumnWidth(Layout("k", text));
            manager->AsyRequestAdaptiveColumnWidth(Layout("k"));
            if (round % 2 == 0)
                QTRY_COMPARE(recorder.answers.size(), size_t(1));
        }

        CAdaptiveColumnWidthManager last;
        last.RegisterObserver(&told);
        last.AsyRequestAdaptiveColumnWidth(Layout("k"));
        QTRY_COMPARE(told.Texts(), QStringList({"text 19"})); // the writes got through
        last.UnRegisterObserver(&told);
        last.AsyRequestAdaptiveColumnWidth(Layout("k"));
        last.AsyRequestAdaptiveColumnWidth(nullptr);
        guard_.AnnounceLogLines();
    }

    void aRequestBelongsToTheUserWhoMadeIt()
    {
        healthy_.Use();
        const auto &first = Server::kSampleAccounts[0];
        const auto &second = Server::kSampleAccounts[1];
        CAdaptiveColumnWidthManager manager;
        CRecorder recorder;
        manager.RegisterObserver(&recorder);
        QVERIFY(LogIn(second.name, second.password));
        const std::string session = CNetCommManager::Session();
        QVERIFY(LogIn(first.name, first.password));

        for (int i = 0; i < 20; ++i)
            manager.AsyRequestAdaptiveColumnWidth(Layout("k" + std::to_string(i), "the first's"));
        CNetCommManager::SetSession(session); // most of them are still to be sent
        manager.AsyRequestAdaptiveColumnWidth(Layout("k19"));

        QVERIFY(CAdaptiveColumnWidthManager::FinishWrites(10000));
        QTRY_COMPARE(recorder.answers.size(), size_t(21));
        QCOMPARE(recorder.answers[19].current_column_state, 1);
        QCOMPARE(recorder.answers[20].result.receive_data, std::string());
    }

    void abortEndsWhatADeadServerHolds()
    {
        CNetCommManager::SetTimeouts(60000, 60000);
        const CRawServer server(CRawServer::Fault("says nothing"));
        CNetCommManager::SetServer("127.0.0.1", server.Port());
        std::vector<std::thread> threads;
        std::atomic<int> broken{0};
        for (int i = 0; i < 3; ++i) {
            threads.emplace_back(
                [&broken] { broken += Ask("GET", "/x").error.error_code == kNetBroken ? 1 : 0; });
        }
        CAdaptiveColumnWidthManager manager;
        CRecorder recorder;
        manager.RegisterObserver(&recorder);
        for (int i = 0; i < 3; ++i)
            manager.AsyRequestAdaptiveColumnWidth(Layout("k", "text"));
        QTRY_COMPARE(server.Connections(), 4);
        QVERIFY(!CAdaptiveColumnWidthManager::FinishWrites(100));

        CNetCommManager::Abort(); // long before the time is over

        for (std::thread &thread : threads)
            thread.join();
        QCOMPARE(broken, 3);
        QTRY_COMPARE(recorder.answers.size(), size_t(3)); // failures, all of them
        QCOMPARE(recorder.answers[2].error_code.second, int(kNetBroken));
    }
};

QTEST_MAIN(TestExchange)
#include "tst_exchange.moc"
