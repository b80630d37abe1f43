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

// Neighbouring rows, in a loop without a branch, because a pass writes a million. kForeignPage is
// the only negative page, so the sign of the union shows whether there is one.
bool CTreeViewModelPtr::WritePage(int begin, int end, int page)
{
    int *const pages = vec_pages_.data();
    int difference = 0;
    int signs = 0;
    for (int row = begin; row < end; ++row) {
        difference |= pages[row] ^ page;
        signs |= pages[row];
    }
    if (difference == 0)
        return false;
    for (int row = begin; signs < 0 && row < end; ++row)
        DropForeign(row);
    std::fill(pages + begin, pages + end, page);
    return true;
}

bool CTreeViewModelPtr::WritePage(const int *rows, int count, int page)
{
    bool is_changed = false;
    for (int i = 0; i < count; ++i) {
        int &slot = vec_pages_[static_cast<size_t>(rows[i])];
        is_changed = is_changed || slot != page;
        if (slot == kForeignPage)
            DropForeign(rows[i]);
        slot = page;
    }
    return is_changed;
}

void CTreeViewModelPtr::DropForeign(int row)
{
    int &slot = vec_pages_[static_cast<size_t>(row)];
    if (slot == kForeignPage)
        root_.Child(row)->SetPage(slot, {});
}

} // namespace Ravel
