// SPDX-License-Identifier: MIT
// Which rows pass a filter, found with as few looks at texts as possible.
#include "Ravel/RankKeeper.h"
#include "Ravel/RowFilter.h"
#include "Ravel/RowSet.h"
#include "Ravel/TreeViewModel_p.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace Ravel {
namespace {

// Rows are anywhere in memory: fetch an item and then its texts so many rows ahead.
constexpr size_t kRowsAhead = 24;

} // namespace

// kWideLetter also marks a row with texts beyond the last column: its letters do not settle
// whether it has one of them.
quint64 CTreeViewModelPtr::LettersOf(const CTreeViewItem &item) const
{
    const bool is_longer = item.texts_.Count() > list_labels_.size();
    return item.texts_.Letters() | (is_longer ? kWideLetter : 0);
}

void CTreeViewModelPtr::ReadLetters()
{
    const auto &rows = Rows();
    vec_letters_.reserve(rows.size());
    for (size_t row = vec_letters_.size(); row < rows.size(); ++row) {
        const size_t ahead = row + kRowsAhead;
        if (ahead + kRowsAhead < rows.size()) {
            Prefetch(rows[ahead + kRowsAhead].get());
            rows[ahead]->texts_.Prefetch();
        }
        vec_letters_.push_back(LettersOf(*rows[row]));
    }
}

void CTreeViewModelPtr::UpdateLetters(const CTreeViewItem &item)
{
    if (item.ptr_parent_ == &root_ && static_cast<size_t>(item.row_) < vec_letters_.size())
        vec_letters_[static_cast<size_t>(item.row_)] = LettersOf(item);
}

void CTreeViewModelPtr::ForgetLetters(int first)
{
    vec_letters_.resize(std::min(vec_letters_.size(), static_cast<size_t>(first)));
}

CRowSet CTreeViewModelPtr::Accepted(const CRowFilter &filter, const CRowSet *within)
{
    CRowSet left = Candidates(filter, within);
    CRowSet accepted(root_.ChildCount());
    if (filter.IsByOneLetter()) {
        accepted = left.Picked([this](int row) {
            return (vec_letters_[static_cast<size_t>(row)] & kWideLetter) == 0;
        });
        left.Remove(accepted);
    }
    AskRanks(filter, left, accepted);
    accepted.Add(AcceptedByTexts(filter, left));
    return accepted;
}

// The rows out of `within`, null for all, that have every letter that the filter asks for.
CRowSet CTreeViewModelPtr::Candidates(const CRowFilter &filter, const CRowSet *within)
{
    const auto all = [this] { return CRowSet::All(root_.ChildCount()); };
    if (filter.MayAccept(0))
        return within ? *within : all();
    ReadLetters();
    const auto may_pass = [this, &filter](int row) {
        return filter.MayAccept(vec_letters_[static_cast<size_t>(row)]);
    };
    return within ? within->Picked(may_pass) : all().Picked(may_pass);
}

// Of columns with ranks that are known, each different text is looked at once. The rows that are
// settled by that move from `left` to `accepted` or vanish.
void CTreeViewModelPtr::AskRanks(const CRowFilter &filter, CRowSet &left, CRowSet &accepted)
{
    const bool is_by_lists = filter.ListCount() > 0;
    const int columns = is_by_lists ? filter.ListCount() : list_labels_.size();
    std::vector<std::pair<int, CRankKeeper::Ranks>> ranked; // by column
    int texts = 0;
    for (int column = 0; column < std::min(columns, list_labels_.size()); ++column) {
        const auto ranks = ptr_ranks_->Known(column);
        if (!ranks || ranks->FirstRows().empty())
            continue;
        ranked.emplace_back(column, ranks);
        texts += ranks->RankCount();
    }
    if (texts >= left.Count())
        return;
    for (const auto &[column, ranks] : ranked) {
        const CRowSet hits = HitsByRank(filter, left, column, *ranks);
        if (is_by_lists) {
            left = hits;
        } else {
            accepted.Add(hits);
            left.Remove(hits);
        }
    }
    if (static_cast<int>(ranked.size()) < columns)
        return;
    if (is_by_lists)
        accepted.Add(left);
    left = CRowSet(root_.ChildCount());
}

// Those of `rows` whose text in `column` passes.
CRowSet CTreeViewModelPtr::HitsByRank(const CRowFilter &filter, const CRowSet &rows, int column,
                                      const CTextRanks &ranks)
{
    enum class Verdict : char { Rejected, Accepted, AskRow };
    std::vector<Verdict> verdicts; // by rank
    verdicts.reserve(ranks.FirstRows().size());
    for (const int row : ranks.FirstRows()) {
        if (ranks.IsMixed(static_cast<int>(verdicts.size())))
            verdicts.push_back(Verdict::AskRow);
        else
            verdicts.push_back(filter.ListAccepts(Texts(row), column) ? Verdict::Accepted
                                                                      : Verdict::Rejected);
    }
    const auto is_rejected = [](Verdict verdict) { return verdict == Verdict::Rejected; };
    if (std::all_of(verdicts.cbegin(), verdicts.cend(), is_rejected))
        return CRowSet(root_.ChildCount());
    return rows.Picked([&](int row) {
        const Verdict verdict = verdicts[static_cast<size_t>(ranks.Rank(row))];
        return verdict == Verdict::AskRow ? filter.ListAccepts(Texts(row), column)
                                          : verdict == Verdict::Accepted;
    });
}

CRowSet CTreeViewModelPtr::AcceptedByTexts(const CRowFilter &filter, const CRowSet &rows)
{
    std::vector<int> places;
    places.reserve(static_cast<size_t>(rows.Count()));
    rows.ForEach([&places](int row) { places.push_back(row); });
    const auto &items = Rows();
    const auto item = [&](size_t i) { return items[static_cast<size_t>(places[i])].get(); };
    CRowSet accepted(static_cast<int>(items.size()));
    for (size_t i = 0; i < places.size(); ++i) {
        const size_t ahead = i + kRowsAhead;
        if (ahead + kRowsAhead < places.size()) {
            Prefetch(item(ahead + kRowsAhead));
            item(ahead)->texts_.Prefetch();
        }
        if (filter.Accepts(item(i)->texts_, list_labels_.size()))
            accepted.Add(places[i]);
    }
    return accepted;
}

} // namespace Ravel
