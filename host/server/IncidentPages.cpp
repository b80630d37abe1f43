// SPDX-License-Identifier: MIT
#include "IncidentPages.h"

#include "Message.h"
#include "Store.h"

#include <algorithm>
#include <map>

namespace Server {
namespace {

constexpr int kMostArrived = 1000;    // so many new rows are counted
constexpr int kMostSearched = 10'000; // new rows, for a text that no index helps with
constexpr int kSkippedAtOnce = 2000;
constexpr int kMostCompared = 16; // times as many rows of an order as are compared first
constexpr size_t kMostHits = 64;  // lists of at most so many rows as are counted
constexpr size_t kMostStarts = 1000;

std::vector<qint64> IdsOf(const IncidentKeys &keys, size_t skipped = 0)
{
    std::vector<qint64> ids;
    for (size_t i = skipped; i < keys.size(); ++i)
        ids.push_back(keys[i].id);
    return ids;
}

// A list of numbers as one value.
QString ListOf(const std::vector<qint64> &ids, Engine engine)
{
    QStringList texts;
    texts.reserve(int(ids.size()));
    for (const qint64 id : ids)
        texts.append(QString::number(id));
    return (engine == Engine::Sqlite ? QStringLiteral("[%1]") : QStringLiteral("{%1}"))
        .arg(texts.join(QLatin1Char(',')));
}

IncidentRows RowsOf(CStore &store, const std::vector<qint64> &ids)
{
    if (ids.empty())
        return {};
    const int columns = ReadIncidentTitles(store).size();
    QStringList names;
    for (int column = 0; column < columns; ++column)
        names.append(QStringLiteral("c%1").arg(column));
    CRows read =
        store.Run(QStringLiteral("SELECT incident.id, %1 FROM {numbers} CROSS JOIN incident WHERE "
                                 "incident.id = numbers.value")
                      .arg(names.join(QLatin1Char(','))),
                  {ListOf(ids, store.Kind())});
    std::map<qint64, QStringList> by_id;
    while (read.Next()) {
        QStringList &row = by_id[read.Value(0).toLongLong()];
        for (int column = 1; column <= columns; ++column)
            row.append(read.Value(column).toString());
    }
    IncidentRows rows;
    for (const qint64 id : ids)
        rows.push_back(by_id[id]);
    return rows;
}

// The numbers of rows above \a after up to \a until that pass, at most \a count, unsorted.
std::vector<qint64> Search(CStore &store, const IncidentFilter &filter, qint64 after, qint64 until,
                           int count)
{
    const bool has_index = !filter.trigrams.isEmpty();
    const QString id =
        has_index ? QStringLiteral("incident_text.rowid") : QStringLiteral("incident.id");
    const QString source =
        has_index ? QStringLiteral("incident_text CROSS JOIN incident ON incident.id = "
                                   "incident_text.rowid WHERE incident_text MATCH ? AND ")
                  : QStringLiteral("incident WHERE ");
    CRows rows = store.Run(QStringLiteral("SELECT %1 FROM %2%1 > ? AND %1 <= ?%3 LIMIT ?")
                               .arg(id, source, filter.condition),
                           (has_index ? QVariantList{filter.trigrams} : QVariantList{})
                               + QVariantList{after, until} + filter.values + QVariantList{count});
    std::vector<qint64> ids;
    while (rows.Next())
        ids.push_back(rows.Value(0).toLongLong());
    std::sort(ids.begin(), ids.end());
    return ids;
}

// Those of \a keys whose rows pass.
IncidentKeys Passing(CStore &store, const IncidentFilter &filter, const IncidentKeys &keys)
{
    std::vector<qint64> ids = IdsOf(keys);
    CRows rows = store.Run(QStringLiteral("SELECT incident.id FROM {numbers} CROSS JOIN incident "
                                          "WHERE incident.id = numbers.value%1")
                               .arg(filter.condition),
                           QVariantList{ListOf(ids, store.Kind())} + filter.values);
    ids.clear();
    while (rows.Next())
        ids.push_back(rows.Value(0).toLongLong());
    std::sort(ids.begin(), ids.end());
    IncidentKeys passing;
    std::copy_if(keys.begin(), keys.end(), std::back_inserter(passing),
                 [&ids](const IncidentKey &key) {
                     return std::binary_search(ids.begin(), ids.end(), key.id);
                 });
    return passing;
}

IncidentCount Arrived(CStore &store, const IncidentFilter &filter, qint64 moment, qint64 now)
{
    if (filter.text.isEmpty() || moment == now)
        return {now - moment, true};
    const qint64 until = filter.is_indexed ? now : std::min(now, moment + kMostSearched);
    const auto found = qint64(Search(store, filter, moment, until, kMostArrived + 1).size());
    return {std::min<qint64>(found, kMostArrived), found <= kMostArrived && until == now};
}

QString KeyOf(const IncidentFilter &filter, qint64 moment, const IncidentOrder &order)
{
    return QStringLiteral("%1 %2 %3 ").arg(moment).arg(order.column).arg(int(order.is_descending))
           + filter.text;
}

} // namespace

IncidentPage CIncidentPages::Read(CStore &store, const IncidentQuery &query)
{
    return store.Read([&] {
        const IncidentState state = ReadIncidentState(store);
        IncidentPage page;
        page.moment = query.moment.value_or(state.row_count);
        if (!state.is_ready)
            throw Refused(kUnavailable);
        if (page.moment > state.row_count)
            throw Refused(kBadRequest);
        const IncidentFilter filter =
            MakeIncidentFilter(store.Kind(), ReadIncidentTitles(store).size(), query.filter);
        page.total = {page.moment, true};
        Ids ids; // one more than the page has, when others are behind it
        if (page.moment > 0)
            ids = filter.text.isEmpty() ? Unfiltered(store, query, page.moment)
                                        : Filtered(store, query, page.moment, filter, page.total);
        if (ids.size() > size_t(query.size)) {
            ids.resize(size_t(query.size));
            page.next = ids.back();
        }
        page.rows = RowsOf(store, ids);
        page.arrived = Arrived(store, filter, page.moment, state.row_count);
        return page;
    });
}

CIncidentPages::Ids CIncidentPages::Unfiltered(CStore &store, const IncidentQuery &query,
                                               qint64 moment)
{
    const IncidentOrder &order = query.order;
    const qint64 position = qint64(query.page - 1) * query.size;
    const int wanted = query.size + 1;
    if (!query.after && position >= moment)
        return {};
    if (order.column < 0) {
        Ids ids;
        const qint64 step = order.is_descending ? -1 : 1;
        const qint64 first = order.is_descending ? moment - position : 1 + position;
        for (qint64 id = query.after ? *query.after + step : first;
             id >= 1 && id <= moment && ids.size() < size_t(wanted); id += step)
            ids.push_back(id);
        return ids;
    }
    CIncidentWalk walk(store, order, moment);
    if (query.after)
        return IdsOf(walk.Next(walk.KeyOf(*query.after), wanted));
    if (position <= limits_.skipped)
        return IdsOf(walk.Next(std::nullopt, int(position) + wanted), size_t(position));
    CIncidentWalk ascending(store, {order.column, false}, moment);
    return IdsOf(walk.Next(KeyBefore(ascending, order, moment, position), wanted));
}

// The key that sorts directly before the row at \a position. Descending, the groups of equal rows
// come in reverse, but each of them as it is.
IncidentKey CIncidentPages::KeyBefore(CIncidentWalk &ascending, const IncidentOrder &order,
                                      qint64 moment, qint64 position)
{
    const IncidentPlaces places = places_.At(ascending, order.column, moment);
    IncidentKey key;
    if (!order.is_descending) {
        key = places.KeyAt(ascending, position);
    } else {
        key = places.KeyAt(ascending, moment - 1 - position);
        const qint64 begin = places.PositionOf(ascending, {key.number, key.text, 0});
        const auto next = ascending.NextGroup(key);
        qint64 end = moment;
        if (next)
            end = places.PositionOf(ascending, {next->number, next->text, 0});
        key = places.KeyAt(ascending, begin + position - (moment - end));
    }
    --key.id;
    return key;
}

CIncidentPages::Ids CIncidentPages::Filtered(CStore &store, const IncidentQuery &query,
                                             qint64 moment, const IncidentFilter &filter,
                                             IncidentCount &total)
{
    SharedIds ids = HitsOf(store, moment, filter);
    total = {std::min(qint64(ids->size()), limits_.counted),
             qint64(ids->size()) <= limits_.counted};
    if (!total.is_exact)
        return FilteredFromIndex(store, query, moment, filter);
    ids = SortedHits(store, query.order, moment, filter, ids);
    auto begin = ids->end();
    if (query.after) {
        begin = std::find(ids->begin(), ids->end(), *query.after);
        if (begin == ids->end())
            throw Refused(kBadRequest);
        ++begin;
    } else {
        const qint64 position = qint64(query.page - 1) * query.size;
        begin = ids->begin() + std::min<qint64>(position, qint64(ids->size()));
    }
    return {begin, begin + std::min<qint64>(query.size + 1, ids->end() - begin)};
}

// The next keys in an order when many rows pass. Mostly a page is full after a few rows of the
// order. Where it is not, the rows that pass may all be at its far end, so then only rows that
// the text index names are read.
IncidentKeys CIncidentPages::NextPassing(CStore &store, const IncidentOrder &order, qint64 moment,
                                         const IncidentFilter &filter,
                                         std::optional<IncidentKey> from, int count)
{
    if (order.column < 0)
        return CIncidentWalk(store, order, moment, filter).Next(from, count);
    IncidentKeys passing;
    CIncidentWalk all(store, order, moment);
    for (qint64 compared = limits_.compared;
         compared <= limits_.compared * kMostCompared && !candidates_.Knows(filter, moment);
         compared *= 2) {
        const IncidentKeys keys = all.Next(from, int(compared));
        const IncidentKeys more = Passing(store, filter, keys);
        passing.insert(passing.end(), more.begin(), more.end());
        if (passing.size() >= size_t(count)) {
            passing.resize(size_t(count));
            return passing;
        }
        if (qint64(keys.size()) < compared)
            return passing;
        from = keys.back();
    }
    CIncidentWalk walk(store, order, moment, candidates_.Narrowed(store, filter, moment));
    const IncidentKeys more = walk.Next(from, count - int(passing.size()));
    passing.insert(passing.end(), more.begin(), more.end());
    return passing;
}

// Many rows pass: they are read in the order, page by page.
CIncidentPages::Ids CIncidentPages::FilteredFromIndex(CStore &store, const IncidentQuery &query,
                                                      qint64 moment, const IncidentFilter &filter)
{
    CIncidentWalk walk(store, query.order, moment);
    const int wanted = query.size + 1;
    if (query.after)
        return IdsOf(
            NextPassing(store, query.order, moment, filter, walk.KeyOf(*query.after), wanted));
    const QString key = KeyOf(filter, moment, query.order);
    const qint64 position = qint64(query.page - 1) * query.size;
    auto [reached, id] = StartBefore(key, position);
    const qint64 step = query.order.column < 0 && query.order.is_descending ? -1 : 1;
    std::optional<IncidentKey> from;
    const auto begin_at = [&](IncidentKey row) {
        row.id -= step;
        from = row;
    };
    if (id > 0)
        begin_at(walk.KeyOf(id));
    while (reached < position) {
        const int skipped = int(std::min<qint64>(position - reached, kSkippedAtOnce));
        const IncidentKeys keys =
            NextPassing(store, query.order, moment, filter, from, skipped + 1);
        if (keys.size() <= size_t(skipped))
            return {};
        begin_at(keys.back());
        reached += skipped;
        KeepStart(key, reached, keys.back().id);
    }
    Ids ids = IdsOf(NextPassing(store, query.order, moment, filter, from, wanted));
    if (!ids.empty())
        KeepStart(key, position, ids.front());
    if (ids.size() == size_t(wanted))
        KeepStart(key, position + query.size, ids.back());
    return ids;
}

CIncidentPages::SharedIds CIncidentPages::HitsOf(CStore &store, qint64 moment,
                                                 const IncidentFilter &filter)
{
    const QString key = KeyOf(filter, moment, {});
    SharedIds ids = Remembered(key);
    if (!ids) {
        ids =
            std::make_shared<const Ids>(Search(store, filter, 0, moment, int(limits_.counted) + 1));
        Remember(key, ids);
    }
    return ids;
}

CIncidentPages::SharedIds CIncidentPages::SortedHits(CStore &store, const IncidentOrder &order,
                                                     qint64 moment, const IncidentFilter &filter,
                                                     const SharedIds &ids)
{
    if (order.column < 0 && !order.is_descending)
        return ids;
    const QString key = KeyOf(filter, moment, order);
    if (SharedIds sorted = Remembered(key))
        return sorted;
    Ids sorted(ids->rbegin(), ids->rend());
    if (order.column >= 0 && !ids->empty()) {
        const QString direction =
            order.is_descending ? QStringLiteral("DESC") : QStringLiteral("ASC");
        CRows rows = store.Run(
            QStringLiteral("SELECT incident.id FROM {numbers} CROSS JOIN incident WHERE "
                           "incident.id = numbers.value ORDER BY %1 %3, %2 %3, incident.id")
                .arg(IncidentNumber(store.Kind(), order.column),
                     IncidentText(store.Kind(), order.column), direction),
            {ListOf(*ids, store.Kind())});
        sorted.clear();
        while (rows.Next())
            sorted.push_back(rows.Value(0).toLongLong());
    }
    auto shared = std::make_shared<const Ids>(std::move(sorted));
    Remember(key, shared);
    return shared;
}

CIncidentPages::SharedIds CIncidentPages::Remembered(const QString &key)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = std::find_if(hits_.begin(), hits_.end(),
                                    [&key](const Hits &hits) { return hits.key == key; });
    if (found == hits_.end())
        return {};
    hits_.splice(hits_.begin(), hits_, found);
    return hits_.front().ids;
}

