// SPDX-License-Identifier: MIT
#include "link/ServerLink.h"

#include <BusinessCommon/AdaptiveColumnWidthManager.h>
#include <BusinessCommon/NetCommManager.h>
#include <ClientComm/RapidJsonProto.h>

#include <server/SampleAccounts.h>
#include <server/Server.h>

#include <QtConcurrent/QtConcurrentRun>
#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>

#include <chrono>
#include <future>

namespace Client {
namespace {

using BusinessCommon::CAdaptiveColumnWidthManager;
using BusinessCommon::CNetCommManager;

constexpr int kFinishTime_ms = 800;
constexpr auto kEndTime = std::chrono::milliseconds(300);
constexpr char kSessionUrl[] = "/Quorra/Brisent/Platform/V0/Session";

CServerLink *current = nullptr;

QUrl UrlOf(const QString &server)
{
    return QUrl(server.contains(QLatin1String("://")) ? server : QStringLiteral("http://") + server,
                QUrl::StrictMode);
}

// An error text, empty when it runs.
QString StartOwnServer(const QString &folder, std::shared_ptr<Server::CServer> &server)
{
    if (!QDir().mkpath(folder))
        return CServerLink::tr("Cannot make the folder %1.").arg(QDir::toNativeSeparators(folder));
    Server::ServerOptions options;
    options.database = QDir(folder).filePath(QStringLiteral("server.sqlite"));
    options.seed_path = QStringLiteral(":/Client/Data/incidents.csv");
    server = std::make_shared<Server::CServer>(options);
    QString error = server->Start();
    if (error.isEmpty())
        CNetCommManager::SetServer("127.0.0.1", server->Port());
    return error;
}

Nim::Base::SecretText PasswordOf(const QString &user)
{
    for (const Server::SampleAccount &account : Server::kSampleAccounts) {
        if (user == QLatin1String(account.name))
            return account.password;
    }
    return {};
}

// The session; empty when the server is not there or refuses.
std::string NewSession(const QString &user, const Nim::Base::SecretText &password)
{
    ClientComm::CRapidJsonProto body;
    body.SetString("/LoginRequest/UserName", user.toStdString());
    body.SetString("/LoginRequest/PassWord", password);
    ClientComm::CClientSendInfo send;
    send.SetVal_URL(kSessionUrl);
    send.SetVal_Method("POST");
    send.SetVal_Request_Data(body.ToJson());
    ClientComm::CClientRecvInfo recv;
    if (!Nim::Base::CSingleton<CNetCommManager>::Instance().ClientSynSend(recv, send, 0))
        return {};
    ClientComm::CRapidJsonProto reply;
    reply.Load(recv.Read().Receive_Data);
    return reply.GetString("/ResponseStatus/Data/Session");
}

// A session must not be used after its user has gone. A server that does not answer ends it after
// some hours by itself.
void EndSession(const std::string &session)
{
    ClientComm::CClientSendInfo send;
    send.SetVal_URL(kSessionUrl);
    send.SetVal_Method("DELETE");
    ClientComm::CClientRecvInfo recv;
    if (!session.empty())
        Nim::Base::CSingleton<CNetCommManager>::Instance().ClientSynSendAs(session, recv, send);
}

} // namespace

CServerLink::CServerLink(QObject *parent) : QObject(parent)
{
    current = this;
    connect(&watcher_, &QFutureWatcher<Outcome>::finished, this, &CServerLink::OnFinished);
}

CServerLink::~CServerLink()
{
    current = nullptr;
    CAdaptiveColumnWidthManager::FinishWrites(kFinishTime_ms);
    const std::string session = user_.isEmpty() ? std::string() : CNetCommManager::Session();
    const auto ending = std::async(std::launch::async, EndSession, session);
    ending.wait_for(kEndTime);
    CNetCommManager::Abort();
    ending.wait();
    if (!session.empty())
        CNetCommManager::SetSession({});
    watcher_.waitForFinished(); // it may hold the server
    server_.reset();
}

CServerLink *CServerLink::Current()
{
    return current;
}

bool CServerLink::IsAddress(const QString &server)
{
    const QUrl url = UrlOf(server);
    return url.isValid() && !url.host().isEmpty() && url.port() > 0
           && (url.path().isEmpty() || url.path() == QLatin1String("/")) && !url.hasQuery()
           && (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

QStringList CServerLink::Users()
{
    QStringList users;
    for (const Server::SampleAccount &account : Server::kSampleAccounts)
        users.append(QLatin1String(account.name));
    return users;
}

void CServerLink::Start(const QString &server, const QString &user, const QString &folder)
{
    const QString data = folder.isEmpty()
                             ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
                             : folder;
    watcher_.setFuture(QtConcurrent::run([server, user, data] {
        Outcome outcome;
        outcome.user = user;
        if (server.isEmpty()) {
            outcome.error = StartOwnServer(data, outcome.server);
        } else {
            const QUrl url = UrlOf(server);
            CNetCommManager::SetServer(url.host().toStdString(), url.port(),
                                       url.scheme() == QLatin1String("https"));
        }
        if (outcome.error.isEmpty())
            outcome.session = NewSession(user, PasswordOf(user));
        return outcome;
    }));
}

void CServerLink::SwitchUser(const QString &user)
{
    LogIn(user, PasswordOf(user));
}

void CServerLink::LogIn(const QString &user, const Nim::Base::SecretText &password)
{
    if (watcher_.isRunning()) {
        next_user_ = user;
        next_password_ = password;
        return;
    }
    watcher_.setFuture(QtConcurrent::run([user, password, last = CNetCommManager::Session()] {
        Outcome outcome;
        outcome.user = user;
        outcome.session = NewSession(user, password);
        if (!outcome.session.empty()) {
            CAdaptiveColumnWidthManager::FinishWrites(kFinishTime_ms); // of the last user
            EndSession(last);
        }
        return outcome;
    }));
}

void CServerLink::OnFinished()
{
    const Outcome outcome = watcher_.result();
    if (outcome.server)
        server_ = outcome.server;
    if (!outcome.session.empty()) {
        CNetCommManager::SetSession(outcome.session);
        user_ = outcome.user;
        Q_EMIT SignalUserChanged(user_);
    } else {
        Q_EMIT SignalFailed(outcome.error.isEmpty()
                                ? tr("Cannot log in as %1.").arg(outcome.user)
                                : tr("There is no server: %1").arg(outcome.error));
    }
    const QString next = std::exchange(next_user_, QString());
    const Nim::Base::SecretText password = next_password_;
    next_password_ = Nim::Base::SecretText();
    if (!next.isEmpty() && next != user_)
        LogIn(next, password);
}

} // namespace Client
