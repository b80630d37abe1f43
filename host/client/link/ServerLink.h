// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/SecretText.h>

#include <QtCore/QFutureWatcher>
#include <QtCore/QObject>
#include <QtCore/QStringList>

#include <memory>
#include <string>

namespace Server {

class CServer;

} // namespace Server

namespace Client {

/// \brief The management server that the client talks to, its own or another one, and the user who
/// is logged in there.
///
/// Connecting and logging in happen on another thread; the window never waits. There is one link at
/// most in a process. When it goes, what the user changed last is stored first, and the session is
/// ended, in little more than a second.
class CServerLink : public QObject
{
    Q_OBJECT

public:
    explicit CServerLink(QObject *parent = nullptr);
    ~CServerLink() override;

    /// \brief The one there is, for pages; null when the client runs without a server.
    [[nodiscard]] static CServerLink *Current();

    /// \brief Whether \a server is HOST:PORT, http://HOST:PORT or https://HOST:PORT.
    [[nodiscard]] static bool IsAddress(const QString &server);

    /// \brief Connect and log \a user in.
    /// \param server an address as above; empty: a server in this process, on this machine only.
    /// \param folder where a server in this process keeps its data; empty: the user's data folder.
    void Start(const QString &server, const QString &user, const QString &folder = {});
    /// \brief Log another user in, and end the session of the one before, who stays when that
    /// fails.
    void LogIn(const QString &user, const Nim::Base::SecretText &password);
    /// \brief The same for one of Users().
    void SwitchUser(const QString &user);

    /// \brief Whether it connects or logs in just now.
    [[nodiscard]] bool IsConnecting() const { return watcher_.isRunning(); }
    /// \brief The user who is logged in; empty before the first login.
    [[nodiscard]] QString User() const { return user_; }
    /// \brief The accounts to choose from.
    [[nodiscard]] static QStringList Users();

Q_SIGNALS:
    /// Another user is logged in; the receiver must read the settings of that user.
    void SignalUserChanged(const QString &user);
    /// There is no server, or it did not let the user in.
    void SignalFailed(const QString &text);

private:
    struct Outcome
    {
        QString user;
        std::string session;
        QString error;
        std::shared_ptr<Server::CServer> server; // the one that was started
    };

    void OnFinished();

    QFutureWatcher<Outcome> watcher_;
    std::shared_ptr<Server::CServer> server_;
    QString user_;
    QString next_user_; // asked for while another one was being logged in, with next_password_
    Nim::Base::SecretText next_password_;
};

} // namespace Client
