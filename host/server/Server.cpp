// SPDX-License-Identifier: MIT
#include "Server.h"

#include "AccountRecords.h"
#include "Accounts.h"
#include "Addresses.h"
#include "Audit.h"
#include "Copy.h"
#include "HttpFront.h"
#include "IncidentLoad.h"
#include "IncidentPages.h"
#include "ListThreads.h"
#include "Migrations.h"
#include "Records.h"
#include "SecuritySettings.h"
#include "StoreThread.h"

#include <sodium.h>

#include <QtCore/QFile>

#include <string_view>

namespace Server {
namespace {

constexpr std::string_view kBase = "/Quorra/Brisent/Platform/V0";
constexpr size_t kFormBytes = 16 << 10;          // a login, a question
constexpr size_t kListBytes = size_t(2) << 20;   // rows
constexpr size_t kLayoutBytes = size_t(2) << 20; // a layout text, escaped

QString NoRandomNumbers()
{
    return sodium_init() < 0 ? QStringLiteral("There is no source of random numbers.") : QString();
}

// A wrong URL may hold a password, so it is not shown.
QString CannotUse(const QString &database, const std::exception &failure)
{
    QString name = QStringLiteral("the database");
    try {
        name = ReadStoreAddress(database).Text();
    } catch (const DatabaseError &) {
    }
    return QStringLiteral("Cannot use %1: %2").arg(name, QString::fromStdString(failure.what()));
}

} // namespace

struct CServerDataPtr
{
    explicit CServerDataPtr(ServerOptions with)
        : options_(std::move(with)), audit_(options_.audit, options_.clock),
          accounts_(store_, audit_, options_.clock, options_.code_source),
          front_({[this](const Request &request) { return Answer(request); },
                  [this](const Request &request) { return BodyLimit(request); },
                  [this](const Request &request, int status) { WriteRefusal(request, status); },
                  [this](const std::string &address) {
                      audit_.WriteLimited(kAuditWarning, "connection-closed",
                                          {{"address", address}, {"reason", "too-many"}});
                  }})
    {}

    Reply Answer(const Request &request);
    size_t BodyLimit(const Request &request);
    void WriteRefusal(const Request &request, int status);
    Reply Refuse(const Request &request, int status);
    Reply Guarded(const Request &request, const std::function<Reply()> &answer);
    void WriteStoreState(const std::string &reason);
    QString CheckExposure();

    // On the store's thread, for the account that the session belongs to.
    template <class Work> Reply ForAccount(const Request &request, Work &&work)
    {
        return store_.Do([&](CStore &store) {
            return work(store, accounts_.AccountOf(store, request.session), request);
        });
    }

    // On the threads for lists, so that a long search does not delay other requests.
    template <class Work> Reply ForReader(const Request &request, Work work)
    {
        store_.Do([&](CStore &store) { return accounts_.AccountOf(store, request.session); });
        Reply reply;
        reply.later = [this, &request, work](const auto &done) {
            lists_.Run(
                [this, &request, work](CStore &store) { return work(*this, store, request); },
                [this, &request, done](const std::function<Reply()> &result) {
                    done([&] { return Guarded(request, result); });
                },
                request.has_client_gone);
        };
        return reply;
    }

