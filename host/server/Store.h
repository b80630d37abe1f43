// SPDX-License-Identifier: MIT
#pragma once

#include "HangWatch.h"
#include "Locks.h"
#include "StoreAddress.h"
#include "StoreErrors.h"

#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace Server {

class CStore;

/// \brief The rows that a statement gives. It is used on the store's thread, and is gone before the
/// store is.
class CRows
{
public:
    CRows(CRows &&other) noexcept = default;
    CRows &operator=(CRows &&) = delete;
    ~CRows();

    /// \brief Go to the next row, or to the first. \return false behind the last one.
    bool Next();
    [[nodiscard]] QVariant Value(int column) const { return query_->value(column); }
    /// \brief How many rows the statement has changed.
    [[nodiscard]] int Changed() const { return query_->numRowsAffected(); }

private:
    friend class CStore;
    CRows(CStore &store, QString statement, std::unique_ptr<QSqlQuery> query);

    CStore &store_;
    QString statement_;
    std::unique_ptr<QSqlQuery> query_;
};

/// \brief A connection to the store: a SQLite file, or a PostgreSQL database. It belongs to the
/// thread that made it.
///
/// Statements are written once for both engines, see Translated(). Every write is in Write().
class CStore
{
public:
    /// \brief Connect. A SQLite file is made when it is missing, and only its owner may read it.
    /// OpenStore() also brings the tables up to date. Throws DatabaseError; StoreUnreachable when
    /// trying again later may help.
    explicit CStore(const StoreAddress &address);
    ~CStore();
    CStore(const CStore &) = delete;
    CStore &operator=(const CStore &) = delete;

    [[nodiscard]] Engine Kind() const { return engine_; }

    /// \brief Run one statement. Throws DatabaseError.
    CRows Run(const QString &statement, const QVariantList &values = {});

    /// \brief Run one statement that is not prepared and kept: one that makes tables, or whose text
    /// is used once. Throws DatabaseError.
    void Execute(const QString &statement);

    /// \brief The first column of the first row; invalid without a row.
    [[nodiscard]] QVariant Value(const QString &statement, const QVariantList &values = {});

    [[nodiscard]] bool HasTable(const QString &name);

    /// \brief Run \a body in one transaction, which is on the disk when this returns, or undone
    /// when it throws. When other transactions get in the way, \a body is run again, a few times.
    /// Within another transaction it is a part of that one.
    template <class Body> auto Write(Body &&body)
    {
        if (transaction_ != Transaction::None)
            return body();
        for (int attempt = 1;; ++attempt) {
            try {
                return InTransaction(QStringLiteral("{begin write}"), body);
            } catch (const StoreConflict &conflict) {
                GiveWay(attempt, conflict);
            }
        }
    }

    /// \brief Run \a body, which only reads, and sees one state of the store all the time.
    template <class Body> auto Read(Body &&body)
    {
        if (transaction_ != Transaction::None)
            return body();
        return InTransaction(QStringLiteral("{begin read}"), body);
    }

    /// \brief Until the end of this transaction no other one passes a lock of the same kind and
    /// name. With SQLite every write does so anyway.
    void Lock(LockKind kind, const QString &name);

    /// \brief How long a transaction waits for what others hold, before it fails with StoreBusy.
    /// The preset is a few seconds. When PostgreSQL does not answer a statement for a little longer
    /// than that, the connection is broken off and the statement fails with StoreSilent.
    void SetPatience(std::chrono::milliseconds patience);
    void ResetPatience();

    /// \brief All statements from now on take at most \a limit together, and fail with StoreTimeout
    /// then; 0: there is no limit, as at first. \a is_unwanted says that nobody waits for the
    /// result any more: then they fail at once with SQLite, and with PostgreSQL the next one does.
    /// It is not called between the last statement and the next SetTimeLimit().
    void SetTimeLimit(std::chrono::milliseconds limit, std::function<bool()> is_unwanted = {});

    /// \brief Seconds since 1970 by the clock of the store: PostgreSQL's, which all servers share,
    /// or with SQLite this machine's.
    [[nodiscard]] qint64 Now();

    /// \brief How many transactions may have been stored so far.
    [[nodiscard]] qint64 Commits() const { return commits_; }

private:
    friend class CRows;
    enum class Transaction { None, Open, Failed };

    template <class Body> auto InTransaction(const QString &begin, Body &body)
    {
        Execute(begin);
        transaction_ = Transaction::Open;
        try {
            if constexpr (std::is_void_v<decltype(body())>) {
                body();
                Commit();
            } else {
                auto result = body();
                Commit();
                return result;
            }
        } catch (...) {
            RollBack();
            throw;
        }
    }

    void Open(const StoreAddress &address);
    [[nodiscard]] bool IsTimeOver() const;
    [[nodiscard]] CExpectedAnswer Expect() const;
    void Commit();
    void RollBack();
    static void GiveWay(int attempt, const StoreConflict &conflict);
    void TakeBack(const QString &statement, std::unique_ptr<QSqlQuery> query);
    [[noreturn]] void Fail(std::unique_ptr<QSqlQuery> query);
    [[noreturn]] void Fail(const QSqlError &error);
    [[nodiscard]] std::unique_ptr<QSqlQuery> Prepared(const QString &statement);

    const QString name_; // of the connection
    const Engine engine_;
    QSqlDatabase database_;
    std::unique_ptr<CHangWatch> watch_; // of PostgreSQL
    std::chrono::milliseconds patience_{0};
    std::map<QString, std::unique_ptr<QSqlQuery>> idle_; // prepared statements
    std::vector<std::unique_ptr<QSqlQuery>> spent_;      // let go after the transaction
    Transaction transaction_ = Transaction::None;
    qint64 commits_ = 0;
    qint64 clock_ms_ = 0; // by the store's clock, at that time
    std::chrono::steady_clock::time_point clock_read_;
    std::chrono::milliseconds time_limit_{0};
    std::function<bool()> is_unwanted_;
    std::chrono::steady_clock::time_point deadline_ = std::chrono::steady_clock::time_point::max();
};

} // namespace Server
