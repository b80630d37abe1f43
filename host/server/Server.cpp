// SPDX-License-Identifier: MIT
#include "Server.h"

#include "AccountRecords.h"
#include "Accounts.h"
#include "Audit.h"
#include "Database.h"
#include "HttpFront.h"
#include "Records.h"
#include "SecuritySettings.h"

#include <sodium.h>

#include <QtCore/QDateTime>

#include <string_view>

namespace Server {
namespace {

constexpr std::string_view kBase = "/Quorra/Brisent/Platform/V0";
constexpr size_t kFormBytes = 16 << 10;          // a login, a question
constexpr size_t kLayoutBytes = size_t(2) << 20; // a layout text, escaped

QString NoRandomNumbers()
{
    return sodium_init() < 0 ? QStringLiteral("There is no source of random numbers.") : QString();
}

QString CannotUse(const QString &path, const std::exception &failure)
{
    return QStringLiteral("Cannot use %1: %2").arg(path, QString::fromStdString(failure.what()));
}

} // namespace

struct CServerDataPtr
{
    explicit CServerDataPtr(ServerOptions with)
        : options_(std::move(with)),
          clock_(options_.clock ? options_.clock
                                : [] { return QDateTime::currentSecsSinceEpoch(); }),
          audit_(options_.audit), accounts_(database_, audit_, clock_, options_.code_source),
          front_({[this](const Request &request) { return Answer(request); },
                  [this](const Request &request) { return BodyLimit(request); },
                  [this](const Request &request, int status) { WriteRefusal(request, status); },
                  [this](const std::string &address) {
                      audit_.WriteLimited(clock_(), kAuditWarning, "connection-closed",
                                          {{"address", address}, {"reason", "too-many"}});
                  }})
    {}

    Reply Answer(const Request &request);
    size_t BodyLimit(const Request &request);
    void WriteRefusal(const Request &request, int status);
    QString CheckExposure();

    // On the database thread, for the account that the session belongs to.
    template <class Work> Reply ForAccount(const Request &request, Work &&work)
    {
        return database_.Do([&](CDatabase &database) {
            return work(database, accounts_.AccountOf(database, request.session), request);
        });
    }

    const ServerOptions options_;
    const std::function<qint64()> clock_;
    CAudit audit_;
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
    size_t body_limit;
    Route route;
};

constexpr RouteEntry kRoutes[] = {
    {"GET", "/VerificationCodeImage", kFormBytes,
     [](CServerDataPtr &server, const Request &request) {
         return server.accounts_.MakeVerifyCode(request);
     }},
    {"POST", "/Permission/CheckPassword", kFormBytes,
     [](CServerDataPtr &server, const Request &request) {
         return server.accounts_.CheckPassword(request);
     }},
    {"GET", "/Permission/SecuritySetting", kFormBytes,
     [](CServerDataPtr &server, const Request &request) {
         return server.ForAccount(request, [](CDatabase &database, qint64, const Request &) {
             return ReadSecuritySetting(database);
         });
     }},
    {"POST", "/Session", kFormBytes,
     [](CServerDataPtr &server, const Request &request) {
         return server.accounts_.LogIn(request);
     }},
    {"DELETE", "/Session", kFormBytes,
     [](CServerDataPtr &server, const Request &request) {
         return server.accounts_.LogOut(request);
     }},
    {"GET", "/AdaptiveLayout", kFormBytes,
     [](CServerDataPtr &server, const Request &request) {
         return server.ForAccount(request, ReadLayout);
     }},
    {"PUT", "/AdaptiveLayout", kLayoutBytes,
     [](CServerDataPtr &server, const Request &request) {
         return server.ForAccount(request, WriteLayout);
     }},
    {"GET", "/IncidentList", kFormBytes,
     [](CServerDataPtr &server, const Request &request) {
         return server.ForAccount(request, [](CDatabase &database, qint64, const Request &asked) {
             return ReadIncidents(database, asked);
         });
     }},
};

// The route of a request. Without one the status says why.
struct Found
{
    const RouteEntry *entry = nullptr;
    int status = kNotFound;
};

Found Find(const Request &request)
{
    std::string_view path = request.path;
    if (path.substr(0, kBase.size()) != kBase)
        return {};
    path.remove_prefix(kBase.size());
    Found found;
    for (const RouteEntry &entry : kRoutes) {
        if (entry.path != path)
            continue;
        found.status = kWrongMethod;
        if (entry.method == request.method)
            return {&entry, kOk};
    }
    return found;
}

} // namespace

