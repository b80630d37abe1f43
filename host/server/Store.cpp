// SPDX-License-Identifier: MIT
#include "Store.h"

#include "Dialect.h"
#include "SqliteBits.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QDateTime>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QUuid>
#include <QtSql/QSqlDriver>
#include <QtSql/QSqlError>

#include <algorithm>
#include <array>
#include <random>
#include <thread>

namespace Server {
namespace {

using namespace std::chrono_literals;

#ifdef _WIN32
constexpr int kNotInherited = _O_NOINHERIT;
#else
constexpr int kNotInherited = O_CLOEXEC;
#endif
constexpr int kAttempts = 8;     // of a transaction that meets others
constexpr auto kPatience = 3s;   // of a statement that waits for others
constexpr auto kAnswerTime = 2s; // of PostgreSQL, beyond the patience
constexpr size_t kIdleStatements = 100;
constexpr auto kClockAge = 10s; // then it is read again
constexpr mode_t kPrivate = 0600;

// Write-ahead log: readers of other processes are not kept out, and a killed process leaves a file
// that opens as it was after the last commit. Synchronous "full" makes that true of a power cut
// too.
const char *const kSqliteSetUp[] = {
    "PRAGMA journal_mode = WAL",
    "PRAGMA synchronous = FULL",
    "PRAGMA foreign_keys = ON",
};

// A confirmed write is on the disk, whatever the role's preset is. A server that hangs must not
// keep its locks. Plans are made for the values at hand, because the filters of lists differ.
const char *const kPostgresSetUp[] = {
    "SET client_min_messages = 'error'",
    R"(SELECT set_config('synchronous_commit', 'on', false)
       WHERE current_setting('synchronous_commit') = 'off')",
    "SET idle_in_transaction_session_timeout = '10s'",
    "SET plan_cache_mode = 'force_custom_plan'",
};

// Only the owner may read hashes and layouts, from the file's first moment on. SQLite gives its
// other files the mode of this one.
void MakePrivately(const QString &path)
{
    const int made = ::open(QFile::encodeName(path).constData(),
                            O_CREAT | O_EXCL | O_WRONLY | kNotInherited, kPrivate);
    if (made >= 0)
        ::close(made);
}

// The files of a database that was there; what is no database and was named by mistake keeps its
// mode. Only SQLite may open them, because its locks end when any descriptor is closed.
void MakePrivate(const QString &path)
{
    if (!QFileInfo(path).isFile())
        return;
    for (const char *const ending : {"", "-wal", "-shm"})
        ::chmod((QFile::encodeName(path) + ending).constData(), kPrivate);
}

QString DriverOf(Engine engine)
{
    QString driver = engine == Engine::Sqlite ? QStringLiteral("QSQLITE") : QStringLiteral("QPSQL");
    if (!QSqlDatabase::isDriverAvailable(driver))
        throw DatabaseError(engine == Engine::Sqlite
                                ? "Qt's driver for SQLite is missing: install libqt5sql5-sqlite"
                                : "Qt's driver for PostgreSQL is missing: install libqt5sql5-psql");
    return driver;
}

bool StartsWithOneOf(const QString &code, std::initializer_list<const char *> beginnings)
{
    return std::any_of(beginnings.begin(), beginnings.end(), [&code](const char *beginning) {
        return code.startsWith(QLatin1String(beginning));
    });
}

enum class Failure { Other, Unreachable, Busy, Conflict, Timeout };

// By the codes of SQLite, which may be extended ones.
Failure FailureOfSqlite(int code)
{
    constexpr int kPrimary = 0xff;
    constexpr int kBusy = 5;
    constexpr int kInterrupted = 9;
    const int primary = code & kPrimary;
    return primary == kBusy          ? Failure::Busy
           : primary == kInterrupted ? Failure::Timeout
                                     : Failure::Other;
}

// By the codes of PostgreSQL (appendix "Error Codes" of its manual). An error of the client
// library itself has no code and means that the connection broke off.
Failure FailureOfPostgres(const QString &code)
{
    if (StartsWithOneOf(code, {"40001", "40P01"})) // serialization, deadlock
        return Failure::Conflict;
    if (code == QLatin1String("55P03")) // a lock that is held too long
        return Failure::Busy;
    if (code == QLatin1String("57014"))
        return Failure::Timeout;
    // Connection, too many of them, shut down, idle for too long, a copy that only reads, and a
    // table that a newer server has changed under a prepared statement.
    const bool is_lost =
        code.isEmpty() || StartsWithOneOf(code, {"08", "53300", "57P", "25P03", "25006", "0A000"});
    return is_lost ? Failure::Unreachable : Failure::Other;
}

} // namespace

