// SPDX-License-Identifier: MIT
#pragma once

#include "IncidentCandidates.h"
#include "IncidentPlaces.h"
#include "IncidentTable.h"

#include <QtCore/QStringList>

#include <list>
#include <memory>
#include <mutex>
#include <optional>

namespace Server {

/// \brief Which page of the list is asked for.
struct IncidentQuery
{
    int page = 1; ///< from 1
    int size = 100;
    IncidentOrder order;
    QString filter;
    std::optional<qint64> moment; ///< nothing: now
    std::optional<qint64> after;  ///< the row in front of the page; it is asked for instead of page
};

/// \brief A number of rows, which is exact up to a bound.
struct IncidentCount
{
    qint64 rows = 0;
    bool is_exact = true; ///< else there are more
};

/// \brief A page of the list.
struct IncidentPage
{
    qint64 moment = 0;
    IncidentCount total;
    IncidentCount arrived; ///< since the moment
    IncidentRows rows;
    std::optional<qint64> next; ///< the last row, when others are behind it
};

/// \brief Answers questions about the list; it is used on several threads, each with a store of its
/// own, and remembers what helps with the next page.
class CIncidentPages
{
public:
    explicit CIncidentPages(const IncidentLimits &limits = {}) : limits_(limits), places_(limits) {}

    [[nodiscard]] const IncidentLimits &Limits() const { return limits_; }

    /// \brief The page that \a query asks for, all of one state of the store. Throws Refused when
    /// the list is being loaded, or has not had the moment yet; StoreTimeout when the store's time
    /// limit is over.
    [[nodiscard]] IncidentPage Read(CStore &store, const IncidentQuery &query);

private:
    using Ids = std::vector<qint64>;
    using SharedIds = std::shared_ptr<const Ids>;

    // The known hits of a filter at a moment, in an order.
    struct Hits
    {
        QString key;
        SharedIds ids; // the first ones, one more than the bound when there are more
        std::vector<std::pair<qint64, qint64>> starts; // positions, and the row at each; ascending
    };

    Ids Unfiltered(CStore &store, const IncidentQuery &query, qint64 moment);
    Ids Filtered(CStore &store, const IncidentQuery &query, qint64 moment,
                 const IncidentFilter &filter, IncidentCount &total);
    Ids FilteredFromIndex(CStore &store, const IncidentQuery &query, qint64 moment,
                          const IncidentFilter &filter);
    IncidentKeys NextPassing(CStore &store, const IncidentOrder &order, qint64 moment,
                             const IncidentFilter &filter, std::optional<IncidentKey> from,
                             int count);
    IncidentKey KeyBefore(CIncidentWalk &ascending, const IncidentOrder &order, qint64 moment,
                          qint64 position);
    SharedIds HitsOf(CStore &store, qint64 moment, const IncidentFilter &filter);
    SharedIds SortedHits(CStore &store, const IncidentOrder &order, qint64 moment,
                         const IncidentFilter &filter, const SharedIds &ids);
    std::pair<qint64, qint64> StartBefore(const QString &key, qint64 position);
    void KeepStart(const QString &key, qint64 position, qint64 id);
    SharedIds Remembered(const QString &key);
    void Remember(const QString &key, SharedIds ids);

    const IncidentLimits limits_;
    CIncidentPlaces places_;
    CIncidentCandidates candidates_;
    std::mutex mutex_;
    std::list<Hits> hits_; // under the mutex; the last one used is first
};

} // namespace Server
