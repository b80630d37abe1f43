// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtCore/QStringList>

namespace BusinessCommon {

class CNetStop;

} // namespace BusinessCommon

namespace Client {

/// \brief Which rows of the server's list, and in which order.
struct ListQuery
{
    QString filter;            ///< rows that hold this text, in upper or lower case; empty: all
    int sort_column = -1;      ///< -1: as they came
    bool is_descending = true; ///< with -1: the newest first
};

bool operator==(const ListQuery &a, const ListQuery &b);
inline bool operator!=(const ListQuery &a, const ListQuery &b)
{
    return !(a == b);
}

/// \brief Which page of the server's list is asked for.
struct PageRequest
{
    ListQuery query;
    int page = 1; ///< from 1
    int rows_per_page = 100;
    QString moment; ///< of an earlier page, so that rows that came later do not shift; empty: now
    QString after;  ///< `next` of the page before; empty: the page is found by its number
};

/// Why a page is not there.
enum class PageError {
    None,
    NoReply,    ///< The server cannot be reached.
    Busy,       ///< The server cannot reach its store, or has too much to do: try again.
    TooSlow,    ///< The search took longer than the server allows; its text is too short.
    Unfinished, ///< The same, but the server keeps what it has found: try again.
    Refused,    ///< The server does not know a part of the request, such as the moment.
    LoggedOut,  ///< The session has ended.
    Other
};

/// \brief A page of the server's list, or the reason why it is missing.
struct ServerPage
{
    PageError error = PageError::None;
    int error_code = 0; ///< as CNetCommManager gives it
    QStringList titles;
    QList<QStringList> rows;
    int total = 0;                  ///< rows on all pages
    bool is_total_exact = true;     ///< false: there are more
    QString moment;                 ///< empty: the server keeps no moments
    QString next;                   ///< leads to the next page; empty on the last one or if unknown
    int new_rows = 0;               ///< that came after the moment
    bool are_new_rows_exact = true; ///< false: there are more
};

constexpr int kMostRowsPerPage = 1000; ///< the server gives no more

/// \brief Fetch a page from the management server and wait for it, until \a stop breaks it off. Any
/// thread but the GUI's.
[[nodiscard]] ServerPage FetchPage(const PageRequest &request,
                                   const BusinessCommon::CNetStop &stop);

/// \brief For the user: why the page is not there; empty when it is.
[[nodiscard]] QString PageErrorText(const ServerPage &page);

} // namespace Client

Q_DECLARE_METATYPE(Client::ServerPage)
