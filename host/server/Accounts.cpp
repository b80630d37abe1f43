// SPDX-License-Identifier: MIT
#include "Accounts.h"

#include "AccountRecords.h"
#include "Attempts.h"
#include "Audit.h"
#include "CodeImage.h"
#include "Expiry.h"
#include "StoreThread.h"
#include "VerifyCodes.h"

#include <ClientComm/RapidJsonProto.h>
#include <Nim/Base/SecretText.h>

#include <QtCore/QByteArray>

namespace Server {
namespace {

constexpr int kFailuresBeforeCode = 2;
constexpr qint64 kDropPause_s = 60; // between two times when what has expired is deleted

const char *ResultOf(int code)
{
    switch (code) {
    case 0:
        return "right";
    case kWrongVerifyCode:
    case kVerifyCodeNeeded:
        return "code-needed";
    case kUserLocked:
        return "user-locked";
    case kAddressLocked:
        return "address-locked";
    default:
        return "wrong";
    }
}

} // namespace

// One password check on its way. The answer is the code and the numbers behind it.
struct CAccounts::Attempt
{
    // Takes over the failures. Returns whether there is a lock.
    bool Take(const Standing &standing)
    {
        failures = standing.failures;
        remaining = standing.remaining;
        lock_left_s = standing.lock_left_s;
        code = standing.lock == Lock::None   ? 0
               : standing.lock == Lock::User ? kUserLocked
                                             : kAddressLocked;
        return standing.lock != Lock::None;
    }

