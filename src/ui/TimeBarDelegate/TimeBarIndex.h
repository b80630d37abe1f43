// SPDX-License-Identifier: MIT
#pragma once

#include "ui/TimeBarDelegate/TimeBarGeometry.h"

#include <QtGui/QRgba64>

#include <algorithm>
#include <optional>
#include <vector>

namespace Vantor {

class CTimeBarParam;

/// What painting needs of a bar, beside the bar.
struct TimeBarEntry
{
    qint64 start_s;
    qint64 end_s;
    QRgba64 colour;
    const CTimeBarParam *bar; ///< owned by the row
};

[[nodiscard]] inline bool StartsBefore(const TimeBarEntry &a, const TimeBarEntry &b)
{
    return a.start_s < b.start_s;
}

/// \brief The bars of one type, sorted by start, for finding the visible ones among a million.
///
/// The starts are sorted, so a binary search finds the last visible bar. The ends are not sorted:
/// one long recording at the very front may reach into the view. Therefore the greatest end of each
/// 64 and each 4096 bars is kept, and blocks that end before the view are skipped.
///
/// Added bars are sorted in when they are next looked for, so that a thousand additions cost one
/// merge.
class CTimeBarIndex
{
public:
    void Add(const TimeBarEntry &entry) { entries_.push_back(entry); }

    /// \brief All bars, sorted by start; bars of equal start in the order in which they came.
    [[nodiscard]] const std::vector<TimeBarEntry> &Entries() const;
    /// \brief Call \a visit (x1, width, entry) for each visible bar, in order of start, until it
    /// returns false.
    template <class Visit> void ForEachVisible(TimeBarView view, Visit &&visit) const;
    /// \brief The first bar that covers \a seconds, or null. A bar covers its first
    /// second even if it ends there or before.
    [[nodiscard]] const TimeBarEntry *Covering(qint64 seconds) const;
    /// \brief The nearest start before or after \a seconds.
    [[nodiscard]] std::optional<qint64> NearestStart(qint64 seconds, bool is_after) const;

private:
    static constexpr size_t kSmallBlock = 64;
    static constexpr size_t kLargeBlock = 4096;

    void SortIn() const;
    // The first number from `from` on that may pass `is_wanted`, which is asked with the greatest
    // end of a block.
    template <class IsWanted> size_t SkipBlocks(size_t from, IsWanted &&is_wanted) const;

    mutable std::vector<TimeBarEntry> entries_;
    mutable size_t sorted_ = 0; // so many of them are sorted and in the blocks
    mutable std::vector<qint64> small_ends_s_;
    mutable std::vector<qint64> large_ends_s_;
};

template <class IsWanted> size_t CTimeBarIndex::SkipBlocks(size_t from, IsWanted &&is_wanted) const
{
    while (from < entries_.size() && from % kSmallBlock == 0) {
        if (from % kLargeBlock == 0 && !is_wanted(large_ends_s_[from / kLargeBlock]))
            from += kLargeBlock;
        else if (!is_wanted(small_ends_s_[from / kSmallBlock]))
            from += kSmallBlock;
        else
            break;
    }
    return from;
}

template <class Visit> void CTimeBarIndex::ForEachVisible(TimeBarView view, Visit &&visit) const
{
    const std::vector<TimeBarEntry> &entries = Entries();
    const auto is_wanted = [&](qint64 end_s) { return view.XOf(end_s) >= 0; };
    const auto behind =
        std::partition_point(entries.begin(), entries.end(), [&](const TimeBarEntry &entry) {
            return view.XOf(entry.start_s) <= view.width_px;
        });
    const auto end = size_t(behind - entries.begin());
    for (size_t i = SkipBlocks(0, is_wanted); i < end; i = SkipBlocks(i + 1, is_wanted)) {
        const TimeBarEntry &entry = entries[i];
        const double x2 = view.XOf(entry.end_s);
        if (x2 < 0)
            continue;
        const double x1 = view.XOf(entry.start_s);
        if (!visit(x1, TimeBarView::WidthOf(x1, x2), entry))
            return;
    }
}

} // namespace Vantor
