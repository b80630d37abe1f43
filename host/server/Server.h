// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <functional>
#include <memory>
#include <string>

namespace Server {

/// \brief How a server runs.
struct ServerOptions
{
    QString data_path; ///< the SQLite file, made when it is missing; its folder must be there
    std::string address = "127.0.0.1"; ///< IPv4 or IPv6 address to listen on
    int port = 0;                      ///< 0: any that is free
    QString seed_path;       ///< CSV file for an empty database, with sample accounts; may be empty
    std::string certificate; ///< PEM; with the key: HTTPS
    std::string private_key; ///< PEM
    /// Seconds since 1970, for locks, sessions and codes; empty: the system's clock. Any thread.
    std::function<qint64()> clock;
    /// The texts of verification codes; empty: four random letters and digits. Any thread.
    std::function<QString()> code_source;
};

struct CServerDataPtr;

/// \brief The management server: accounts, layouts and the incident list over HTTP or HTTPS, kept
/// in one SQLite file.
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
    /// \return an empty text, or why it cannot.
    [[nodiscard]] QString Start();

    /// \brief Add an account, or give it a new password; once the server has started.
    /// \return an empty text, or why it cannot.
    [[nodiscard]] QString SetAccount(const QString &name, const std::string &password);

    /// \brief Finish the requests at hand and stop listening.
    void Stop();

    /// \brief The port it listens on; 0 when it does not.
    [[nodiscard]] int Port() const;

private:
    const std::unique_ptr<CServerDataPtr> d_ptr_;
};

} // namespace Server
