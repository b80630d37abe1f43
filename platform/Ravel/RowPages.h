// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

namespace Ravel {

class CRowOrder;

constexpr int kNoPage = 0;
// Something else is under the role, among the item's others. No other page is negative.
constexpr int kForeignPage = -1;

/// \brief The page of each top-level row of a model.
///
/// Most lists are cut into pages in the order of their rows. Then the page of a row follows from
/// its number, and a cut of a million rows writes nothing. Only the other rows have a page in
/// memory.
class CRowPages
{
public:
    [[nodiscard]] int Count() const { return in_order_ + static_cast<int>(others_.size()); }
    [[nodiscard]] int At(int row) const
    {
        return row < in_order_ ? row / rows_per_page_ + 1
                               : others_[static_cast<size_t>(row - in_order_)];
    }
    void Set(int row, int page);

    /// \brief Insert \a count rows without a page before \a row.
    void Insert(int row, int count);
    void Remove(int row, int count);

    /// \brief Give the row at place i of \a order the page i / \a rows_per_page + 1, from the place
    /// \a first_place on. The places before it have these pages already.
    /// \param drop_foreign  called with each row whose kForeignPage is overwritten.
    /// \return whether a row has another page now.
    bool Cut(const CRowOrder &order, int first_place, int rows_per_page,
             const std::function<void(int)> &drop_foreign);

    /// \brief The pages of all rows; good until the next change.
    [[nodiscard]] const std::vector<int> &List();

private:
    bool CutInOrder(int count, int rows_per_page, const std::function<void(int)> &drop_foreign);
    void MakeList(int first_row = 0);

    int in_order_ = 0; // so many rows, from the first on, have the page that follows from their
    int rows_per_page_ = 1; // number
    std::vector<int> others_;
};

} // namespace Ravel
