// SPDX-License-Identifier: MIT
#pragma once

#include "link/ServerPages.h"

#include <QtCore/QFutureWatcher>
#include <QtCore/QObject>
#include <QtCore/QThreadPool>

#include <memory>

namespace Client {

/// \brief Fetches pages of the incident list from the management server, on another thread.
class CPageSource : public QObject
{
    Q_OBJECT

public:
    explicit CPageSource(QObject *parent = nullptr);
    ~CPageSource() override;

    /// \brief Send \a request, and break off the one before, whose answer is not emitted any more.
    void Send(int ticket, const PageRequest &request);
    /// \brief Break off the request under way, on the wire too.
    void BreakOff();

Q_SIGNALS:
    void SignalAnswered(int ticket, const Client::ServerPage &page);

private:
    void OnFinished();

    QThreadPool threads_; // a request that is broken off may still end while the next one begins
    std::shared_ptr<BusinessCommon::CNetStop> stop_; // of the request under way
    int ticket_ = 0;
    QFutureWatcher<ServerPage> watcher_;
};

} // namespace Client
