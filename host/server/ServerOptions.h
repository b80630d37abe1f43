// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <functional>
#include <string>
#include <vector>

namespace Server {

/// \brief How important a line of the audit log is, by the numbers of syslog (RFC 5424).
enum AuditLevel : int {
    kAuditWarning = 4,
    kAuditNotice = 5,
    kAuditInformation = 6,
};

/// \brief Hears how many rows of a table have been copied.
using CopyProgress = std::function<void(const QString &table, qint64 rows)>;

/// \brief How a server runs.
struct ServerOptions
{
    /// The SQLite file, made when it is missing, whose folder must be there; or
    /// "postgresql://user@host:port/name", see docs/server.md.
    QString database;
    std::string address = "127.0.0.1"; ///< IPv4 or IPv6 address to listen on
    int port = 0;                      ///< 0: any that is free
    QString seed_path;    ///< CSV file for an empty database, with sample accounts; may be empty
    qint64 seed_rows = 0; ///< so many incidents, which vary those of the file; 0: as it has them
    /// Called while Start() loads the list, with the step, and the rows done and in all. May be
    /// empty. Called on one thread.
    std::function<void(const char *what, qint64 done, qint64 total)> progress;
    std::string certificate; ///< PEM; with the key: HTTPS
    std::string private_key; ///< PEM
    /// Addresses of proxies: what they send comes from the client that they name last in
    /// "X-Forwarded-For".
    std::vector<std::string> proxies;
    /// Serve plain HTTP on an address that other machines reach. Anybody on the way can then read
    /// passwords.
    bool is_plain_allowed = false;
    /// Serve accounts that still have their sample passwords to other machines.
    bool are_samples_allowed = false;
    /// Seconds since 1970, for locks, sessions and codes; empty: the clock of
    /// the database, which several servers share. Any thread.
    std::function<qint64()> clock;
    /// The texts of verification codes; empty: four random letters and digits. Any thread.
    std::function<QString()> code_source;
    /// Gets each line of the audit log, one line without secrets: logins, failures, locks, refused
    /// requests, changes of accounts. Empty: they are dropped. Any thread, one call at a time.
    std::function<void(AuditLevel level, const std::string &line)> audit;
};

} // namespace Server
