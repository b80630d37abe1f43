// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <type_traits>
#include <utility>

namespace Server {

/// \brief A statement failed; the text is the database's.
struct DatabaseError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// \brief The SQLite file, open, on the thread that it was opened on.
class CDatabase
{
public:
    /// \brief Open \a path, which only the owner may read from then on, and bring its tables up to
    /// date. Throws DatabaseError.
    explicit CDatabase(const QString &path);
    ~CDatabase();
    CDatabase(const CDatabase &) = delete;
    CDatabase &operator=(const CDatabase &) = delete;

    /// \brief Run one statement. Throws DatabaseError.
    QSqlQuery Run(const QString &statement, const QVariantList &values = {});

    /// \brief The first column of the first row; invalid when there is none.
    [[nodiscard]] QVariant Value(const QString &statement, const QVariantList &values = {});

    /// \brief Run \a body in one transaction, which is on the disk when this returns, or undone
    /// when it throws.
    template <class Body> auto Write(Body &&body)
    {
        Run(QStringLiteral("BEGIN IMMEDIATE"));
        try {
            if constexpr (std::is_void_v<decltype(body())>) {
                body();
                Run(QStringLiteral("COMMIT"));
            } else {
                auto result = body();
                Run(QStringLiteral("COMMIT"));
                return result;
            }
        } catch (...) {
            RollBack();
            throw;
        }
    }

private:
    void RollBack();

    const QString name_; // of the connection
    QSqlDatabase database_;
};

/// \brief The one thread that uses the database; everybody else hands it work and waits.
class CDatabaseThread
{
public:
    CDatabaseThread() = default;
    ~CDatabaseThread() { Stop(); }
    CDatabaseThread(const CDatabaseThread &) = delete;
    CDatabaseThread &operator=(const CDatabaseThread &) = delete;

    /// \brief Start it and open \a path. Throws DatabaseError.
    void Start(const QString &path);
    /// \brief Finish the work that was handed in, close the database and end.
    void Stop();

    /// \brief Run \a work on the thread and return, or throw, what it does.
    template <class Work> auto Do(Work &&work)
    {
        using Result = decltype(work(std::declval<CDatabase &>()));
        std::packaged_task<Result()> task([this, &work] { return work(*database_); });
        auto result = task.get_future();
        Add([&task] { task(); });
        return result.get();
    }

private:
    void Add(std::function<void()> job);
    void Work();

    std::thread thread_;
    std::unique_ptr<CDatabase> database_; // of the thread
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> jobs_; // under the mutex, as is the next one
    bool is_ending_ = false;
};

} // namespace Server
