// SPDX-License-Identifier: MIT
#pragma once

#include "link/ServerPages.h"

#include <optional>

namespace Client {

/// \brief What a page source has to do, in the order of the members.
struct FetchStep
{
    bool is_breaking_off = false; ///< the request under way
    int ticket = 0;               ///< of `sends`, for the answer
    std::optional<PageRequest> sends;
    std::optional<ServerPage> shows; ///< this page, or why it is not there
};

/// \brief Decides which page of the server's list is asked for, and which answer is shown.
///
/// One request at most is under way. A new wish breaks it off, and an answer that comes
/// nevertheless is dropped. Behind each page that is shown the next one is fetched ahead, until
/// anything changes. All pages of a list are of one moment, so that rows that come meanwhile do not
/// shift them; how many came is NewRows().
class CPageFetch
{
public:
    enum class Phase {
        Idle,    ///< nothing has been asked for
        Loading, ///< what the user wants to see is on its way, or about to be asked for
        Shown,
        Failed
    };

    [[nodiscard]] Phase Now() const { return phase_; }
    /// \brief What the user wants to see.
    [[nodiscard]] const PageRequest &Wanted() const { return wanted_; }
    /// \brief Why it is not there, once it has failed.
    [[nodiscard]] const ServerPage &Error() const { return error_; }
    /// \brief The shown page, without its rows, and its request.
    [[nodiscard]] const PageRequest &Request() const { return shown_; }
    [[nodiscard]] const ServerPage &Page() const { return page_; }

    /// \brief The user wants this page. The moment is kept until \a query changes.
    [[nodiscard]] FetchStep Show(const ListQuery &query, int page, int rows_per_page);
    /// \brief The same at the present moment.
    [[nodiscard]] FetchStep ShowNow(const ListQuery &query, int page, int rows_per_page);
    /// \brief Ask once more for what failed.
    [[nodiscard]] FetchStep Retry();
    /// \brief Ask how many rows have come since the moment; only when there is nothing else to do.
    [[nodiscard]] FetchStep LookForNew();
    /// \brief The user types a new query, so the page on its way will not be shown.
    [[nodiscard]] FetchStep Outdate();
    /// \brief Forget everything: the server is gone, or its user.
    [[nodiscard]] FetchStep Forget();
    /// \brief The request with \a ticket has been answered.
    [[nodiscard]] FetchStep Answer(int ticket, const ServerPage &page);

private:
    enum class Purpose { Show, Ahead, LookForNew };

    struct Flight
    {
        int ticket;
        Purpose purpose;
        PageRequest request;
    };

    struct Fetched
    {
        PageRequest request;
        ServerPage page;
    };

    void Send(FetchStep &step, Purpose purpose, const PageRequest &request);
    void Accept(FetchStep &step, const PageRequest &request, const ServerPage &page);

    Phase phase_ = Phase::Idle;
    PageRequest wanted_;
    PageRequest shown_;
    ServerPage page_;  // shown_, without its rows
    ServerPage error_; // of wanted_
    std::optional<Flight> flight_;
    std::optional<Fetched> ahead_;
    int tickets_ = 0;
};

} // namespace Client
