// SPDX-License-Identifier: MIT
#include "ui/TimeBarDelegate/TimeBarRow.h"

#include <algorithm>

namespace Vantor {
namespace {

// Brings to each place `first` + i the bar of number order[i], by exchanging structures.
void Permute(QVector<CTimeBarParam> &bars, int first, std::vector<int> &order)
{
    for (int start = first; start < bars.size(); ++start) {
        int place = start;
        int from = order[size_t(place - first)];
        while (from != start) {
            bars[place].Swap(bars[from]);
            order[size_t(place - first)] = place;
            place = from;
            from = order[size_t(place - first)];
        }
        order[size_t(place - first)] = place;
    }
}

} // namespace

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
    const auto is_less = [](const Key &a, const Key &b) { return a.start_s < b.start_s; };
    if (!std::is_sorted(keys.begin(), keys.end(), is_less))
        std::stable_sort(keys.begin(), keys.end(), is_less);

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
    // What starts before the first new bar stays where it is.
    const auto old_count = std::ptrdiff_t(starts_s_.size());
    const auto moved_from =
        std::upper_bound(starts_s_.begin(), starts_s_.end(), keys.front().start_s)
        - starts_s_.begin();
    std::vector<int> order;
    order.reserve(size_t(bars_.size() - moved_from));
    auto key = keys.begin();
    for (auto i = moved_from; i < old_count; ++i) {
        for (; key != keys.end() && key->start_s < starts_s_[size_t(i)]; ++key)
            order.push_back(key->number);
        order.push_back(int(i));
    }
    for (; key != keys.end(); ++key)
        order.push_back(key->number);

    for (const Key &added : keys)
        starts_s_.push_back(added.start_s);
    std::inplace_merge(starts_s_.begin() + moved_from, starts_s_.begin() + old_count,
                       starts_s_.end());
    if (!std::is_sorted(order.begin(), order.end()))
        Permute(bars_, int(moved_from), order);
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