CRows::CRows(CStore &store, QString statement, std::unique_ptr<QSqlQuery> query)
    : store_(store), statement_(std::move(statement)), query_(std::move(query))
{}

CRows::~CRows()
{
    if (query_)
        store_.TakeBack(statement_, std::move(query_));
}

bool CRows::Next()
{
    if (query_->next())
        return true;
    if (query_->lastError().isValid())
        store_.Fail(std::move(query_));
    return false;
}

CStore::CStore(const StoreAddress &address)
    : name_(QUuid::createUuid().toString()), engine_(address.engine),
      database_(QSqlDatabase::addDatabase(DriverOf(engine_), name_))
{
    try {
        Open(address);
    } catch (...) {
        database_ = {};
        QSqlDatabase::removeDatabase(name_);
        throw;
    }
}

CStore::~CStore()
{
    // Delete the connection first: otherwise each prepared statement would send a last command to a
    // server that may be gone.
    {
        const CExpectedAnswer goodbye = Expect();
        database_ = {};
        QSqlDatabase::removeDatabase(name_);
    }
}

// Not for the first words on a new connection, which has a time limit of its own.
CExpectedAnswer CStore::Expect() const
{
    return {watch_.get(), patience_ + kAnswerTime};
}

void CStore::Open(const StoreAddress &address)
{
    if (engine_ == Engine::Sqlite)
        MakePrivately(address.name);
    database_.setDatabaseName(address.name);
    if (engine_ == Engine::Postgres) {
        database_.setHostName(address.host);
        database_.setPort(address.port);
        database_.setUserName(address.user);
        database_.setConnectOptions(address.options);
    }
    if (!database_.open()) {
        const std::string text = database_.lastError().text().toStdString();
        if (engine_ == Engine::Postgres)
            throw StoreUnreachable(text);
        throw DatabaseError(text);
    }
    if (engine_ == Engine::Postgres)
        watch_ = std::make_unique<CHangWatch>(*database_.driver());
    ResetPatience();
    if (engine_ == Engine::Sqlite) {
        AddHasBit(*database_.driver());
        for (const char *const statement : kSqliteSetUp)
            Execute(QLatin1String(statement));
        MakePrivate(address.name);
        return;
    }
    for (const char *const statement : kPostgresSetUp)
        Execute(QLatin1String(statement));
    if (Value(QStringLiteral("SELECT current_setting('server_encoding')")).toString()
        != QLatin1String("UTF8"))
        throw DatabaseError("the database's encoding is not UTF8");
}

std::unique_ptr<QSqlQuery> CStore::Prepared(const QString &statement)
{
    const auto idle = idle_.find(statement);
    if (idle != idle_.end()) {
        auto query = std::move(idle->second);
        idle_.erase(idle);
        return query;
    }
    auto query = std::make_unique<QSqlQuery>(database_);
    // PostgreSQL's rows would come one by one, too, and be lost with the next statement.
    query->setForwardOnly(engine_ == Engine::Sqlite);
    if (!query->prepare(Translated(statement, engine_)))
        Fail(std::move(query));
    return query;
}

CRows CStore::Run(const QString &statement, const QVariantList &values)
{
    for (const QVariant &value : values)
        if (value.type() == QVariant::String && value.toString().contains(QChar(0)))
            throw UnstorableText("a text holds the character U+0000");
    if (IsTimeOver())
        throw StoreTimeout("the time limit is over");
    const CExpectedAnswer answer = Expect();
    auto query = Prepared(statement);
    for (int i = 0; i < values.size(); ++i)
        query->bindValue(i, values.at(i));
    if (!query->exec())
        Fail(std::move(query));
    return {*this, statement, std::move(query)};
}

void CStore::Execute(const QString &statement)
{
    const CExpectedAnswer answer = Expect();
    QSqlQuery query(database_);
    if (!query.exec(Translated(statement, engine_)))
        Fail(query.lastError());
}

QVariant CStore::Value(const QString &statement, const QVariantList &values)
{
    CRows rows = Run(statement, values);
    return rows.Next() ? rows.Value(0) : QVariant();
}

bool CStore::HasTable(const QString &name)
{
    return Value(QStringLiteral("{has table}"), {name}).isValid();
}

void CStore::Lock(LockKind kind, const QString &name)
{
    if (engine_ == Engine::Postgres)
        Run(QStringLiteral("SELECT pg_advisory_xact_lock(CAST(? AS INTEGER), hashtext(?))"),
            {int(kind), name});
}

void CStore::SetPatience(std::chrono::milliseconds patience)
{
    patience_ = patience; // first: also for the statement itself
    Execute(QStringLiteral("{patience}%1").arg(patience.count()));
}

