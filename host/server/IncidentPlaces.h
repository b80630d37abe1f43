// SPDX-License-Identifier: MIT
#pragma once

#include "IncidentWalk.h"

#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace Server {

/// \brief What bounds the work for a page. Smaller values are for tests with short lists.
struct IncidentLimits
{
    qint64 counted = 10'000;  ///< rows that pass a filter are counted up to this number
    qint64 skipped = 1'000;   ///< rows that are quicker to skip than to look up
    qint64 distance = 2'048;  ///< keys that are kept are at least so many rows apart
    qint64 between = 100'000; ///< rows between two moments that are quicker to read than an index
    qint64 compared = 500;    ///< rows of an order that are first compared with a filter
};

/// \brief Keys of a column at regular distances, in ascending order, each with its position at one
/// moment. With them a row is found by its position without counting from the first row.
struct IncidentPlaces
{
    std::shared_ptr<const IncidentKeys> keys;             ///< never empty; the first is below all
    std::shared_ptr<const std::vector<qint64>> positions; ///< of the first row from each key on

    /// \brief The row at \a position, from 0, which there must be.
    [[nodiscard]] IncidentKey KeyAt(CIncidentWalk &walk, qint64 position) const;
    /// \brief How many rows are before \a key.
    [[nodiscard]] qint64 PositionOf(CIncidentWalk &walk, const IncidentKey &key) const;
};

/// \brief Keeps the places of all columns for the moments that are in use.
///
/// They are made by one pass over an index when they are first needed; for another moment only the
/// rows between the two are read. Used on several threads.
class CIncidentPlaces
{
public:
    explicit CIncidentPlaces(const IncidentLimits &limits) : limits_(limits) {}

    /// \brief The places of \a column. \a walk is that of the column in ascending order, without a
    /// filter, at \a moment. When it throws because its time is up, the next call goes on from
    /// there.
    [[nodiscard]] IncidentPlaces At(CIncidentWalk &walk, int column, qint64 moment);

private:
    struct Version
    {
        qint64 moment = 0;
        std::shared_ptr<const std::vector<qint64>> positions;
    };

    struct Column
    {
        std::shared_ptr<const IncidentKeys> keys;
        std::list<Version> versions; // of the keys; the last one used is first
    };

    struct Pass
    {
        qint64 moment = 0;
        IncidentKeys keys;
    };

    std::optional<IncidentPlaces> Known(int column, qint64 moment);
    std::optional<IncidentPlaces> FromOther(CIncidentWalk &walk, int column, qint64 moment);
    IncidentPlaces Make(CIncidentWalk &walk, int column, qint64 moment);
    IncidentPlaces Keep(int column, qint64 moment, std::shared_ptr<const IncidentKeys> keys,
                        std::vector<qint64> positions);

    [[nodiscard]] qint64 DistanceAt(qint64 moment) const;
    [[nodiscard]] bool Split(CIncidentWalk &walk, qint64 moment, IncidentKeys &keys,
                             std::vector<qint64> &positions) const;

    const IncidentLimits limits_;
    std::mutex mutex_;
    std::map<int, Column> columns_;  // under the mutex
    std::map<int, Pass> unfinished_; // under the mutex
};

} // namespace Server