void CIncidentPages::Remember(const QString &key, SharedIds ids)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    hits_.push_front({key, std::move(ids), {}});
    if (hits_.size() > kMostHits)
        hits_.pop_back();
}

// The last position up to \a position whose row is known, and that row; 0: none is.
std::pair<qint64, qint64> CIncidentPages::StartBefore(const QString &key, qint64 position)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    for (const Hits &hits : hits_) {
        if (hits.key != key)
            continue;
        const auto behind = std::upper_bound(hits.starts.begin(), hits.starts.end(),
                                             std::pair(position + 1, qint64(0)));
        if (behind != hits.starts.begin())
            return *std::prev(behind);
    }
    return {0, 0};
}

void CIncidentPages::KeepStart(const QString &key, qint64 position, qint64 id)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    auto found = std::find_if(hits_.begin(), hits_.end(),
                              [&key](const Hits &hits) { return hits.key == key; });
    if (found == hits_.end()) {
        hits_.push_front({key, {}, {}});
        if (hits_.size() > kMostHits)
            hits_.pop_back();
        found = hits_.begin();
    }
    const std::pair<qint64, qint64> start(position, id);
    const auto place = std::lower_bound(found->starts.begin(), found->starts.end(), start);
    if (found->starts.size() < kMostStarts && (place == found->starts.end() || *place != start))
        found->starts.insert(place, start);
}

} // namespace Server