Reply CServerDataPtr::Answer(const Request &request)
{
    const Found found = Find(request);
    if (!found.entry) {
        WriteRefusal(request, found.status);
        return Reply::Refusal(found.status);
    }
    try {
        return found.entry->route(*this, request);
    } catch (const Refused &refusal) {
        WriteRefusal(request, refusal.status);
        throw;
    } catch (const DatabaseError &) {
        WriteRefusal(request, kServerError);
        throw;
    }
}

// A stranger's body is kept only up to the size of a form: many of them must not fill the memory.
size_t CServerDataPtr::BodyLimit(const Request &request)
{
    const Found found = Find(request);
    if (!found.entry || found.entry->body_limit <= kFormBytes)
        return kFormBytes;
    try {
        database_.Do(
            [&](CDatabase &database) { return accounts_.AccountOf(database, request.session); });
    } catch (const std::exception &) {
        return kFormBytes;
    }
    return found.entry->body_limit;
}

void CServerDataPtr::WriteRefusal(const Request &request, int status)
{
    audit_.WriteLimited(clock_(), kAuditNotice, "refused",
                        {{"status", std::to_string(status)},
                         {"method", request.method},
                         {"path", request.path},
                         {"address", request.address}});
}

// What must not be open to other machines unless it is asked for. Empty: all is well.
QString CServerDataPtr::CheckExposure()
{
    if (IsLoopback(options_.address))
        return {};
    const bool is_plain = options_.certificate.empty();
    if (is_plain && !options_.is_plain_allowed)
        return QStringLiteral("Passwords would pass the network in plain text on %1. Use a "
                              "certificate, or allow plain HTTP (--plain-http).")
            .arg(QString::fromStdString(options_.address));
    const QStringList open = database_.Do(OpenSampleAccounts);
    if (!open.isEmpty() && !options_.are_samples_allowed)
        return QStringLiteral("These sample accounts have the passwords that everybody knows: %1. "
                              "Give them new ones (--account), or allow them (--sample-accounts).")
            .arg(open.join(QLatin1String(", ")));
    if (is_plain)
        audit_.Write(kAuditWarning, "plain-http", {{"address", options_.address}});
    if (!open.isEmpty())
        audit_.Write(kAuditWarning, "sample-accounts-open",
                     {{"users", open.join(QLatin1Char(',')).toStdString()}});
    return {};
}

QString SetAccount(const QString &data_path, const QString &name,
                   const Nim::Base::SecretText &password)
{
    const QString error = NoRandomNumbers();
    if (!error.isEmpty())
        return error;
    try {
        CDatabase database(data_path);
        SetDefaults(database);
        SetAccount(database, name, password);
    } catch (const Refused &) {
        return QStringLiteral("The name or the password is empty or too long: a name has at most "
                              "%1 bytes, a password %2.")
            .arg(kMaximumName)
            .arg(kMaximumPassword);
    } catch (const std::exception &failure) {
        return CannotUse(data_path, failure);
    }
    return {};
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
    QString error = NoRandomNumbers();
    if (!error.isEmpty())
        return error;
    const ServerOptions &options = d_ptr_->options_;
    try {
        d_ptr_->database_.Start(options.data_path);
        d_ptr_->database_.Do(SetDefaults);
        if (!options.seed_path.isEmpty())
            d_ptr_->database_.Do(
                [&options](CDatabase &database) { Seed(database, options.seed_path); });
        error = d_ptr_->CheckExposure();
        if (error.isEmpty())
            error = d_ptr_->front_.Start(options);
    } catch (const std::exception &failure) {
        error = CannotUse(options.data_path, failure);
    }
    if (!error.isEmpty())
        Stop();
    return error;
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
