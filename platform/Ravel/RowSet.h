// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtAlgorithms>

#include <vector>

namespace Ravel {

/// \brief A set of row numbers, one bit a row.
class CRowSet
{
public:
    /// \brief An empty set that no row fits into.
    CRowSet() = default;
    /// \brief An empty set for the rows 0 to \a rows - 1.
    explicit CRowSet(int rows) : words_((static_cast<size_t>(rows) + 63) / 64) {}

    /// \brief Add \a row, which must not be in the set yet.
    void Add(int row)
    {
        words_[static_cast<size_t>(row) / 64] |= Bit(row);
        ++count_;
    }
    /// \brief Whether \a row, one that fits, was added.
    [[nodiscard]] bool Has(int row) const
    {
        return (words_[static_cast<size_t>(row) / 64] & Bit(row)) != 0;
    }
    [[nodiscard]] int Count() const { return count_; } ///< How many rows were added.

    /// \brief Call \a visit with each row, in ascending order.
    template <class Visit> void ForEach(Visit &&visit) const
    {
        for (size_t word = 0; word < words_.size(); ++word) {
            for (quint64 bits = words_[word]; bits; bits &= bits - 1)
                visit(static_cast<int>(word * 64 + qCountTrailingZeroBits(bits)));
        }
    }

private:
    static quint64 Bit(int row) { return quint64{1} << (static_cast<unsigned>(row) % 64); }

    std::vector<quint64> words_;
    int count_ = 0;
};

} // namespace Ravel
