// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/ColumnRequests.h"

#include <algorithm>

namespace Vantor {

void CColumnRequests::AddRead()
{
    requests_.push_back({});
}

void CColumnRequests::AddWrite(const QVector<CColumnInfo> &columns)
{
    requests_.push_back({true, columns, false});
}

ColumnRequest CColumnRequests::Take(bool is_write)
{
    const auto request =
        std::find_if(requests_.begin(), requests_.end(),
                     [is_write](const ColumnRequest &r) { return r.is_write == is_write; });
    if (request == requests_.end())
        return {is_write, {}, false};
    ColumnRequest taken = *request;
    requests_.erase(request);
    return taken;
}

bool CColumnRequests::IsWaiting(bool is_write) const
{
    return std::any_of(requests_.begin(), requests_.end(), [is_write](const ColumnRequest &r) {
        return r.is_write == is_write && !r.is_stale;
    });
}

void CColumnRequests::MakeStale()
{
    for (ColumnRequest &request : requests_)
        request.is_stale = true;
}

void CColumnRequests::Clear()
{
    requests_.clear();
}

} // namespace Vantor
