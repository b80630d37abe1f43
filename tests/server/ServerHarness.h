// SPDX-License-Identifier: MIT
#pragma once

#include <BusinessCommon/NetCommManager.h>
#include <ClientComm/RapidJsonProto.h>

#include <server/Server.h>

#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

#include <atomic>
#include <memory>
#include <mutex>
#include <string>

/// \brief One request and its reply, read.
struct Answered
{
    bool is_sent = false;
    Nim::Base::Error::ErrorCode error;
    std::shared_ptr<ClientComm::CRapidJsonProto> document =
        std::make_shared<ClientComm::CRapidJsonProto>();

    int Int(const std::string &path) const { return document->GetInt("/ResponseStatus" + path); }
    std::string Text(const std::string &path) const
    {
        return document->GetString("/ResponseStatus" + path);
    }
};

/// \brief Send through the client's exchange; \a path is the part behind the version.
Answered Ask(const std::string &method, const std::string &path, const std::string &body = {});

/// \brief Log \a user in and set the session. \return false when the server refuses.
bool LogIn(const std::string &user, const std::string &password);

/// \brief An empty database: a file in \a folder, or one of the PostgreSQL server that the variable
/// VANTOR_TEST_DATABASE names.
QString NewDatabase(const QString &folder);

/// \brief A seeded server in this process, with a folder and a clock of its own, that the client's
/// exchange talks to.
class CTestServer
{
public:
    /// \param database a file or URL; empty: a new one.
    explicit CTestServer(QString database = {});

    /// \return an empty text, or why it cannot.
    QString Start(int port = 0);
    /// Let the client's exchange talk to it, with long timeouts and without a session.
    void Use() const;
    void Stop() { server_.reset(); }
    bool IsRunning() const { return server_ != nullptr; }
    int Port() const { return server_->Port(); }
    QString Database() const { return database_; }
    /// \brief The audit log so far, each line as "level text".
    QStringList AuditLines() const;

    std::atomic<qint64> now_s{1'700'000'000};

private:
    QTemporaryDir folder_;
    const QString database_;
    mutable std::mutex mutex_;
    QStringList audit_; // under the mutex
    std::unique_ptr<Server::CServer> server_;
};
