// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtAlgorithms>
#include <QtCore/QtGlobal>

#include <algorithm>
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
    /// \brief All rows from 0 to \a rows - 1.
    [[nodiscard]] static CRowSet All(int rows)
    {
        CRowSet all(rows);
        std::fill(all.words_.begin(), all.words_.end(), ~quint64{0});
        if (rows % 64 != 0)
            all.words_.back() = Bit(rows) - 1;
        all.count_ = rows;
        return all;
    }

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

    /// \brief Add \a rows, which must not be in the set yet.
    void Add(const CRowSet &rows)
    {
        Q_ASSERT(rows.words_.size() <= words_.size());
        for (size_t word = 0; word < rows.words_.size(); ++word)
            words_[word] |= rows.words_[word];
        count_ += rows.count_;
    }
    /// \brief Remove \a rows, all of which must be in the set.
    void Remove(const CRowSet &rows)
    {
        Q_ASSERT(rows.words_.size() <= words_.size());
        for (size_t word = 0; word < rows.words_.size(); ++word)
            words_[word] ^= rows.words_[word];
        count_ -= rows.count_;
    }
    /// \brief The rows for which \a pick returns true.
    template <class Pick> [[nodiscard]] CRowSet Picked(Pick &&pick) const
    {
        CRowSet picked(static_cast<int>(words_.size() * 64));
        for (size_t word = 0; word < words_.size(); ++word) {
            quint64 found = 0;
            for (quint64 bits = words_[word]; bits; bits &= bits - 1) {
                const uint bit = qCountTrailingZeroBits(bits);
                found |= quint64{pick(static_cast<int>(word * 64 + bit)) ? 1U : 0U} << bit;
            }
            picked.words_[word] = found;
            picked.count_ += static_cast<int>(qPopulationCount(found));
        }
        return picked;
    }

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
