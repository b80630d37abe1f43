// SPDX-License-Identifier: MIT
#include "Accounts.h"

#include "CodeImage.h"
#include "Database.h"

#include <ClientComm/RapidJsonProto.h>
#include <Nim/Base/TimeUnits.h>

#include <sodium.h>

#include <QtCore/QByteArray>

#include <algorithm>
#include <array>
#include <new>
#include <vector>

namespace Server {
namespace {

using Nim::Base::kSecondsPerMinute;

constexpr int kFailuresBeforeCode = 2;
constexpr int kAddressFactor = 4; // an address may fail so many times as often as one user there
constexpr qint64 kSessionLife_s = 720 * kSecondsPerMinute;
constexpr size_t kSessionBytes = 32;
constexpr size_t kMaximumName = 256;
constexpr size_t kMaximumPassword = 1024;

struct Limits
{
    bool is_limited = false;
    int failures = 0;
    qint64 lock_s = 0;
};

Limits LimitsOf(CDatabase &database)
{
    const auto value = [&database](const char *name) {
        return database
            .Value(QStringLiteral("SELECT value FROM setting WHERE name = ?"),
                   {QLatin1String(name)})
            .toInt();
    };
    return {value("IPLock/Enable") != 0, std::max(1, value("IPLock/FailCount")),
            std::max(0, value("IPLock/Duration")) * kSecondsPerMinute};
}

// A stolen database must not hold anything that logs in.
QByteArray TokenHash(const std::string &token)
{
    QByteArray hash(crypto_generichash_BYTES, '\0');
    crypto_generichash(
        reinterpret_cast<unsigned char *>(hash.data()), static_cast<size_t>(hash.size()),
        reinterpret_cast<const unsigned char *>(token.data()), token.size(), nullptr, 0);
    return hash;
}

bool IsRight(const QString &hash, const std::string &password)
{
    return crypto_pwhash_str_verify(hash.toLatin1().constData(), password.data(), password.size())
           == 0;
}

} // namespace

QString HashPassword(const std::string &password)
{
    std::array<char, crypto_pwhash_STRBYTES> hash{};
    if (crypto_pwhash_str(hash.data(), password.data(), password.size(),
                          crypto_pwhash_OPSLIMIT_INTERACTIVE, crypto_pwhash_MEMLIMIT_INTERACTIVE)
        != 0)
        throw std::bad_alloc();
    return QLatin1String(hash.data());
}

// One password check on its way. What is answered stands in code and the two numbers behind it.
struct CAccounts::Attempt
{
    QString address;
    QString user;
    QString verify_code;
    QString verify_mark;
    std::string password;
    QString hash;
    bool is_known = false;
    int failures = 0; // of the user, so far
    int code = 0;
    int remaining = -1;
    qint64 lock_left_s = 0;
    QString session;

