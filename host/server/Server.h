// SPDX-License-Identifier: MIT
#pragma once

#include "ServerOptions.h"

#include <Nim/Base/SecretText.h>

#include <QtCore/QString>

#include <memory>

namespace Server {

struct CServerDataPtr;

/// \brief Add an account to the database \a database, a path or URL as in
/// ServerOptions, or give it a new password, which ends its
/// sessions. No port is opened; a server may use the database meanwhile.
/// \return an empty text, or why it cannot.
[[nodiscard]] QString SetAccount(const QString &database, const QString &name,
                                 const Nim::Base::SecretText &password);

/// \brief Copy the database \a from into the empty one \a to, from SQLite to PostgreSQL for
/// example. All is copied or nothing. Servers should not write to \a from meanwhile: what they
/// write after the beginning is left out. The tables of \a from are brought up to date first.
/// \return an empty text, or why it cannot.
[[nodiscard]] QString CopyDatabase(const QString &from, const QString &to,
                                   const CopyProgress &progress = {});

/// \brief The management server: accounts, layouts and the incident list over HTTP or HTTPS, kept
/// in a SQLite file or in PostgreSQL.
///
/// It runs on threads of its own. An answered write is on the disk. Drawing verification codes
/// needs a QGuiApplication, which must outlive the server. docs/server.md lists the requests.
class CServer
{
public:
    explicit CServer(ServerOptions options);
    /// Stops it.
    ~CServer();
    CServer(const CServer &) = delete;
    CServer &operator=(const CServer &) = delete;

    /// \brief Open the database and listen. Takes as long as reading the seed does, the first time.
    /// On an address that other machines reach, plain HTTP and sample accounts are refused unless
    /// the options allow them.
    /// \return an empty text, or why it cannot.
    [[nodiscard]] QString Start();

    /// \brief Finish the requests at hand and stop listening.
    void Stop();

    /// \brief The port it listens on; 0 when it does not.
    [[nodiscard]] int Port() const;

private:
    const std::unique_ptr<CServerDataPtr> d_ptr_;
};

} // namespace Server
