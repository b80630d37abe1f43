// SPDX-License-Identifier: MIT
#pragma once

namespace Vantor {

/// \brief Where a paging bar is, and where its buttons lead.
///
/// With a known total it counts pages. Open-ended it keeps the totals that were known last, because
/// hosts see those in a mirrored bar.
class CPageState
{
public:
    enum class Step { Home, Previous, Next, Last };

    [[nodiscard]] int Current() const { return current_; }
    [[nodiscard]] int TotalPages() const { return total_pages_; }
    [[nodiscard]] int TotalRecords() const { return total_records_; }
    [[nodiscard]] bool IsTotalKnown() const { return is_total_known_; }

    /// \brief Once the total is known, the last Reset() counts, also one from before.
    void SetTotalKnown(bool is_known);
    /// \brief The list has been cut into \a pages pages and shows page 1.
    void Reset(int records, int pages);
    /// \brief A host shows \a page of \a records records. A page below 1 counts as 1, a negative
    /// number of records as 0.
    void Deliver(int records, int page, int rows_per_page);
    void GoTo(int page) { current_ = page; }

    /// \brief The page that \a step leads to, without a check of its range: the buttons are the
    /// only guard.
    [[nodiscard]] int PageAfter(Step step) const;
    /// \brief Whether \a step leads to another page, as far as the bar can know.
    [[nodiscard]] bool CanGo(Step step) const;

private:
    int current_ = 1;
    int total_pages_ = 1;
    int total_records_ = 0;
    bool is_total_known_ = false;
    int cut_pages_ = 1; // by the last Reset(), or the totals that were known last
    int cut_records_ = 0;
};

} // namespace Vantor
