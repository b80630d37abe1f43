// SPDX-License-Identifier: MIT
#include "ui/TimeBarDelegate/TimeBarIndex.h"

namespace Vantor {
namespace {

// From block `first` on, the greatest of each `size` values.
template <class Values, class ValueOf>
void UpdateBlocks(std::vector<qint64> &blocks, const Values &values, size_t size, size_t first,
                  ValueOf &&value_of)
{
    blocks.resize((values.size() + size - 1) / size);
    for (size_t block = first; block < blocks.size(); ++block) {
        const size_t end = std::min((block + 1) * size, values.size());
        qint64 greatest = value_of(values[block * size]);
        for (size_t i = block * size + 1; i < end; ++i)
            greatest = std::max(greatest, value_of(values[i]));
        blocks[block] = greatest;
    }
}

} // namespace

const std::vector<TimeBarEntry> &CTimeBarIndex::Entries() const
{
    if (sorted_ < entries_.size())
        SortIn();
    return entries_;
}

void CTimeBarIndex::SortIn() const
{
    const auto begin = entries_.begin();
    const auto middle = begin + std::ptrdiff_t(sorted_);
    if (!std::is_sorted(middle, entries_.end(), StartsBefore))
        std::stable_sort(middle, entries_.end(), StartsBefore);
    const auto changed = std::upper_bound(begin, middle, *middle, StartsBefore);
    std::inplace_merge(changed, middle, entries_.end(), StartsBefore);
    sorted_ = entries_.size();

    const auto first = size_t(changed - begin);
    UpdateBlocks(small_ends_s_, entries_, kSmallBlock, first / kSmallBlock,
                 [](const TimeBarEntry &entry) { return entry.end_s; });
    UpdateBlocks(large_ends_s_, small_ends_s_, kLargeBlock / kSmallBlock, first / kLargeBlock,
                 [](qint64 end_s) { return end_s; });
}

const TimeBarEntry *CTimeBarIndex::Covering(qint64 seconds) const
{
    const std::vector<TimeBarEntry> &entries = Entries();
    const auto is_wanted = [&](qint64 end_s) { return end_s > seconds; };
    const auto starts_here =
        std::partition_point(entries.begin(), entries.end(),
                             [&](const TimeBarEntry &entry) { return entry.start_s < seconds; });
    const auto end = size_t(starts_here - entries.begin());
    for (size_t i = SkipBlocks(0, is_wanted); i < end; i = SkipBlocks(i + 1, is_wanted)) {
        if (entries[i].end_s > seconds)
            return &entries[i];
    }
    const bool has_start = starts_here != entries.end() && starts_here->start_s == seconds;
    return has_start ? &*starts_here : nullptr;
}

std::optional<qint64> CTimeBarIndex::NearestStart(qint64 seconds, bool is_after) const
{
    const std::vector<TimeBarEntry> &entries = Entries();
    const auto found =
        std::partition_point(entries.begin(), entries.end(), [&](const TimeBarEntry &entry) {
            return is_after ? entry.start_s <= seconds : entry.start_s < seconds;
        });
    if (found == (is_after ? entries.end() : entries.begin()))
        return std::nullopt;
    return (is_after ? found : found - 1)->start_s;
}

} // namespace Vantor
