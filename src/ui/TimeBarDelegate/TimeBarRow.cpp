// SPDX-License-Identifier: MIT
#include "ui/TimeBarDelegate/TimeBarRow.h"

#include <algorithm>

namespace Vantor {
bool CTimeBarRow::IsBefore(const Key &a, const Key &b)
{
    return a.start_s != b.start_s ? a.start_s < b.start_s : a.number < b.number;
}

void CTimeBarRow::Append(const QVector<CTimeBarParam> &bars)
{
    if (bars.isEmpty())
        return;
    const int old_count = bars_.size();
    const int count = bars.size();
    bars_ += bars;

    const QVector<CTimeBarParam> &all = bars_;
    std::vector<Key> keys(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i)
        keys[size_t(i)] = {all[old_count + i].Read().dtStart, old_count + i};
    if (!std::is_sorted(keys.begin(), keys.end(), IsBefore))
        std::sort(keys.begin(), keys.end(), IsBefore);

    QHash<int, std::vector<TimeBarEntry>> entries_of_type;
    for (const Key &key : keys) {
        const TimeBarParam &bar = all[key.number].Read();
        entries_of_type[bar.iTimeType].push_back({bar.dtStart, bar.dtEnd, bar.barColor.toRgb()});
    }
    for (auto it = entries_of_type.cbegin(); it != entries_of_type.cend(); ++it)
        index_of_type_[it.key()].Merge(it.value());
    Sort(keys);
}

void CTimeBarRow::Sort(const std::vector<Key> &keys)
{
    size_t old = starts_s_.size();
    const bool is_behind = old == 0 || starts_s_.back() <= keys.front().start_s;
    const bool is_in_order = std::is_sorted(
        keys.begin(), keys.end(), [](const Key &a, const Key &b) { return a.number < b.number; });
    if (is_behind && is_in_order) {
        for (const Key &key : keys)
            starts_s_.push_back(key.start_s);
        return;
    }
    CTimeBarParam *const row = bars_.data(); // first of all: a row that is shared is copied here
    // The new bars in their order, sharing their structures with the places they are in.
    std::vector<CTimeBarParam> added;
    added.reserve(keys.size());
    for (const Key &key : keys)
        added.emplace_back(row[key.number].GetDataPtr());
    ResizeForMerge(starts_s_, old + keys.size());
    for (size_t left = keys.size(); left > 0; --left) { // from behind, block by block
        const size_t place = PlaceBehind(starts_s_, old, keys[left - 1].start_s);
        MakeRoom(starts_s_, place, old, left);
        starts_s_[place + left - 1] = keys[left - 1].start_s;
        for (size_t i = old; i > place; --i)
            row[i - 1 + left].Swap(row[i - 1]);
        row[place + left - 1].Swap(added[left - 1]);
        old = place;
    }
}

void CTimeBarRow::Clear()
{
    bars_.clear();
    starts_s_.clear();
    index_of_type_.clear();
}

const CTimeBarIndex *CTimeBarRow::Index(int type) const
{
    const auto found = index_of_type_.constFind(type);
    return found == index_of_type_.cend() ? nullptr : &*found;
}

int CTimeBarRow::NumberOf(int type, const TimeBarEntry &entry) const
{
    const auto begin = std::lower_bound(starts_s_.begin(), starts_s_.end(), entry.start_s);
    for (auto it = begin; it != starts_s_.end() && *it == entry.start_s; ++it) {
        const int number = int(it - starts_s_.begin());
        const TimeBarParam &bar = bars_[number].Read();
        if (bar.iTimeType == type && bar.dtEnd == entry.end_s)
            return number;
    }
    return -1;
}

} // namespace Vantor
