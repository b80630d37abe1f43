// SPDX-License-Identifier: MIT
#include "ui/TimeBarDelegate/TimeBarIndex.h"

namespace Vantor {

void CTimeBarIndex::Merge(const std::vector<TimeBarEntry> &entries)
{
    size_t old = starts_s_.size();
    ResizeForMerge(starts_s_, old + entries.size());
    ResizeForMerge(ends_s_, old + entries.size());
    ResizeForMerge(colours_, old + entries.size());
    for (size_t left = entries.size(); left > 0; --left) { // from behind, block by block
        const TimeBarEntry &entry = entries[left - 1];
        const size_t place = PlaceBehind(starts_s_, old, entry.start_s);
        MakeRoom(starts_s_, place, old, left);
        MakeRoom(ends_s_, place, old, left);
        MakeRoom(colours_, place, old, left);
        starts_s_[place + left - 1] = entry.start_s;
        ends_s_[place + left - 1] = entry.end_s;
        colours_[place + left - 1] = entry.colour;
        old = place;
    }
    UpdateBlocks(old);
}

void CTimeBarIndex::UpdateBlocks(size_t from)
{
    const auto update = [](std::vector<qint64> &blocks, const std::vector<qint64> &values,
                           size_t size, size_t first_value) {
        blocks.resize((values.size() + size - 1) / size);
        for (size_t block = first_value / size; block < blocks.size(); ++block) {
            const auto begin = values.begin() + std::ptrdiff_t(block * size);
            const auto end =
                values.begin() + std::ptrdiff_t(std::min((block + 1) * size, values.size()));
            blocks[block] = *std::max_element(begin, end);
        }
    };
    update(small_ends_s_, ends_s_, kSmallBlock, from);
    update(large_ends_s_, small_ends_s_, kLargeBlock / kSmallBlock, from / kSmallBlock);
}

int CTimeBarIndex::FindAt(const TimeBarView &view, double x) const
{
    const size_t end = CountUpTo(view, x);
    const auto covers = [&](size_t i) {
        const double x1 = view.XOf(starts_s_[i]);
        const double x2 = view.XOf(ends_s_[i]);
        return view.IsVisible(x1, x2) && x1 + TimeBarView::WidthOf(x1, x2) > x;
    };
    size_t found = end;
    for (size_t i = SkipBlocks(0, view, x); i < found; i = SkipBlocks(i + 1, view, x)) {
        if (covers(i))
            found = i;
    }
    // Short bars are a pixel wide and may end left of x all the same.
    for (size_t i = end; i > 0 && view.XOf(starts_s_[i - 1]) + 1.0 > x; --i) {
        if (i - 1 < found && covers(i - 1))
            found = i - 1;
    }
    return found < end ? int(found) : -1;
}

TimeBarEntry CTimeBarIndex::At(int number) const
{
    const auto i = size_t(number);
    return {starts_s_[i], ends_s_[i], colours_[i]};
}

} // namespace Vantor
