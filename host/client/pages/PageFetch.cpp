// SPDX-License-Identifier: MIT
#include "pages/PageFetch.h"

#include <tuple>
#include <utility>

namespace Client {
namespace {

bool IsSamePage(const PageRequest &a, const PageRequest &b)
{
    return a.query == b.query
           && std::tie(a.page, a.rows_per_page, a.moment)
                  == std::tie(b.page, b.rows_per_page, b.moment);
}

bool IsSameList(const PageRequest &a, const PageRequest &b)
{
    return a.query == b.query && a.moment == b.moment && a.rows_per_page == b.rows_per_page;
}

} // namespace

FetchStep CPageFetch::Show(const ListQuery &query, int page, int rows_per_page)
{
    FetchStep step;
    PageRequest wanted{query, page, rows_per_page, {}, {}};
    if (query == shown_.query)
        wanted.moment = page_.moment;
    wanted_ = wanted;
    if (ahead_ && IsSamePage(ahead_->request, wanted)) {
        const Fetched fetched = *std::exchange(ahead_, std::nullopt);
        Accept(step, fetched.request, fetched.page);
        return step;
    }
    phase_ = Phase::Loading;
    if (flight_ && flight_->purpose != Purpose::LookForNew
        && IsSamePage(flight_->request, wanted)) {
        flight_->purpose = Purpose::Show;
        return step;
    }
    ahead_.reset();
    if (IsSameList(shown_, wanted) && page == shown_.page + 1)
        wanted.after = page_.next;
    Send(step, Purpose::Show, wanted);
    return step;
}

FetchStep CPageFetch::ShowNow(const ListQuery &query, int page, int rows_per_page)
{
    wanted_ = {query, page, rows_per_page, {}, {}};
    return Retry();
}

FetchStep CPageFetch::Retry()
{
    FetchStep step;
    phase_ = Phase::Loading;
    ahead_.reset();
    Send(step, Purpose::Show, wanted_);
    return step;
}

FetchStep CPageFetch::LookForNew()
{
    FetchStep step;
    if (phase_ == Phase::Shown && !flight_ && !page_.moment.isEmpty())
        Send(step, Purpose::LookForNew, {shown_.query, 1, 1, page_.moment, {}});
    return step;
}

FetchStep CPageFetch::Outdate()
{
    FetchStep step;
    step.is_breaking_off = flight_.has_value();
    flight_.reset();
    ahead_.reset();
    phase_ = Phase::Loading;
    return step;
}

FetchStep CPageFetch::Forget()
{
    FetchStep step = Outdate();
    phase_ = Phase::Idle;
    wanted_ = {};
    shown_ = {};
    page_ = {};
    return step;
}

FetchStep CPageFetch::Answer(int ticket, const ServerPage &page)
{
    FetchStep step;
    if (!flight_ || flight_->ticket != ticket)
        return step;
    const Flight flight = *std::exchange(flight_, std::nullopt);
    if (flight.purpose != Purpose::Show && page.error == PageError::None) {
        page_.new_rows = page.new_rows;
        page_.are_new_rows_exact = page.are_new_rows_exact;
    }
    switch (flight.purpose) {
    case Purpose::Show:
        if (page.error == PageError::Refused && !flight.request.moment.isEmpty()) {
            // The server has forgotten the moment, so the list is that of now.
            wanted_.moment.clear();
            Send(step, Purpose::Show, wanted_);
        } else {
            Accept(step, flight.request, page);
        }
        break;
    case Purpose::Ahead:
        if (page.error == PageError::None)
            ahead_ = Fetched{flight.request, page};
        break;
    case Purpose::LookForNew:
        break;
    }
    return step;
}

void CPageFetch::Send(FetchStep &step, Purpose purpose, const PageRequest &request)
{
    step.is_breaking_off = flight_.has_value();
    flight_ = Flight{++tickets_, purpose, request};
    step.ticket = tickets_;
    step.sends = request;
}

void CPageFetch::Accept(FetchStep &step, const PageRequest &request, const ServerPage &page)
{
    step.shows = page;
    if (page.error != PageError::None) {
        phase_ = Phase::Failed;
        error_ = page;
        return;
    }
    phase_ = Phase::Shown;
    shown_ = request;
    shown_.moment = page.moment;
    shown_.after.clear();
    page_ = page;
    page_.rows.clear();
    if (!page.next.isEmpty()) {
        PageRequest next = shown_;
        ++next.page;
        next.after = page.next;
        Send(step, Purpose::Ahead, next);
    }
}

} // namespace Client
