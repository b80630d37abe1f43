// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace Server {

enum class Engine { Sqlite, Postgres };

/// \brief Where a store is: a SQLite file, or a database of a PostgreSQL server.
struct StoreAddress
{
    Engine engine = Engine::Sqlite;
    QString name; ///< of the file, or of the database
    QString host; ///< name, address or folder of the socket; empty: the library's default
    int port = -1;
    QString user;
    QString options; ///< further parameters, as the client library of PostgreSQL reads them

    /// \brief How messages name it: the file, or the URL as far as a host, a port and a name go.
    [[nodiscard]] QString Text() const;
};

/// \brief Read the path of a SQLite file, or "postgresql://user@host:port/name?parameter=value…".
/// Throws DatabaseError when it is a URL and is wrong, or holds a password: those come from the
/// variable PGPASSWORD or from ~/.pgpass, because everybody can read a command line.
[[nodiscard]] StoreAddress ReadStoreAddress(const QString &text);

} // namespace Server
