// SPDX-License-Identifier: MIT
#include "IncidentPlaces.h"

#include <algorithm>
#include <limits>

namespace Server {
namespace {

// A page costs skipping half of the distance between two keys; the memory of a column is that of so
// many keys, about 100 bytes each.
constexpr qint64 kMostKeys = 4096;
constexpr int kLongestRun = 8; // distances between two keys, when many rows have arrived there
constexpr qint64 kShareBetween = 10; // of all rows, where a pass over an index takes longer
constexpr size_t kMostVersions = 8;

IncidentKey BelowAll()
{
    return {-std::numeric_limits<double>::infinity(), {}, 0};
}

size_t IndexOf(const IncidentKeys &keys, const IncidentKey &key)
{
    const auto behind = std::upper_bound(keys.begin(), keys.end(), key);
    return behind == keys.begin() ? 0 : size_t(behind - keys.begin() - 1);
}

} // namespace

IncidentKey IncidentPlaces::KeyAt(CIncidentWalk &walk, qint64 position) const
{
    const auto behind = std::upper_bound(positions->begin(), positions->end(), position);
    const auto index = size_t(behind - positions->begin() - 1);
    return walk.Skip((*keys)[index], position - (*positions)[index]).value_or(BelowAll());
}

qint64 IncidentPlaces::PositionOf(CIncidentWalk &walk, const IncidentKey &key) const
{
    const size_t index = IndexOf(*keys, key);
    return (*positions)[index] + walk.Count((*keys)[index], key);
}

qint64 CIncidentPlaces::DistanceAt(qint64 moment) const
{
    return std::max(limits_.distance, moment / kMostKeys);
}

// More keys where so many rows have arrived in one place that finding a row there takes long.
bool CIncidentPlaces::Split(CIncidentWalk &walk, qint64 moment, IncidentKeys &keys,
                            std::vector<qint64> &positions) const
{
    const qint64 distance = DistanceAt(moment);
    IncidentKeys all_keys;
    std::vector<qint64> all_positions;
    for (size_t i = 0; i < keys.size(); ++i) {
        const qint64 end = i + 1 < keys.size() ? positions[i + 1] : moment;
        all_keys.push_back(keys[i]);
        all_positions.push_back(positions[i]);
        if (end - positions[i] <= distance * kLongestRun)
            continue;
        while (all_positions.back() + distance < end) {
            const auto next = walk.Skip(all_keys.back(), distance);
            if (!next)
                break;
            all_positions.push_back(all_positions.back() + distance);
            all_keys.push_back(*next);
        }
    }
    const bool is_split = all_keys.size() > keys.size();
    keys = std::move(all_keys);
    positions = std::move(all_positions);
    return is_split;
}

IncidentPlaces CIncidentPlaces::At(CIncidentWalk &walk, int column, qint64 moment)
{
    if (auto known = Known(column, moment))
        return *known;
    if (auto near = FromOther(walk, column, moment))
        return *near;
    return Make(walk, column, moment);
}

std::optional<IncidentPlaces> CIncidentPlaces::Known(int column, qint64 moment)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    Column &entry = columns_[column];
    const auto version =
        std::find_if(entry.versions.begin(), entry.versions.end(),
                     [moment](const Version &other) { return other.moment == moment; });
    if (version == entry.versions.end())
        return std::nullopt;
    entry.versions.splice(entry.versions.begin(), entry.versions, version);
    return IncidentPlaces{entry.keys, entry.versions.front().positions};
}

// The positions of another moment, changed by the rows that were stored between the two.
std::optional<IncidentPlaces> CIncidentPlaces::FromOther(CIncidentWalk &walk, int column,
                                                         qint64 moment)
{
    std::shared_ptr<const IncidentKeys> keys;
    Version other;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        const Column &entry = columns_[column];
        keys = entry.keys;
        qint64 nearest = std::max(limits_.between, moment / kShareBetween) + 1;
        for (const Version &version : entry.versions) {
            const qint64 distance = std::abs(version.moment - moment);
            if (distance < nearest) {
                nearest = distance;
                other = version;
            }
        }
    }
    if (!other.positions)
        return std::nullopt;
    std::vector<qint64> more(keys->size(), 0);
    for (const IncidentKey &key :
         walk.Stored(std::min(moment, other.moment), std::max(moment, other.moment)))
        ++more[IndexOf(*keys, key)];
    std::vector<qint64> positions = *other.positions;
    const qint64 sign = moment > other.moment ? 1 : -1;
    qint64 before = 0;
    for (size_t i = 0; i < positions.size(); ++i) {
        positions[i] += sign * before;
        before += more[i];
    }
    IncidentKeys split = *keys;
    if (sign > 0 && Split(walk, moment, split, positions))
        keys = std::make_shared<const IncidentKeys>(std::move(split));
    return Keep(column, moment, keys, std::move(positions));
}

IncidentPlaces CIncidentPlaces::Make(CIncidentWalk &walk, int column, qint64 moment)
{
    Pass pass;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        const auto unfinished = unfinished_.find(column);
        if (unfinished != unfinished_.end() && unfinished->second.moment == moment) {
            pass = std::move(unfinished->second);
            unfinished_.erase(unfinished);
        }
    }
    if (pass.keys.empty())
        pass = {moment, {BelowAll()}};
    const qint64 distance = DistanceAt(moment);
    try {
        // The last key may have fewer rows behind it.
        while (qint64(pass.keys.size()) * distance < moment) {
            const auto next = walk.Skip(pass.keys.back(), distance);
            if (!next)
                break;
            pass.keys.push_back(*next);
        }
    } catch (...) {
        const std::lock_guard<std::mutex> lock(mutex_);
        unfinished_[column] = std::move(pass);
        throw;
    }
    std::vector<qint64> positions;
    for (size_t i = 0; i < pass.keys.size(); ++i)
        positions.push_back(qint64(i) * distance);
    return Keep(column, moment, std::make_shared<const IncidentKeys>(std::move(pass.keys)),
                std::move(positions));
}

IncidentPlaces CIncidentPlaces::Keep(int column, qint64 moment,
                                     std::shared_ptr<const IncidentKeys> keys,
                                     std::vector<qint64> positions)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    Column &entry = columns_[column];
    if (entry.keys != keys) {
        entry.keys = keys;
        entry.versions.clear();
    }
    entry.versions.push_front(
        {moment, std::make_shared<const std::vector<qint64>>(std::move(positions))});
    if (entry.versions.size() > kMostVersions)
        entry.versions.pop_back();
    return {std::move(keys), entry.versions.front().positions};
}

} // namespace Server
