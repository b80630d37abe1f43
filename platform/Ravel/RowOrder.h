// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QtGlobal>

#include <vector>

namespace Ravel {

class CRowSet;

/// \brief Which row of a source is at which place of a list: a range of rows, or any rows in any
/// order.
///
/// Made for a million rows: a range takes no memory, and the way back from row to place is found by
/// arithmetic, by bisection while rows ascend, or from an index that is made on demand.
class VANTOR_PLATFORM_EXPORT CRowOrder
{
public:
    CRowOrder() = default; ///< No rows.
    /// \brief \a count rows from \a first on.
    static CRowOrder Range(int first, int count);
    /// \brief \a rows as they are; each row at most once.
    explicit CRowOrder(std::vector<int> rows, bool is_ascending = false);

    /// \brief The number of places.
    [[nodiscard]] int Count() const { return is_range_ ? count_ : static_cast<int>(rows_.size()); }
    /// \brief The row at \a place, which must be in 0 to Count() - 1.
    [[nodiscard]] int RowAt(int place) const
    {
        return is_range_ ? first_ + place : rows_[static_cast<size_t>(place)];
    }
    /// \return the place of \a row, or -1 when it is not in the list.
    [[nodiscard]] int PlaceOf(int row) const;
    /// \brief Whether the rows follow one another without a gap, which takes no memory.
    [[nodiscard]] bool IsRange() const { return is_range_; }
    /// \return Count() rows, or null for a range.
    [[nodiscard]] const int *Rows() const { return is_range_ ? nullptr : rows_.data(); }

    /// \brief The rows of this order that are in \a rows, in this order.
    [[nodiscard]] CRowOrder Picked(const CRowSet &rows) const;

    /// \brief Put \a rows, in their order, at \a place.
    void Insert(int place, const std::vector<int> &rows);
    /// \brief Remove \a count places from \a place on.
    void Erase(int place, int count);
    /// \brief Number all rows from \a first_row on by \a difference higher.
    void Renumber(int first_row, int difference);
    /// \brief The first place whose row is not below \a row; only while rows ascend.
    [[nodiscard]] int LowerPlace(int row) const;
    /// \brief The places of the rows \a first_row to \a last_row, ascending.
    [[nodiscard]] std::vector<int> PlacesOf(int first_row, int last_row) const;

    /// \brief The order without the rows at \a places, which ascend.
    [[nodiscard]] CRowOrder Without(const std::vector<int> &places) const;

private:
    void MakeList();
    void FindRange();

    bool is_range_ = true;
    int first_ = 0; // of a range
    int count_ = 0;
    std::vector<int> rows_;
    bool is_ascending_ = true;
    mutable std::vector<int> places_; // by row; empty until it pays
    mutable int searches_ = 0;
};

} // namespace Ravel
