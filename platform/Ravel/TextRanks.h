// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>
#include <Ravel/RowOrder.h>
#include <Ravel/TextTable.h>

#include <memory>
#include <vector>

namespace Ravel {

class CTextBlock;

/// \brief The rank of each row when rows are sorted by the texts of one column, as
/// QString::compare() does it without case; equal texts share a rank.
class VANTOR_PLATFORM_EXPORT CTextRanks
{
public:
    /// \param rank_of_row  from 0 to the number of ranks - 1.
    /// \param is_mixed     by rank: whether its texts differ in case.
    CTextRanks(const std::vector<int> &rank_of_row, std::vector<bool> is_mixed);

    /// \brief The rank of \a row, 0 to RankCount() - 1.
    [[nodiscard]] int Rank(int row) const
    {
        return few_.empty() ? many_[static_cast<size_t>(row)] : few_[static_cast<size_t>(row)];
    }
    /// \brief How many rows were ranked.
    [[nodiscard]] int RowCount() const
    {
        return static_cast<int>(few_.empty() ? many_.size() : few_.size());
    }
    /// \brief Whether rows of \a rank have different texts, such as "Door" and "door".
    [[nodiscard]] bool IsMixed(int rank) const { return is_mixed_[static_cast<size_t>(rank)]; }
    [[nodiscard]] int RankCount() const
    {
        return static_cast<int>(begins_.size()) - 1;
    } ///< How many different texts, without case, there are.
    /// \brief The first row of each rank while there are few ranks, up to 65,536; otherwise empty.
    [[nodiscard]] const std::vector<int> &FirstRows() const { return first_rows_; }

    /// \brief \a order, which has all rows, sorted; rows of one rank stay in the order they had.
    [[nodiscard]] CRowOrder Sorted(const CRowOrder &order, bool is_descending) const;

private:
    template <class Ranks>
    std::vector<int> Placed(const CRowOrder &order, const Ranks &ranks, bool is_descending) const;

    std::vector<quint16> few_; // up to 65,536 ranks fit into half the memory
    std::vector<int> many_;
    std::vector<bool> is_mixed_;
    std::vector<int> begins_; // how many rows are of a lower rank
    std::vector<int> first_rows_;
};

/// \brief Works out the ranks of one column from its rows, given one after the other.
class CRankBuilder
{
public:
    /// \param column whose texts count, from 0.
    explicit CRankBuilder(int column) : column_(column) {}

    /// \brief Add the next row. Its texts are copied.
    void Add(const CTextBlock &row);
    /// \brief The ranks of the rows that were added; rows without the column come last.
    [[nodiscard]] std::shared_ptr<const CTextRanks> Take();

private:
    int column_;
    CTextTable latin_; // texts in Latin-1
    CTextTable wide_;  // texts in UTF-16
    std::vector<int> text_of_row_;
};

} // namespace Ravel
