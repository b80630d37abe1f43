// SPDX-License-Identifier: MIT
#include "ui/MutiPageWidget/PageState.h"

#include "ui/FilterTreeViewEx/PageMath.h"

#include <algorithm>

namespace Vantor {

void CPageState::SetTotalKnown(bool is_known)
{
    if (is_known && !is_total_known_) {
        total_pages_ = cut_pages_;
        total_records_ = cut_records_;
    }
    is_total_known_ = is_known;
}

void CPageState::Reset(int records, int pages)
{
    current_ = 1;
    cut_pages_ = pages;
    cut_records_ = records;
    if (is_total_known_) {
        total_pages_ = pages;
        total_records_ = records;
    }
}

void CPageState::Deliver(int records, int page, int rows_per_page)
{
    current_ = std::max(1, page);
    if (is_total_known_) {
        cut_records_ = total_records_ = std::max(0, records);
        cut_pages_ = total_pages_ = PageCount(total_records_, rows_per_page);
    }
}

int CPageState::PageAfter(Step step) const
{
    switch (step) {
    case Step::Home:
        return 1;
    case Step::Previous:
        return current_ - 1;
    case Step::Next:
        return current_ + 1;
    case Step::Last:
        return total_pages_;
    }
    return current_;
}

bool CPageState::CanGo(Step step) const
{
    const bool is_back = step == Step::Home || step == Step::Previous;
    if (!is_total_known_)
        return step == Step::Previous ? current_ > 1 : true;
    return is_back ? current_ != 1 : current_ != total_pages_;
}

} // namespace Vantor
