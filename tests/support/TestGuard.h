// SPDX-License-Identifier: MIT
#pragma once

#include "support/Files.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <mutex>

/// \brief Watches one test function: an unannounced warning, a log line of level 4 or 5 and a
/// window that is left behind are failures. CGuardedTest begins and ends it around each function.
class CTestGuard
{
public:
    /// Trap Qt's warnings and collect the log.
    void Begin();

    /// \brief Release the hooks, the list separator and the other seams, then judge.
    /// \return what went wrong; empty when nothing did.
    [[nodiscard]] QString End();

    /// \brief Expect one Qt warning that contains \a part. If it does not come, the test fails.
    void AnnounceWarning(const QString &part) { state_.announced.append(part); }

    /// \brief Allow any number of Qt warnings that contain \a part, or no such warning at all.
    void AnnounceWarnings(const QString &part) { state_.announced_often.append(part); }

    /// \brief Allow log lines of level 4 and 5, because the test checks LogLines() itself.
    void AnnounceLogLines() { state_.is_log_announced = true; }

    /// \brief The log since Begin(), each line as "level category message".
    [[nodiscard]] QStringList LogLines() const;

private:
    static void Collect(QtMsgType type, const QMessageLogContext &context, const QString &text);

    struct State
    {
        QStringList warnings; // under the mutex
        QStringList log;      // under the mutex
        QStringList announced;
        QStringList announced_often;
        bool is_log_announced = false;
        QtMessageHandler previous = nullptr;
    };
    mutable std::mutex mutex_; // messages and log lines come from any thread
    State state_;
};

/// \brief Base of the test classes: guards each function, and gives each an empty folder.
///
/// Override SetUp() and TearDown() instead of declaring init() and cleanup(). A failed check in
/// SetUp() skips the function, as it does in init().
class CGuardedTest : public QObject
{
    Q_OBJECT

protected:
    /// Called before each function, when the guard watches already.
    virtual void SetUp() {}
    /// Called after each function, also after one that failed, before the guard judges.
    virtual void TearDown() {}

    CTestGuard guard_;
    CTestFolder folder_; // made on first use, deleted after each function

private Q_SLOTS:
    void init();
    void cleanup();
};
