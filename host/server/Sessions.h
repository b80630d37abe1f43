// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <set>
#include <string>

namespace Server {

class CStore;

/// \brief The sessions of logged-in users. The store holds hashes of their tokens only, because a
/// stolen one must not log anybody in. Used by the store's thread.
class CSessions
{
public:
    /// \brief A new session of the account \a name, which there is; the oldest ones beyond a limit
    /// end. Called within a transaction that holds the lock of the user.
    [[nodiscard]] static QString Begin(CStore &store, const QString &name, qint64 now);

    /// \brief The account that \a token belongs to. Throws Refused when there is no such session.
    [[nodiscard]] qint64 AccountOf(CStore &store, const std::string &token, qint64 now) const;

    /// \brief End a session. It throws when the store cannot be written. This process then takes
    /// the session for ended all the same; for other servers it lasts until WriteEnded() succeeds.
    void End(CStore &store, const std::string &token);

    /// \brief Store the ends that could not be stored.
    void WriteEnded(CStore &store);

    /// \brief End all sessions of the account \a name. Called within a transaction.
    static void EndAll(CStore &store, const QString &name);

private:
    std::set<QByteArray> ended_; // but perhaps still in the store
};

} // namespace Server
