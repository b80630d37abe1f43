// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/WordFilter.h"

#include <Ravel/TreeViewModel.h>

#include <algorithm>

namespace Vantor {

bool CWordFilter::SetKeyWord(const QString &keyword)
{
    if (mode_ == Mode::KeyWord && keyword == keyword_)
        return false;
    mode_ = Mode::KeyWord;
    keyword_ = keyword;
    filter_ = Ravel::CRowFilter::WithText(keyword);
    applied_version_ = 0;
    return true;
}

bool CWordFilter::SetLists(const std::vector<QStringList> &lists)
{
    if (mode_ == Mode::Lists && lists == lists_)
        return false;
    mode_ = Mode::Lists;
    lists_ = lists;
    filter_ = Ravel::CRowFilter::WithLists(lists);
    applied_version_ = 0;
    return true;
}

bool CWordFilter::AcceptsRow(const Ravel::CTreeViewModel &model, int row) const
{
    return AcceptsAll() || model.Accepts(row, filter_);
}

bool CWordFilter::AcceptsCells(const QModelIndex &first) const
{
    const auto text_of = [&first](int column) {
        return first.sibling(first.row(), column).data().toString();
    };
    if (mode_ == Mode::KeyWord) {
        bool is_accepted = AcceptsAll();
        const int columns = first.model() ? first.model()->columnCount(first.parent()) : 0;
        for (int column = 0; column < columns && !is_accepted; ++column)
            is_accepted = text_of(column).contains(keyword_);
        return is_accepted;
    }
    int column = 0;
    return std::all_of(lists_.cbegin(), lists_.cend(), [&](const QStringList &list) {
        const QString text = text_of(column);
        if (column++ > 0)
            return list.contains(text);
        return list.isEmpty() || (text >= list.constFirst() && text <= list.constLast());
    });
}

const Ravel::CRowSet &CWordFilter::Rows(const Ravel::CTreeViewModel &model)
{
    applied_version_ = model.TextsVersion();
    if (mode_ == Mode::Lists)
        return listed_ = model.AcceptedRows(filter_);
    trail_.SetVersion(model.TextsVersion());
    const Ravel::CRowSet *const known = trail_.Find(keyword_);
    return known ? *known
                 : trail_.Add(keyword_, model.AcceptedRows(filter_, trail_.Within(keyword_)));
}

bool CWordFilter::IsApplied(const Ravel::CTreeViewModel &model) const
{
    return applied_version_ == model.TextsVersion();
}

void CWordFilter::Forget()
{
    trail_.SetVersion(0);
    applied_version_ = 0;
}

} // namespace Vantor
