// SPDX-License-Identifier: MIT
#include "server/ServerHarness.h"

#include <server/Store.h>
#include <unistd.h>

#include <QtCore/QFile>

using BusinessCommon::CNetCommManager;

Answered Ask(const std::string &method, const std::string &path, const std::string &body)
{
    ClientComm::CClientSendInfo send;
    send.SetVal_URL("/Quorra/Brisent/Platform/V0" + path);
    send.SetVal_Method(method);
    send.SetVal_Request_Data(body);
    send.SetVal_Pattern(!body.empty() && body.front() == '<' ? 2 : 0);
    ClientComm::CClientRecvInfo recv;
    Answered answered;
    answered.is_sent =
        Nim::Base::CSingleton<CNetCommManager>::Instance().ClientSynSend(recv, send, 0);
    answered.error = recv.GetVal_Error_code();
    answered.document->Load(recv.GetVal_Receive_Data());
    return answered;
}

bool LogIn(const std::string &user, const std::string &password)
{
    ClientComm::CRapidJsonProto body;
    body.SetString("/LoginRequest/UserName", user);
    body.SetString("/LoginRequest/PassWord", password);
    const std::string session = Ask("POST", "/Session", body.ToJson()).Text("/Data/Session");
    CNetCommManager::SetSession(session);
    return !session.empty();
}

QString NewDatabase(const QString &folder)
{
    static std::atomic<int> number{0};
    const QString name = QString("test_%1_%2").arg(getpid()).arg(++number);
    const QString postgres = qEnvironmentVariable("VANTOR_TEST_DATABASE");
    if (postgres.isEmpty())
        return folder + '/' + name + ".sqlite";
    Server::CStore(Server::ReadStoreAddress(postgres + "/postgres"))
        .Execute("CREATE DATABASE " + name);
    return postgres + '/' + name;
}

CTestServer::CTestServer(QString database)
    : database_(database.isEmpty() ? NewDatabase(folder_.path()) : std::move(database))
{
    QFile seed(folder_.filePath("seed.csv"));
    if (seed.open(QIODevice::WriteOnly)) {
        seed.write("Airport,Costs,Note\r\n");
        for (int row = 1; row <= 250; ++row)
            seed.write(QStringLiteral("Gate %1,%2,\"50% of, all_%1\"\r\n")
                           .arg(row)
                           .arg((row * 7) % 250)
                           .toUtf8());
    }
}

QString CTestServer::Start(int port)
{
    Server::ServerOptions options;
    options.database = Database();
    options.seed_path = folder_.filePath("seed.csv");
    options.port = port;
    options.clock = [this] { return now_s.load(); };
    options.code_source = [] { return QString("W7kx"); };
    options.audit = [this](Server::AuditLevel level, const std::string &line) {
        const std::lock_guard<std::mutex> lock(mutex_);
        audit_.append(QString::number(level) + ' ' + QString::fromStdString(line));
    };
    server_ = std::make_unique<Server::CServer>(options);
    const QString error = server_->Start();
    Use();
    return error;
}

QStringList CTestServer::AuditLines() const
{
    const std::lock_guard<std::mutex> lock(mutex_);
    return audit_;
}

void CTestServer::Use() const
{
    CNetCommManager::SetServer("127.0.0.1", server_->Port());
    CNetCommManager::SetTimeouts(3000, 10000);
    CNetCommManager::SetSession({});
}
