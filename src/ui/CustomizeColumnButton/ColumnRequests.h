// SPDX-License-Identifier: MIT
#pragma once

#include "ui/CustomizeColumnButton/ColumnInfo.h"

#include <QtCore/QVector>

#include <deque>

namespace Vantor {

/// One request for a column list that was sent and is not answered yet.
struct ColumnRequest
{
    bool is_write = false;
    QVector<CColumnInfo> columns; ///< what a write stores
    bool is_stale = false;        ///< its user has gone, its answer means nothing any more
};

/// \brief The requests that are not answered yet, in the order in which they were sent, which is
/// that of their answers.
class CColumnRequests
{
public:
    void AddRead();
    void AddWrite(const QVector<CColumnInfo> &columns);
    /// \brief Take out what an answer belongs to: the oldest request of its kind. An answer that
    /// nobody asked for gets a request without columns.
    [[nodiscard]] ColumnRequest Take(bool is_write);
    /// \brief Whether a request of that kind, of the present user, is not answered yet.
    [[nodiscard]] bool IsWaiting(bool is_write) const;
    /// \brief The user has changed: what is outstanding belongs to the last one.
    void MakeStale();
    void Clear();

private:
    std::deque<ColumnRequest> requests_;
};

} // namespace Vantor
