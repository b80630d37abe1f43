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
        entries_of_type[bar.iTimeType].push_back({bar.dtStart, bar.dtEnd, bar.barColor});
    }
    for (auto it = entries_of_type.cbegin(); it != entries_of_type.cend(); ++it)
        index_of_type_[it.key()].Merge(it.value());
    Sort(keys);
}

void CTimeBarRow::Sort(const std::vector<Key> &keys)
{
    size_t old = starts_s_.size();
    size_t left = keys.size();
    size_t place = old + left;
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
    added.reserve(left);
    for (const Key &key : keys)
        added.emplace_back(row[key.number].GetDataPtr());
    starts_s_.resize(place);
    while (left > 0) { // from behind: a place is filled when what was there has moved
        --place;
        if (old > 0 && starts_s_[old - 1] > keys[left - 1].start_s) {
            --old;
            starts_s_[place] = starts_s_[old];
            row[place].Swap(row[old]);
        } else {
            --left;
            starts_s_[place] = keys[left].start_s;
            row[place].Swap(added[left]);
        }
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