    ~Attempt() { Nim::Base::Encrypt::Wipe(password); }
};

CAccounts::CAccounts(CDatabaseThread &database, std::function<qint64()> clock,
                     std::function<QString()> code_source)
    : database_(database), clock_(std::move(clock)), code_source_(std::move(code_source))
{}

Reply CAccounts::MakeVerifyCode(const Request &request)
{
    ClientComm::CRapidJsonProto body;
    const bool is_document = body.Load(request.body);
    const std::string user = body.GetString("/VerificationCodeImageRequest/UserName");
    if (!is_document || body.GetCount("/VerificationCodeImageRequest") == 0
        || user.size() > kMaximumName)
        throw Refused(kBadRequest);
    const CVerifyCodes::Code code = database_.Do([&](CDatabase &) {
        return codes_.Make(QString::fromStdString(user), clock_(),
                           code_source_ ? code_source_() : QString());
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
    attempt.user = QString::fromStdString(user);
    attempt.address = QString::fromStdString(request.address);
    attempt.verify_code = QString::fromStdString(body.GetString(root + "VerifyCode")).trimmed();
    attempt.verify_mark = QString::fromStdString(body.GetString(root + "VerifyMark"));

    // The database goes on serving others while the password is hashed.
    if (database_.Do([&](CDatabase &database) { return Begin(database, attempt); })) {
        const bool is_right = IsRight(attempt.hash, attempt.password) && attempt.is_known;
        database_.Do([&](CDatabase &database) { Finish(database, attempt, is_right, is_login); });
    }
    QJsonObject data{{QStringLiteral("CheckResult"), attempt.code == 0 ? kCheckPassed : 0},
                     {QStringLiteral("RemainCount"), attempt.remaining},
                     {QStringLiteral("LockRemainTime"), attempt.lock_left_s}};
    if (!attempt.session.isEmpty())
        data.insert(QStringLiteral("Session"), attempt.session);
    return {kOk, attempt.code == 0 ? 0 : kModuleServer, attempt.code, data};
}

// Whether the password is to be looked at.
bool CAccounts::Begin(CDatabase &database, Attempt &attempt)
{
    if (IsLocked(database, attempt))
        return false;
    if (attempt.remaining >= 0 && attempt.failures >= kFailuresBeforeCode) {
        const auto outcome =
            codes_.Take(attempt.user, attempt.verify_mark, attempt.verify_code, clock_());
        if (outcome != CVerifyCodes::Outcome::Right) {
            attempt.code = outcome == CVerifyCodes::Outcome::Wrong && !attempt.verify_code.isEmpty()
                               ? kWrongVerifyCode
                               : kVerifyCodeNeeded;
            return false;
        }
    }
    const QString hash_of = QStringLiteral("SELECT password FROM account WHERE name = ?");
    const QVariant hash = database.Value(hash_of, {attempt.user});
    attempt.is_known = hash.isValid();
    // An unknown name takes as long as a known one.
    attempt.hash =
        (attempt.is_known ? hash
                          : database.Value(QStringLiteral("SELECT password FROM account LIMIT 1")))
            .toString();
    return true;
}

// Fills in how many failures there were, and how many more there may be.
bool CAccounts::IsLocked(CDatabase &database, Attempt &attempt) const
{
    const Limits limits = LimitsOf(database);
    if (!limits.is_limited)
        return false;
    const qint64 now = clock_();
    QSqlQuery query = database.Run(
        QStringLiteral("SELECT name, failures, until - ? FROM attempt WHERE address = ? AND name "
                       "IN ('', ?) AND until > ?"),
        {now, attempt.address, attempt.user, now});
    attempt.failures = 0;
    while (query.next()) {
        const bool is_user = !query.value(0).toString().isEmpty();
        const int failures = query.value(1).toInt();
        if (is_user)
            attempt.failures = failures;
        if (failures < limits.failures * (is_user ? 1 : kAddressFactor))
            continue;
        if (attempt.code != kUserLocked) // the closer lock is the one to tell of
            attempt.code = is_user ? kUserLocked : kAddressLocked;
        attempt.lock_left_s = std::max(attempt.lock_left_s, query.value(2).toLongLong());
    }
    attempt.remaining = std::max(0, limits.failures - attempt.failures);
    return attempt.code != 0;
}

void CAccounts::Finish(CDatabase &database, Attempt &attempt, bool is_right, bool is_login)
{
    database.Write([&] {
        // Others may have failed meanwhile: a lock counts for every check that ends after it.
        if (IsLocked(database, attempt))
            return;
        if (!is_right) {
            CountFailure(database, attempt);
            return;
        }
        database.Run(QStringLiteral("DELETE FROM attempt WHERE address = ? AND name = ?"),
                     {attempt.address, attempt.user});
        if (is_login)
            attempt.session = NewSession(database, attempt.user);
    });
}

void CAccounts::CountFailure(CDatabase &database, Attempt &attempt) const
{
    const Limits limits = LimitsOf(database);
    if (!limits.is_limited) {
        attempt.code = kWrongPasswordUnlimited;
        return;
    }
    const qint64 now = clock_();
    database.Run(QStringLiteral("DELETE FROM attempt WHERE until <= ?"), {now});
    for (const QString &name : {attempt.user, QString(QLatin1String(""))}) {
        database.Run(QStringLiteral("INSERT INTO attempt VALUES (?, ?, 1, ?) ON CONFLICT DO UPDATE "
                                    "SET failures = failures + 1, until = excluded.until"),
                     {attempt.address, name, now + limits.lock_s});
    }
    if (IsLocked(database, attempt))
        return;
    attempt.code = attempt.failures < kFailuresBeforeCode ? kWrongPassword : kWrongPasswordCodeNext;
}

QString CAccounts::NewSession(CDatabase &database, const QString &user) const
{
    std::array<unsigned char, kSessionBytes> bytes{};
    randombytes_buf(bytes.data(), bytes.size());
    const QByteArray token =
        QByteArray(reinterpret_cast<const char *>(bytes.data()), int(bytes.size()))
            .toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
    database.Run(QStringLiteral("DELETE FROM session WHERE expires <= ?"), {clock_()});
    database.Run(QStringLiteral("INSERT INTO session SELECT ?, id, ? FROM account WHERE name = ?"),
                 {TokenHash(token.toStdString()), clock_() + kSessionLife_s, user});
    return QString::fromLatin1(token);
}

qint64 CAccounts::AccountOf(CDatabase &database, const std::string &session) const
{
    const QVariant account = database.Value(
        QStringLiteral("SELECT account FROM session WHERE token = ? AND expires > ?"),
        {TokenHash(session), clock_()});
    if (!account.isValid())
        throw Refused(kUnauthorized);
    return account.toLongLong();
}

Reply CAccounts::LogOut(const Request &request)
{
    database_.Do([&](CDatabase &database) {
        static_cast<void>(AccountOf(database, request.session));
        database.Write([&] {
            database.Run(QStringLiteral("DELETE FROM session WHERE token = ?"),
                         {TokenHash(request.session)});
        });
    });
    return {};
}

} // namespace Server