void CStore::ResetPatience()
{
    SetPatience(kPatience);
}

bool CStore::IsTimeOver() const
{
    return std::chrono::steady_clock::now() > deadline_ || (is_unwanted_ && is_unwanted_());
}

// SQLite asks after every so many steps whether to go on. PostgreSQL's limit is that of a
// statement.
void CStore::SetTimeLimit(std::chrono::milliseconds limit, std::function<bool()> is_unwanted)
{
    is_unwanted_ = std::move(is_unwanted);
    using Clock = std::chrono::steady_clock;
    deadline_ = limit.count() > 0 ? Clock::now() + limit : Clock::time_point::max();
    if (engine_ == Engine::Postgres) {
        if (limit != time_limit_)
            Execute(QStringLiteral("SET statement_timeout = %1").arg(limit.count()));
    } else if (time_limit_.count() == 0) {
        constexpr int kSteps = 10'000;
        const QVariant handle = database_.driver()->handle();
        sqlite3_progress_handler(
            *static_cast<sqlite3 *const *>(handle.constData()), kSteps,
            [](void *store) { return static_cast<CStore *>(store)->IsTimeOver() ? 1 : 0; }, this);
    }
    time_limit_ = limit;
}

qint64 CStore::Now()
{
    if (engine_ == Engine::Sqlite)
        return QDateTime::currentSecsSinceEpoch();
    constexpr qint64 kMillisecondsPerSecond = 1000;
    const auto now = std::chrono::steady_clock::now();
    if (clock_ms_ == 0 || now - clock_read_ > kClockAge) {
        clock_ms_ = Value(QStringLiteral("SELECT CAST(extract(epoch FROM clock_timestamp()) * 1000 "
                                         "AS BIGINT)"))
                        .toLongLong();
        clock_read_ = now;
    }
    const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(now - clock_read_);
    return (clock_ms_ + passed.count()) / kMillisecondsPerSecond;
}

void CStore::Commit()
{
    // After a failed statement PostgreSQL would accept the commit, and undo the transaction.
    if (transaction_ == Transaction::Failed)
        throw DatabaseError("a transaction with a failed statement cannot be stored");
    ++commits_;
    Execute(QStringLiteral("COMMIT"));
    transaction_ = Transaction::None;
    const CExpectedAnswer answer = Expect();
    spent_.clear();
}

void CStore::RollBack()
{
    const CExpectedAnswer answer = Expect();
    QSqlQuery query(database_);
    // It fails where the database has rolled back itself, or is gone: then the statements go later.
    if (query.exec(QStringLiteral("ROLLBACK")))
        spent_.clear();
    transaction_ = Transaction::None;
}

// Waits longer each time, and not as long as others that met the same conflict.
void CStore::GiveWay(int attempt, const StoreConflict &conflict)
{
    if (attempt >= kAttempts)
        throw StoreBusy(conflict.what());
    thread_local std::minstd_rand random(std::random_device{}());
    std::uniform_int_distribution<int> wait(1, 1 << attempt);
    std::this_thread::sleep_for(std::chrono::milliseconds(wait(random)));
}

// PostgreSQL lets no statement go between a failed statement and the end of its transaction.
void CStore::TakeBack(const QString &statement, std::unique_ptr<QSqlQuery> query)
{
    const CExpectedAnswer answer = Expect();
    query->finish();
    if (idle_.size() < kIdleStatements && idle_.count(statement) == 0)
        idle_[statement] = std::move(query);
    else if (transaction_ != Transaction::None)
        spent_.push_back(std::move(query));
}

void CStore::Fail(std::unique_ptr<QSqlQuery> query)
{
    const QSqlError error = query->lastError();
    spent_.push_back(std::move(query));
    Fail(error);
}

void CStore::Fail(const QSqlError &error)
{
    if (transaction_ == Transaction::Open)
        transaction_ = Transaction::Failed;
    if (watch_ && watch_->HasBrokenOff())
        throw StoreSilent("the database did not answer in time");
    const std::string text = error.text().toStdString();
    const QString code = error.nativeErrorCode();
    switch (engine_ == Engine::Sqlite ? FailureOfSqlite(code.toInt()) : FailureOfPostgres(code)) {
    case Failure::Unreachable:
        throw StoreUnreachable(text);
    case Failure::Busy:
        throw StoreBusy(text);
    case Failure::Conflict:
        throw StoreConflict(text);
    case Failure::Timeout:
        throw StoreTimeout(text);
    case Failure::Other:
        break;
    }
    throw DatabaseError(text);
}

} // namespace Server
