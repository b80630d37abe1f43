// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/ColumnSync.h"

#include "ui/CustomizeColumnButton/ColumnLayout.h"

#include <algorithm>

namespace Vantor {

using Kind = ColumnAction::Kind;

CColumnSync::Actions CColumnSync::OnStart(const QVector<CColumnInfo> &columns)
{
    Restart();
    initial_ = current_ = confirmed_ = columns;
    return Read();
}

CColumnSync::Actions CColumnSync::OnStop()
{
    Restart();
    phase_ = Phase::Stopped;
    return {{Kind::Show}};
}

void CColumnSync::Restart()
{
    requests_.clear();
    held_back_.clear();
    ++generation_;
}

CColumnSync::Actions CColumnSync::OnOpened()
{
    const bool is_known = phase_ == Phase::Ready || phase_ == Phase::Reading;
    return is_known || phase_ == Phase::Stopped ? Actions() : Read();
}

CColumnSync::Actions CColumnSync::Read()
{
    phase_ = Phase::Reading;
    requests_.push_back({});
    return {{Kind::Show}, {Kind::Read}};
}

CColumnSync::Actions CColumnSync::OnChanged(const QVector<CColumnInfo> &columns)
{
    if (!CanBeChanged())
        return {{Kind::Show}};
    current_ = columns;
    requests_.push_back({true, columns});
    return {{Kind::Write, columns}};
}

CColumnSync::Actions CColumnSync::OnAnswer(const ColumnAnswer &answer, bool is_dragging)
{
    Actions actions;
    if (is_dragging || !held_back_.empty())
        held_back_.push_back(answer);
    else
        Apply(answer, actions);
    return actions;
}

CColumnSync::Actions CColumnSync::OnDragEnded()
{
    Actions actions;
    for (const ColumnAnswer &answer : std::exchange(held_back_, {}))
        Apply(answer, actions);
    return actions;
}

void CColumnSync::Apply(const ColumnAnswer &answer, Actions &actions)
{
    switch (answer.kind) {
    case ColumnAnswer::Kind::Failed:
        ApplyFailure(answer, actions);
        return;
    case ColumnAnswer::Kind::Read:
        TakeRequest(false);
        phase_ = IsWaiting(false) ? Phase::Reading : Phase::Ready;
        current_ = confirmed_ = WithColumnLayout(initial_, answer.layout);
        break;
    case ColumnAnswer::Kind::Written:
        const Request request = TakeRequest(true);
        if (!request.columns.isEmpty())
            confirmed_ = request.columns;
        if (phase_ == Phase::Doubtful)
            phase_ = Phase::Ready;
        break;
    }
    actions.push_back({Kind::Show});
    actions.push_back({Kind::Settle});
}

void CColumnSync::ApplyFailure(const ColumnAnswer &answer, Actions &actions)
{
    TakeRequest(answer.is_write);
    if (answer.is_write) {
        // A write that is still outstanding holds this change as well and decides about both.
        if (!IsWaiting(true))
            current_ = confirmed_;
        if (phase_ == Phase::Ready)
            phase_ = Phase::Doubtful;
    } else if (!IsWaiting(false)) {
        phase_ = Phase::Unread;
    }
    actions.push_back({Kind::Message, {}, answer.error});
    actions.push_back({Kind::Show});
    actions.push_back({Kind::Settle});
}

// The request that an answer belongs to. An answer without a request gets an empty one.
CColumnSync::Request CColumnSync::TakeRequest(bool is_write)
{
    const auto request =
        std::find_if(requests_.begin(), requests_.end(),
                     [is_write](const Request &r) { return r.is_write == is_write; });
    if (request == requests_.end())
        return {is_write, {}};
    Request taken = *request;
    requests_.erase(request);
    return taken;
}

bool CColumnSync::IsWaiting(bool is_write) const
{
    return std::any_of(requests_.begin(), requests_.end(),
                       [is_write](const Request &r) { return r.is_write == is_write; });
}

} // namespace Vantor
