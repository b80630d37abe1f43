// SPDX-License-Identifier: MIT
#pragma once

#include "ui/FilterTreeViewEx/FilterProxyModelEx.h"
#include "ui/FilterTreeViewEx/WordFilter.h"

#include <optional>
#include <vector>

namespace Vantor {

struct CFilterProxyModelExDataPtr
{
    CWordFilter words_;
    QString str_page_filter_;
    Ravel::CRowOrder all_;                   // every row of the source; sorted when ranks sort it
    std::optional<std::vector<int>> sorted_; // by comparing cells, for the next MakeOrder()

    struct Cut
    {
        int rows_per_page = 0;
        int rows = 0;        // how many have their pages
        quint64 version = 0; // of the model's pages
    };
    Cut cut_;
};

} // namespace Vantor
