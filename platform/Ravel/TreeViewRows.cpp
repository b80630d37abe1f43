// SPDX-License-Identifier: MIT
// The rows of a model and their pages, without the signals.
#include "Ravel/PageTag.h"
#include "Ravel/RankKeeper.h"
#include "Ravel/RowFilter.h"
#include "Ravel/RowSet.h"
#include "Ravel/TreeViewModel_p.h"

#include <algorithm>
#include <utility>

namespace Ravel {

// One walk that gives each item its place finds null, placed and doubled ones; where it meets one
// it takes the places back.
bool CTreeViewModelPtr::TakePlaces(const QList<CTreeViewItem *> &items, int first, bool &has_extras)
{
    int row = first;
    for (auto item = items.cbegin(); item != items.cend(); ++item) {
        if (*item && !(*item)->ptr_parent_) {
            (*item)->ptr_parent_ = &root_;
            (*item)->row_ = row++;
            has_extras = has_extras || (*item)->ptr_extras_;
            continue;
        }
        std::for_each(items.cbegin(), item, [](CTreeViewItem *taken) {
            taken->ptr_parent_ = nullptr;
            taken->row_ = 0;
        });
        return false;
    }
    return true;
}

void CTreeViewModelPtr::Renumber(CTreeViewItem &above, int first)
{
    auto &rows = above.ptr_extras_->vec_children_;
    for (size_t i = static_cast<size_t>(first); i < rows.size(); ++i)
        rows[i]->row_ = static_cast<int>(i);
}

// The rows out of `within`, null for all, that have every letter that the filter asks for.
std::vector<int> CTreeViewModelPtr::Candidates(const CRowFilter &filter, const CRowSet *within)
{
    const auto count = static_cast<size_t>(root_.ChildCount());
    const bool is_by_letters = !filter.MayAccept(0);
    if (is_by_letters && vec_letters_.size() < count) {
        vec_letters_.reserve(count);
        while (vec_letters_.size() < count)
            vec_letters_.push_back(Rows()[vec_letters_.size()]->texts_.Letters());
    }
    std::vector<int> rows((within ? static_cast<size_t>(within->Count()) : count) + 1);
    size_t end = 0; // one place more is written, to do without a branch
    const auto take = [&](int row) {
        rows[end] = row;
        end += !is_by_letters || filter.MayAccept(vec_letters_[static_cast<size_t>(row)]) ? 1 : 0;
    };
    if (within) {
        within->ForEach(take);
    } else {
        for (size_t row = 0; row < count; ++row)
            take(static_cast<int>(row));
    }
    rows.resize(end);
    return rows;
}

void CTreeViewModelPtr::ReadLetters(const CTreeViewItem &item)
{
    if (item.ptr_parent_ == &root_ && static_cast<size_t>(item.row_) < vec_letters_.size())
        vec_letters_[static_cast<size_t>(item.row_)] = item.texts_.Letters();
}

void CTreeViewModelPtr::ForgetLetters(int first)
{
    vec_letters_.resize(std::min(vec_letters_.size(), static_cast<size_t>(first)));
}

// By lists over columns that are ranked: a list is asked once for each rank, not for each row.
std::optional<CRowSet> CTreeViewModelPtr::AcceptedByRanks(const CRowFilter &filter)
{
    enum : char { kUnknown, kAccepted, kRejected };
    struct CColumn
    {
        CRankKeeper::Ranks ranks;
        std::vector<char> verdicts; // by rank
    };
    std::vector<CColumn> columns;
    for (int column = 0; column < filter.ListCount(); ++column) {
        const auto ranks = column < list_labels_.size() ? ptr_ranks_->Known(column) : nullptr;
        if (!ranks)
            return std::nullopt;
        columns.push_back({ranks, std::vector<char>(static_cast<size_t>(ranks->RankCount()))});
    }
    if (columns.empty())
        return std::nullopt;
    const auto accepts = [&](CColumn &column, int row) {
        const int rank = column.ranks->Rank(row);
        char &verdict = column.verdicts[static_cast<size_t>(rank)];
        if (verdict != kUnknown)
            return verdict == kAccepted;
        const bool is_accepted =
            filter.ListAccepts(Texts(row), static_cast<int>(&column - columns.data()));
        if (!column.ranks->IsMixed(rank))
            verdict = is_accepted ? kAccepted : kRejected;
        return is_accepted;
    };
    const int count = root_.ChildCount();
    CRowSet accepted(count);
    for (int row = 0; row < count; ++row) {
        if (std::all_of(columns.begin(), columns.end(),
                        [&](CColumn &column) { return accepts(column, row); }))
            accepted.Add(row);
    }
    return accepted;
}

// What came under the page's role with an item moves to where the model keeps pages.
void CTreeViewModelPtr::AdoptPages(int first, int count)
{
    for (int row = first; row < first + count; ++row) {
        CTreeViewItem &item = *root_.Child(row);
        if (!item.ptr_extras_)
            continue;
        b_tree_ = b_tree_ || item.ChildCount() > 0;
        const QVariant page = item.ptr_extras_->map_others_.take(qMakePair(0, kPageTagRole));
        if (page.isValid())
            item.SetPage(vec_pages_[static_cast<size_t>(row)], page);
    }
}

// Neighbouring rows, in one loop without a branch, because a pass writes a million. kForeignPage is
// the only negative page, so the sign of the union shows whether there was one.
bool CTreeViewModelPtr::WritePage(int begin, int end, int page)
{
    int *const pages = vec_pages_.data();
    int difference = 0;
    int signs = 0;
    for (int row = begin; row < end; ++row) {
        difference |= pages[row] ^ page;
        signs |= pages[row];
        pages[row] = page;
    }
    for (int row = begin; signs < 0 && row < end; ++row)
        DropForeign(row);
    return difference != 0;
}

bool CTreeViewModelPtr::WritePage(const int *rows, int count, int page)
{
    bool is_changed = false;
    for (int i = 0; i < count; ++i) {
        const int before = std::exchange(vec_pages_[static_cast<size_t>(rows[i])], page);
        is_changed = is_changed || before != page;
        if (before == kForeignPage)
            DropForeign(rows[i]);
    }
    return is_changed;
}

// Its page has been overwritten; what came in its place goes, too.
void CTreeViewModelPtr::DropForeign(int row)
{
    if (const auto &extras = root_.Child(row)->ptr_extras_)
        extras->map_others_.remove(qMakePair(0, kPageTagRole));
}

} // namespace Ravel
