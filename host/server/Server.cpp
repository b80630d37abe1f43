// SPDX-License-Identifier: MIT
#include "Server.h"

#include "Accounts.h"
#include "Database.h"
#include "HttpFront.h"
#include "Records.h"

#include <sodium.h>

#include <QtCore/QDateTime>

#include <string_view>

namespace Server {
namespace {

constexpr std::string_view kBase = "/Quorra/Brisent/Platform/V0";

} // namespace

struct CServerDataPtr
{
    explicit CServerDataPtr(ServerOptions with)
        : options_(std::move(with)),
          accounts_(
              database_,
              options_.clock ? options_.clock : [] { return QDateTime::currentSecsSinceEpoch(); },
              options_.code_source),
          front_([this](const Request &request) { return Answer(request); })
    {}

    Reply Answer(const Request &request);

    // On the database thread, for whom the session belongs to.
    template <class Work> Reply ForAccount(const Request &request, Work &&work)
    {
        return database_.Do([&](CDatabase &database) {
            return work(database, accounts_.AccountOf(database, request.session), request);
        });
    }

    const ServerOptions options_;
    CDatabaseThread database_;
    CAccounts accounts_;
    CHttpFront front_;
};

namespace {

using Route = Reply (*)(CServerDataPtr &, const Request &);

struct RouteEntry
{
    std::string_view method;
    std::string_view path; // behind kBase
    Route route;
};

constexpr RouteEntry kRoutes[] = {
    {"GET", "/VerificationCodeImage",
     [](CServerDataPtr &server, const Request &request) {
         return server.accounts_.MakeVerifyCode(request);
     }},
    {"POST", "/Permission/CheckPassword",
     [](CServerDataPtr &server, const Request &request) {
         return server.accounts_.CheckPassword(request);
     }},
    {"GET", "/Permission/SecuritySetting",
     [](CServerDataPtr &server, const Request &request) {
         return server.ForAccount(request, [](CDatabase &database, qint64, const Request &) {
             return ReadSecuritySetting(database);
         });
     }},
    {"POST", "/Session",
     [](CServerDataPtr &server, const Request &request) {
         return server.accounts_.LogIn(request);
     }},
    {"DELETE", "/Session",
     [](CServerDataPtr &server, const Request &request) {
         return server.accounts_.LogOut(request);
     }},
    {"GET", "/AdaptiveLayout",
     [](CServerDataPtr &server, const Request &request) {
         return server.ForAccount(request, ReadLayout);
     }},
    {"PUT", "/AdaptiveLayout",
     [](CServerDataPtr &server, const Request &request) {
         return server.ForAccount(request, WriteLayout);
     }},
    {"GET", "/IncidentList",
     [](CServerDataPtr &server, const Request &request) {
         return server.ForAccount(request, [](CDatabase &database, qint64, const Request &asked) {
             return ReadIncidents(database, asked);
         });
     }},
};

} // namespace

Reply CServerDataPtr::Answer(const Request &request)
{
    std::string_view path = request.path;
    if (path.substr(0, kBase.size()) != kBase)
        return Reply::Refusal(kNotFound);
    path.remove_prefix(kBase.size());
    bool is_known = false;
    for (const RouteEntry &entry : kRoutes) {
        if (entry.path != path)
            continue;
        is_known = true;
        if (entry.method == request.method)
            return entry.route(*this, request);
    }
    return Reply::Refusal(is_known ? kWrongMethod : kNotFound);
}

CServer::CServer(ServerOptions options)
    : d_ptr_(std::make_unique<CServerDataPtr>(std::move(options)))
{}

CServer::~CServer()
{
    Stop();
}

QString CServer::Start()
{
    if (sodium_init() < 0)
        return QStringLiteral("There is no source of random numbers.");
    const ServerOptions &options = d_ptr_->options_;
    QString error;
    try {
        d_ptr_->database_.Start(options.data_path);
        d_ptr_->database_.Do(SetDefaults);
        if (!options.seed_path.isEmpty())
            d_ptr_->database_.Do(
                [&options](CDatabase &database) { Seed(database, options.seed_path); });
        error = d_ptr_->front_.Start(options);
    } catch (const std::exception &failure) {
        error = QStringLiteral("Cannot use %1: %2")
                    .arg(options.data_path, QString::fromStdString(failure.what()));
    }
    if (!error.isEmpty())
        Stop();
    return error;
}

QString CServer::SetAccount(const QString &name, const std::string &password)
{
    try {
        d_ptr_->database_.Do(
            [&](CDatabase &database) { Server::SetAccount(database, name, password); });
    } catch (const Refused &) {
        return QStringLiteral("The name or the password is empty or too long.");
    } catch (const std::exception &failure) {
        return QString::fromStdString(failure.what());
    }
    return {};
}

void CServer::Stop()
{
    d_ptr_->front_.Stop(); // first: its requests wait for the database
    d_ptr_->database_.Stop();
}

int CServer::Port() const
{
    return d_ptr_->front_.Port();
}

} // namespace Server
