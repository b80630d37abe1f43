// SPDX-License-Identifier: MIT
#pragma once

#include "support/Files.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>

struct CTestGuardPtr;

/// \brief Watches one test function: an unannounced warning, a log line of level 4 or 5 and a
/// window that is left behind are failures.
///
/// CGuardedTest begins and ends it around each function. A program without that base does it
/// itself.
class CTestGuard
{
public:
    CTestGuard();
    ~CTestGuard();

    /// Trap Qt's warnings and collect the log.
    void Begin();

    /// \brief Release the hooks, the list separator and the other seams, then judge.
    /// \return what went wrong; empty when nothing did.
    [[nodiscard]] QString End();

    /// \brief Expect one Qt warning that contains \a part. If it does not come, the test fails.
    void AnnounceWarning(const QString &part);

    /// \brief Allow any number of Qt warnings that contain \a part, or no such warning at all.
    void AnnounceWarnings(const QString &part);

    /// \brief Allow log lines of level 4 and 5, because the test checks LogLines() itself.
    void AnnounceLogLines();

    /// \brief The log since Begin(), each line as "level category message".
    [[nodiscard]] QStringList LogLines() const;

private:
    const std::unique_ptr<CTestGuardPtr> d_ptr_;
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
