// SPDX-License-Identifier: MIT
#pragma once

#include "ui/TimeBarDelegate/TimeBarGeometry.h"

#include <QtGui/QColor>

#include <algorithm>
#include <vector>

namespace Vantor {

// Steps of merging into a sorted row from behind, when `left` new values are still to come.

/// \brief Grow by half at least: a row that grows by thousands is rarely copied, and keeps less
/// room than one that doubles.
template <class Value> void ResizeForMerge(std::vector<Value> &values, size_t size)
{
    if (size > values.capacity())
        values.reserve(values.empty() ? size : size + size / 2);
    values.resize(size);
}

/// \brief Where a new bar belongs among the first \a old: behind those of the same start.
inline size_t PlaceBehind(const std::vector<qint64> &starts_s, size_t old, qint64 start_s)
{
    const auto begin = starts_s.begin();
    return size_t(std::upper_bound(begin, begin + std::ptrdiff_t(old), start_s) - begin);
}

/// \brief Move what stands from \a place to before \a old by \a left places.
template <class Value>
void MakeRoom(std::vector<Value> &values, size_t place, size_t old, size_t left)
{
    const auto begin = values.begin();
    std::move_backward(begin + std::ptrdiff_t(place), begin + std::ptrdiff_t(old),
                       begin + std::ptrdiff_t(old + left));
}

/// What painting needs to know of a bar.
struct TimeBarEntry
{
    qint64 start_s = 0;
    qint64 end_s = 0;
    QColor colour;
};

/// \brief The bars of one type, sorted by start, for finding those on view among a million.
///
/// The starts are sorted, so the last bar on view is found by halving. The ends are not: one long
/// recording at the very front may reach into the view. For them the greatest end of each 64 and
/// each 4096 bars is kept, and blocks that end before the view are stepped over.
class CTimeBarIndex
{
public:
    /// \brief Put in \a entries, sorted by start; each comes behind those of the same start.
    void Merge(const std::vector<TimeBarEntry> &entries);

    /// \brief Call \a visit (x1, x2, colour) for each bar on view, in order of start.
    template <class Visit> void ForEachVisible(const TimeBarView &view, Visit &&visit) const;

    /// \brief The first of the bars that cover \a x of \a view, as its number; -1 for none.
    [[nodiscard]] int FindAt(const TimeBarView &view, double x) const;
    [[nodiscard]] TimeBarEntry At(int number) const;
    [[nodiscard]] const std::vector<qint64> &Starts() const { return starts_s_; }

private:
    static constexpr size_t kSmallBlock = 64;
    static constexpr size_t kLargeBlock = 4096;

    // The number of bars whose start lies left of `x` or there.
    [[nodiscard]] size_t CountUpTo(const TimeBarView &view, double x) const;
    // The first number from `from` on whose block may hold an end at `least_x` or right of it.
    [[nodiscard]] size_t SkipBlocks(size_t from, const TimeBarView &view, double least_x) const;
    void UpdateBlocks(size_t from);

    std::vector<qint64> starts_s_;
    std::vector<qint64> ends_s_;
    std::vector<QColor> colours_;
    std::vector<qint64> small_ends_s_;
    std::vector<qint64> large_ends_s_;
};

inline size_t CTimeBarIndex::CountUpTo(const TimeBarView &view, double x) const
{
    const auto end = std::partition_point(starts_s_.begin(), starts_s_.end(),
                                          [&](qint64 start_s) { return view.XOf(start_s) <= x; });
    return size_t(end - starts_s_.begin());
}

inline size_t CTimeBarIndex::SkipBlocks(size_t from, const TimeBarView &view, double least_x) const
{
    while (from < starts_s_.size() && from % kSmallBlock == 0) {
        if (from % kLargeBlock == 0 && view.XOf(large_ends_s_[from / kLargeBlock]) < least_x)
            from += kLargeBlock;
        else if (view.XOf(small_ends_s_[from / kSmallBlock]) < least_x)
            from += kSmallBlock;
        else
            break;
    }
    return from;
}

template <class Visit>
void CTimeBarIndex::ForEachVisible(const TimeBarView &view, Visit &&visit) const
{
    const size_t end = CountUpTo(view, view.width_px);
    for (size_t i = SkipBlocks(0, view, 0); i < end; i = SkipBlocks(i + 1, view, 0)) {
        const double x2 = view.XOf(ends_s_[i]);
        if (x2 >= 0)
            visit(view.XOf(starts_s_[i]), x2, colours_[i]);
    }
}

} // namespace Vantor
