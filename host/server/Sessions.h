// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <set>
#include <string>

namespace Server {

class CDatabase;

/// \brief The sessions of logged-in users. The store holds hashes of their tokens only, because a
/// stolen one must not log anybody in. Used by the database thread.
class CSessions
{
public:
    /// \brief A new session of the account \a name; the oldest ones beyond a limit end. Called
    /// within a transaction.
    [[nodiscard]] QString Begin(CDatabase &database, const QString &name, qint64 now);

    /// \brief The account that \a token belongs to. Throws Refused when there is no such session.
    [[nodiscard]] qint64 AccountOf(CDatabase &database, const std::string &token, qint64 now) const;

    /// \brief End a session. It has ended for this process even when the store cannot be written,
    /// which throws.
    void End(CDatabase &database, const std::string &token);

    /// \brief End all sessions of the account \a name. Called within a transaction.
    static void EndAll(CDatabase &database, const QString &name);

private:
    std::set<QByteArray> ended_; // but perhaps still in the store
};

} // namespace Server
