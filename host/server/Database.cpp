// SPDX-License-Identifier: MIT
#include "Database.h"

#include <QtCore/QFile>
#include <QtCore/QUuid>
#include <QtSql/QSqlError>

namespace Server {
namespace {

// Write-ahead log: readers of other processes are not kept out, and a killed process leaves a file
// that opens as it was after the last commit. Synchronous "full" makes that true of a power cut
// too.
const char *const kSetUp[] = {
    "PRAGMA busy_timeout = 5000",
    "PRAGMA journal_mode = WAL",
    "PRAGMA synchronous = FULL",
    "PRAGMA foreign_keys = ON",
    "CREATE TABLE IF NOT EXISTS account (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, "
    "password TEXT NOT NULL)",
    "CREATE TABLE IF NOT EXISTS session (token BLOB PRIMARY KEY, account INTEGER NOT NULL "
    "REFERENCES account ON DELETE CASCADE, expires INTEGER NOT NULL) WITHOUT ROWID",
    "CREATE TABLE IF NOT EXISTS attempt (address TEXT, name TEXT, failures INTEGER NOT NULL, "
    "until INTEGER NOT NULL, PRIMARY KEY (address, name)) WITHOUT ROWID",
    "CREATE TABLE IF NOT EXISTS familiar (address TEXT, name TEXT, until INTEGER NOT NULL, "
    "PRIMARY KEY (address, name)) WITHOUT ROWID",
    "CREATE TABLE IF NOT EXISTS setting (name TEXT PRIMARY KEY, value INTEGER NOT NULL) "
    "WITHOUT ROWID",
    "CREATE TABLE IF NOT EXISTS layout (account INTEGER NOT NULL REFERENCES account ON DELETE "
    "CASCADE, name TEXT NOT NULL, type INTEGER NOT NULL, text TEXT NOT NULL, "
    "PRIMARY KEY (account, name, type))",
    "CREATE TABLE IF NOT EXISTS incident_title (position INTEGER PRIMARY KEY, title TEXT NOT NULL)",
};

// Only the owner may read hashes and layouts. SQLite gives its other files the mode of this one.
void MakePrivate(const QString &path)
{
    QFile file(path);
    const bool is_there = file.exists();
    if (is_there || file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
}

} // namespace

CDatabase::CDatabase(const QString &path)
    : name_(QUuid::createUuid().toString()),
      database_(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name_))
{
    MakePrivate(path);
    database_.setDatabaseName(path);
    try {
        if (!database_.open())
            throw DatabaseError(database_.lastError().text().toStdString());
        for (const char *const statement : kSetUp)
            Run(QLatin1String(statement));
    } catch (...) {
        database_ = {};
        QSqlDatabase::removeDatabase(name_);
        throw;
    }
}

CDatabase::~CDatabase()
{
    database_ = {}; // no handle may be left when the connection goes
    QSqlDatabase::removeDatabase(name_);
}

QSqlQuery CDatabase::Run(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(database_);
    query.setForwardOnly(true);
    bool is_done = query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    is_done = is_done && query.exec();
    if (!is_done)
        throw DatabaseError(query.lastError().text().toStdString());
    return query;
}

QVariant CDatabase::Value(const QString &statement, const QVariantList &values)
{
    QSqlQuery query = Run(statement, values);
    return query.next() ? query.value(0) : QVariant();
}

void CDatabase::RollBack()
{
    QSqlQuery query(database_);
    query.exec(QStringLiteral("ROLLBACK")); // SQLite may have rolled back itself
}

void CDatabaseThread::Start(const QString &path)
{
    is_ending_ = false;
    thread_ = std::thread(&CDatabaseThread::Work, this);
    std::promise<void> opened;
    Add([this, &opened, &path] {
        try {
            database_ = std::make_unique<CDatabase>(path);
            opened.set_value();
        } catch (...) {
            opened.set_exception(std::current_exception());
        }
    });
    opened.get_future().get();
}

void CDatabaseThread::Stop()
{
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        is_ending_ = true;
        changed_.notify_one();
    }
    thread_.join();
}

void CDatabaseThread::Add(std::function<void()> job)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    jobs_.push_back(std::move(job));
    changed_.notify_one();
}

void CDatabaseThread::Work()
{
    std::unique_lock<std::mutex> lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return is_ending_ || !jobs_.empty(); });
        if (jobs_.empty())
            break;
        const std::function<void()> job = std::move(jobs_.front());
        jobs_.pop_front();
        lock.unlock();
        job();
        lock.lock();
    }
    lock.unlock();
    database_.reset();
}

} // namespace Server
