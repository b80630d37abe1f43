// SPDX-License-Identifier: MIT
// The rows of a model and their pages, without the signals.
#include "Ravel/PageTag.h"
#include "Ravel/TreeViewModel_p.h"

#include <algorithm>

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

// An item may bring data under the page's role; move it to the place where the model keeps pages.
void CTreeViewModelPtr::AdoptPages(int first, int count)
{
    for (int row = first; row < first + count; ++row) {
        CTreeViewItem &item = *root_.Child(row);
        if (!item.ptr_extras_)
            continue;
        b_tree_ = b_tree_ || item.ChildCount() > 0;
        const QVariant page = item.ptr_extras_->map_others_.take(qMakePair(0, kPageTagRole));
        if (page.isValid())
            item.SetPage(pages_, page);
    }
}

// The row has a new page, so the page data that its item brought is dropped.
void CTreeViewModelPtr::DropForeign(int row)
{
    if (const auto &extras = root_.Child(row)->ptr_extras_)
        extras->map_others_.remove(qMakePair(0, kPageTagRole));
}

} // namespace Ravel
