// SPDX-License-Identifier: MIT
#include "Ravel/RowOrder.h"

#include "Ravel/RowSet.h"

#include <algorithm>
#include <numeric>

namespace Ravel {
namespace {

constexpr int kSearchesBeforeIndex = 4; // an index costs about as much as so many searches

} // namespace

CRowOrder CRowOrder::Range(int first, int count)
{
    CRowOrder order;
    order.first_ = first;
    order.count_ = count;
    return order;
}

CRowOrder::CRowOrder(std::vector<int> rows, bool is_ascending)
    : is_range_(false), rows_(std::move(rows)), is_ascending_(is_ascending)
{
    FindRange();
}

int CRowOrder::PlaceOf(int row) const
{
    if (is_range_)
        return row >= first_ && row - first_ < count_ ? row - first_ : -1;
    if (is_ascending_) {
        const int place = LowerPlace(row);
        return place < Count() && RowAt(place) == row ? place : -1;
    }
    if (places_.empty() && ++searches_ <= kSearchesBeforeIndex) {
        const auto found = std::find(rows_.cbegin(), rows_.cend(), row);
        return found == rows_.cend() ? -1 : static_cast<int>(found - rows_.cbegin());
    }
    if (places_.empty() && !rows_.empty()) {
        const int last_row = *std::max_element(rows_.cbegin(), rows_.cend());
        places_.assign(static_cast<size_t>(last_row) + 1, -1);
        for (size_t place = 0; place < rows_.size(); ++place)
            places_[static_cast<size_t>(rows_[place])] = static_cast<int>(place);
    }
    return row >= 0 && static_cast<size_t>(row) < places_.size() ? places_[static_cast<size_t>(row)]
                                                                 : -1;
}

CRowOrder CRowOrder::Picked(const CRowSet &rows) const
{
    if (rows.Count() == Count())
        return *this;
    std::vector<int> picked(static_cast<size_t>(rows.Count()) + 1); // one to write past the end
    size_t end = 0;
    if (is_range_ && first_ == 0) {
        rows.ForEach([&](int row) { picked[end++] = row; });
    } else {
        for (int place = 0, count = Count(); place < count; ++place) {
            const int row = RowAt(place);
            picked[end] = row;
            end += rows.Has(row) ? 1 : 0;
        }
    }
    picked.resize(end);
    return CRowOrder(std::move(picked), is_ascending_);
}

int CRowOrder::LowerPlace(int row) const
{
    if (is_range_)
        return std::clamp(row - first_, 0, count_);
    return static_cast<int>(std::lower_bound(rows_.cbegin(), rows_.cend(), row) - rows_.cbegin());
}

std::vector<int> CRowOrder::PlacesOf(int first_row, int last_row) const
{
    std::vector<int> places;
    if (is_ascending_) {
        const int begin = LowerPlace(first_row);
        places.resize(static_cast<size_t>(LowerPlace(last_row + 1) - begin));
        std::iota(places.begin(), places.end(), begin);
        return places;
    }
    for (int place = 0, count = Count(); place < count; ++place) {
        const int row = RowAt(place);
        if (row >= first_row && row <= last_row)
            places.push_back(place);
    }
    return places;
}

CRowOrder CRowOrder::Without(const std::vector<int> &places) const
{
    std::vector<int> rows;
    rows.reserve(static_cast<size_t>(Count()) - places.size());
    auto next = places.cbegin();
    for (int place = 0, count = Count(); place < count; ++place) {
        if (next != places.cend() && *next == place)
            ++next;
        else
            rows.push_back(RowAt(place));
    }
    return CRowOrder(std::move(rows), is_ascending_);
}

void CRowOrder::MakeList()
{
    searches_ = 0;
    places_.clear();
    if (!is_range_)
        return;
    rows_.resize(static_cast<size_t>(count_));
    std::iota(rows_.begin(), rows_.end(), first_);
    is_range_ = false;
}

// Ascending rows without a gap are a range again.
void CRowOrder::FindRange()
{
    if (is_range_ || (!is_ascending_ && !rows_.empty())
        || (!rows_.empty() && rows_.back() - rows_.front() + 1 != Count()))
        return;
    *this = rows_.empty() ? CRowOrder() : Range(rows_.front(), Count());
}

void CRowOrder::Insert(int place, const std::vector<int> &rows)
{
    if (rows.empty())
        return;
    const bool is_run = rows.back() - rows.front() + 1 == static_cast<int>(rows.size())
                        && std::is_sorted(rows.cbegin(), rows.cend());
    if (is_range_ && is_run
        && (count_ == 0 || (place == count_ && rows.front() == first_ + count_))) {
        first_ = count_ == 0 ? rows.front() : first_;
        count_ += static_cast<int>(rows.size());
        return;
    }
    MakeList();
    is_ascending_ = is_ascending_ && std::is_sorted(rows.cbegin(), rows.cend())
                    && (place == 0 || RowAt(place - 1) < rows.front())
                    && (place == Count() || rows.back() < RowAt(place));
    rows_.insert(rows_.begin() + place, rows.cbegin(), rows.cend());
    FindRange();
}

void CRowOrder::Erase(int place, int count)
{
    if (is_range_ && (place == 0 || place + count == count_)) {
        first_ += place == 0 ? count : 0;
        count_ -= count;
        return;
    }
    MakeList();
    rows_.erase(rows_.begin() + place, rows_.begin() + place + count);
    FindRange();
}

void CRowOrder::Renumber(int first_row, int difference)
{
    if (is_range_ && (count_ == 0 || first_ + count_ <= first_row))
        return;
    if (is_range_ && first_ >= first_row) {
        first_ += difference;
        return;
    }
    MakeList();
    for (int &row : rows_)
        row += row >= first_row ? difference : 0;
    FindRange();
}

} // namespace Ravel
