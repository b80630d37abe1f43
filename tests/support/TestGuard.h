// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>

struct CTestGuardPtr;

/// \brief Stands around every test function: nothing may warn, log at level 5 or leave a window
/// behind unannounced.
///
/// Begin() belongs into init(), and into cleanup():
/// \code
/// const QString fault = guard_.End();
/// QVERIFY2(fault.isEmpty(), qPrintable(fault));
/// \endcode
class CTestGuard
{
public:
    CTestGuard();
    ~CTestGuard();

    /// Trap Qt's warnings and collect the log.
    void Begin();

    /// \brief Release the hooks, the list separator and the other seams, then judge.
    /// \return what went wrong, empty when nothing did.
    [[nodiscard]] QString End();

    /// \brief A Qt warning that holds \a part is meant in this test; not seeing it is a fault.
    void AnnounceWarning(const QString &part);

    /// \brief The same for one that comes as often as a style is applied, be it never.
    void AnnounceWarnings(const QString &part);

    /// \brief Log lines of level 4 and 5 are meant in this test, which looks at LogLines() itself.
    void AnnounceLogLines();

    /// \brief What was logged since Begin(), as "level category message".
    [[nodiscard]] QStringList LogLines() const;

private:
    const std::unique_ptr<CTestGuardPtr> d_ptr_;
};
