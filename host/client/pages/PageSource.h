// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QFutureWatcher>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QStringList>

#include <optional>

namespace Client {

/// \brief Which page of the server's list is asked for.
struct PageQuery
{
    int page = 1; ///< from 1
    int rows_per_page = 100;
    QString filter; ///< rows that hold this text, in upper or lower case; empty: all
};

/// \brief A page of the server's list, or why there is none.
struct ServerPage
{
    int page = 1;
    int total = 0; ///< rows on all pages
    QStringList titles;
    QList<QStringList> rows;
    QString error; ///< for the user; empty: the page is there
};

/// \brief Fetches pages of the incident list from the management server, on another thread.
class CPageSource : public QObject
{
    Q_OBJECT

public:
    explicit CPageSource(QObject *parent = nullptr);

    /// \brief Ask for a page. While another one is under way only the last one asked for counts.
    void Ask(const PageQuery &query);

Q_SIGNALS:
    void SignalPage(const Client::ServerPage &page);

private:
    void Start(const PageQuery &query);
    void OnFinished();

    QFutureWatcher<ServerPage> watcher_;
    std::optional<PageQuery> next_;
};

} // namespace Client

Q_DECLARE_METATYPE(Client::ServerPage)