    Trier trier;
    QString verify_code;
    QString verify_mark;
    Nim::Base::SecretText password;
    QString hash;
    bool is_known = false;
    int failures = 0;
    int code = 0;
    int remaining = -1;
    qint64 lock_left_s = 0;
    QString session;
};

CAccounts::CAccounts(CStoreThread &store, CAudit &audit, std::function<qint64()> clock,
                     std::function<QString()> code_source)
    : store_(store), audit_(audit), clock_(std::move(clock)), code_source_(std::move(code_source))
{}

qint64 CAccounts::Now(CStore &store) const
{
    return clock_ ? clock_() : store.Now();
}

void CAccounts::DropExpiredAtTimes(CStore &store)
{
    const qint64 now = Now(store);
    if (now < next_drop_s_)
        return;
    next_drop_s_ = now + kDropPause_s;
    sessions_.WriteEnded(store);
    DropExpired(store, now);
}

Reply CAccounts::MakeVerifyCode(const Request &request)
{
    ClientComm::CRapidJsonProto body;
    const bool is_document = body.Load(request.body);
    const std::string user = body.GetString("/VerificationCodeImageRequest/UserName");
    if (!is_document || body.GetCount("/VerificationCodeImageRequest") == 0
        || user.size() > kMaximumName)
        throw Refused(kBadRequest);
    const Trier trier{QString::fromStdString(request.network), QString::fromStdString(user)};
    const VerifyCode code = store_.Do([&](CStore &store) {
        DropExpiredAtTimes(store);
        return store.Write([&] {
            LockCounters(store, trier);
            return Server::MakeVerifyCode(store, trier, Now(store),
                                          code_source_ ? code_source_() : QString());
        });
    });
    const QString image = QString::fromLatin1(DrawCode(code.text).toBase64());
    Reply reply;
    reply.data = QJsonObject{{QStringLiteral("VerificationInfo"),
                              QJsonObject{{QStringLiteral("VerificationCodeImage"), image},
                                          {QStringLiteral("VerificationMark"), code.mark}}}};
    return reply;
}

Reply CAccounts::CheckPassword(const Request &request)
{
    return Check(request, false);
}

Reply CAccounts::LogIn(const Request &request)
{
    return Check(request, true);
}

Reply CAccounts::Check(const Request &request, bool is_login)
{
    ClientComm::CRapidJsonProto body;
    if (!body.Load(request.body))
        throw Refused(kBadRequest);
    const std::string root = is_login ? "/LoginRequest/" : "/CheckPasswordRequest/";
    const std::string user = body.GetString(root + "UserName");
    Attempt attempt;
    attempt.password = body.GetString(root + "PassWord");
    if (user.empty() || user.size() > kMaximumName || attempt.password.empty()
        || attempt.password.size() > kMaximumPassword)
        throw Refused(kBadRequest);
    attempt.trier = {QString::fromStdString(request.network), QString::fromStdString(user)};
    attempt.verify_code = QString::fromStdString(body.GetString(root + "VerifyCode")).trimmed();
    attempt.verify_mark = QString::fromStdString(body.GetString(root + "VerifyMark"));

    // The database goes on serving others while the password is hashed.
    if (store_.Do([&](CStore &store) { return Begin(store, attempt); })) {
        const bool is_right = IsRightPassword(attempt.hash, attempt.password) && attempt.is_known;
        store_.Do([&](CStore &store) { Finish(store, attempt, is_right, is_login); });
    }
    WriteAudit(attempt, request, is_login);
    QJsonObject data{{QStringLiteral("CheckResult"), attempt.code == 0 ? kCheckPassed : 0},
                     {QStringLiteral("RemainCount"), attempt.remaining},
                     {QStringLiteral("LockRemainTime"), attempt.lock_left_s}};
    if (!attempt.session.isEmpty())
        data.insert(QStringLiteral("Session"), attempt.session);
    return {kOk, attempt.code == 0 ? 0 : kModuleServer, attempt.code, data};
}

// Whether the password may be checked. The try is then counted and on the disk.
bool CAccounts::Begin(CStore &store, Attempt &attempt)
{
    DropExpiredAtTimes(store);
    const LockSettings settings = ReadLockSettings(store);
    return store.Write([&] {
        LockCounters(store, attempt.trier);
        const qint64 now = Now(store);
        if (attempt.Take(StandingOf(store, settings, attempt.trier, now)))
            return false;
        if (settings.is_limited && attempt.failures >= kFailuresBeforeCode) {
            const CodeOutcome outcome = TakeVerifyCode(
                store, attempt.trier.user, attempt.verify_mark, attempt.verify_code, now);
            if (outcome != CodeOutcome::Right) {
                attempt.code = outcome == CodeOutcome::Wrong && !attempt.verify_code.isEmpty()
                                   ? kWrongVerifyCode
                                   : kVerifyCodeNeeded;
                return false;
            }
        }
        CountTry(store, settings, attempt.trier, now);
        attempt.hash = PasswordHashOf(store, attempt.trier.user);
        attempt.is_known = !attempt.hash.isEmpty();
        if (!attempt.is_known) // takes as long as a known one
            attempt.hash = AnyPasswordHash(store);
        return true;
    });
}

void CAccounts::Finish(CStore &store, Attempt &attempt, bool is_right, bool is_login)
{
    const LockSettings settings = ReadLockSettings(store);
    const bool is_done = is_right && store.Write([&] {
        LockCounters(store, attempt.trier);
        if (PasswordHashOf(store, attempt.trier.user) != attempt.hash)
            return false; // the account got a new password meanwhile
        // Others may have failed meanwhile: a lock counts for every check that ends after it.
        const qint64 now = Now(store);
        if (attempt.Take(StandingOf(store, settings, attempt.trier, now, 1)))
            return true;
        if (settings.is_limited)
            TakeBackTry(store, attempt.trier, now);
        if (is_login)
            attempt.session = CSessions::Begin(store, attempt.trier.user, now);
        return true;
    });
    if (is_done || attempt.Take(StandingOf(store, settings, attempt.trier, Now(store))))
        return;
    attempt.code = !settings.is_limited                     ? kWrongPasswordUnlimited
                   : attempt.failures < kFailuresBeforeCode ? kWrongPassword
                                                            : kWrongPasswordCodeNext;
}

void CAccounts::WriteAudit(const Attempt &attempt, const Request &request, bool is_login)
{
    audit_.WriteLimited(attempt.code == 0 ? kAuditInformation : kAuditNotice,
                        is_login ? "login" : "check-password",
                        {{"user", attempt.trier.user.toStdString()},
                         {"address", request.address},
                         {"result", ResultOf(attempt.code)}});
}

qint64 CAccounts::AccountOf(CStore &store, const std::string &session) const
{
    return sessions_.AccountOf(store, session, Now(store));
}

Reply CAccounts::LogOut(const Request &request)
{
    const qint64 account = store_.Do([&](CStore &store) {
        const qint64 found = AccountOf(store, request.session);
        sessions_.End(store, request.session);
        return found;
    });
    audit_.Write(kAuditInformation, "logout",
                 {{"account", std::to_string(account)}, {"address", request.address}});
    return {};
}

} // namespace Server