    const ServerOptions options_;
    CAudit audit_;
    CStoreThread store_;
    CListThreads lists_;
    CIncidentPages pages_;
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
         return server.ForAccount(request, [](CStore &store, qint64, const Request &) {
             return ReadSecuritySetting(store);
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
         return server.ForReader(request,
                                 [](CServerDataPtr &data, CStore &store, const Request &asked) {
                                     return ReadIncidents(data.pages_, store, asked);
                                 });
     }},
    {"POST", "/Incident", kListBytes,
     [](CServerDataPtr &server, const Request &request) {
         return server.ForAccount(request, [](CStore &store, qint64, const Request &asked) {
             return WriteIncidents(store, asked);
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
    if (!found.entry)
        return Refuse(request, found.status);
    return Guarded(request, [&] { return found.entry->route(*this, request); });
}

// Returns the reply of \a answer, and writes refusals to the audit log.
Reply CServerDataPtr::Guarded(const Request &request, const std::function<Reply()> &answer)
{
    try {
        return answer();
    } catch (const Refused &refusal) {
        WriteRefusal(request, refusal.status);
        throw;
    } catch (const UnstorableText &) {
        return Refuse(request, kBadRequest);
    } catch (const StoreUnavailable &) {
        return Refuse(request, kUnavailable);
    } catch (const StoreTimeout &) {
        return Refuse(request, kTookTooLong);
    } catch (const DatabaseError &) {
        WriteRefusal(request, kServerError);
        throw;
    }
}

// A stranger's body is kept only up to the size of a form: many of them must not fill the memory.
// Throws Refused when it cannot be known who asks.
size_t CServerDataPtr::BodyLimit(const Request &request)
{
    const Found found = Find(request);
    if (!found.entry || found.entry->body_limit <= kFormBytes)
        return kFormBytes;
    try {
        store_.Do([&](CStore &store) { return accounts_.AccountOf(store, request.session); });
    } catch (const StoreUnavailable &) {
        throw Refused(kUnavailable);
    } catch (const std::exception &) {
        return kFormBytes;
    }
    return found.entry->body_limit;
}

Reply CServerDataPtr::Refuse(const Request &request, int status)
{
    WriteRefusal(request, status);
    return Reply::Refusal(status);
}

void CServerDataPtr::WriteStoreState(const std::string &reason)
{
    if (reason.empty())
        audit_.Write(kAuditNotice, "database-back", {});
    else
        audit_.Write(kAuditWarning, "database-lost",
                     {{"reason", QString::fromStdString(reason).simplified().toStdString()}});
}

void CServerDataPtr::WriteRefusal(const Request &request, int status)
{
    audit_.WriteLimited(kAuditNotice, "refused",
                        {{"status", std::to_string(status)},
                         {"method", request.method},
                         {"path", request.path},
                         {"address", request.address}});
}

// What must not be open to other machines unless it is asked for. Empty: all is well.
QString CServerDataPtr::CheckExposure()
{
    const bool is_local = IsLoopback(options_.address);
    if (is_local && options_.proxies.empty())
        return {};
    const bool is_plain = options_.certificate.empty() && !is_local;
    if (is_plain && !options_.is_plain_allowed)
        return QStringLiteral("Passwords would pass the network in plain text on %1. Use a "
                              "certificate, or allow plain HTTP (--plain-http).")
            .arg(QString::fromStdString(options_.address));
    const QStringList open = store_.Do(OpenSampleAccounts);
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

QString SetAccount(const QString &database, const QString &name,
                   const Nim::Base::SecretText &password)
{
    QString error = NoRandomNumbers();
    if (!error.isEmpty())
        return error;
    try {
        const auto store = OpenStore(ReadStoreAddress(database));
        SetDefaults(*store);
        SetAccount(*store, name, password);
    } catch (const Refused &) {
        return QStringLiteral("The name or the password is empty or too long: a name has at most "
                              "%1 bytes, a password %2.")
            .arg(kMaximumName)
            .arg(kMaximumPassword);
    } catch (const std::exception &failure) {
        return CannotUse(database, failure);
    }
    return {};
}

QString CopyDatabase(const QString &from, const QString &to, const CopyProgress &progress)
{
    QString current = from;
    try {
        const StoreAddress source = ReadStoreAddress(from);
        if (source.engine == Engine::Sqlite && !QFile::exists(source.name))
            throw DatabaseError("there is no such file");
        const auto source_store = OpenStore(source);
        current = to;
        const auto target_store = OpenStore(ReadStoreAddress(to));
        CopyRows(*source_store, *target_store, progress);
    } catch (const std::exception &failure) {
        return CannotUse(current, failure);
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
    Stop(); // a second start stops the first
    const ServerOptions &options = d_ptr_->options_;
    try {
        const StoreAddress address = ReadStoreAddress(options.database);
        d_ptr_->store_.Start(
            address, [this](const std::string &reason) { d_ptr_->WriteStoreState(reason); });
        d_ptr_->lists_.Start(address);
        d_ptr_->store_.Do(SetDefaults);
        d_ptr_->store_.Do([&options](CStore &store) {
            if (!options.seed_path.isEmpty())
                Seed(store, options.seed_path, options.seed_rows, options.progress);
            else
                LoadIncidents(store, {}, options.progress);
        });
        error = d_ptr_->CheckExposure();
        if (error.isEmpty())
            error = d_ptr_->front_.Start(options);
    } catch (const std::exception &failure) {
        error = CannotUse(options.database, failure);
    }
    if (!error.isEmpty())
        Stop();
    return error;
}

void CServer::Stop()
{
    d_ptr_->lists_.Stop(); // first: the front waits for its replies
    d_ptr_->front_.Stop(); // its requests wait for the database
    d_ptr_->store_.Stop();
}

int CServer::Port() const
{
    return d_ptr_->front_.Port();
}

} // namespace Server
