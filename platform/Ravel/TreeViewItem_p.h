// SPDX-License-Identifier: MIT
#pragma once

#include "Ravel/TreeViewItem.h"

#include <QtCore/QMap>
#include <QtCore/QPair>

#include <vector>

namespace Ravel {

// Pages of top-level rows are numbers beside the rows, because a flip compares a million of them.
constexpr int kNoPage = 0;
constexpr int kForeignPage = -1; // something else stands under the role, among the others

struct CTreeViewItemExtras
{
    QMap<QPair<int, int>, QVariant> map_others_; // by column and role
    std::vector<std::unique_ptr<CTreeViewItem>> vec_children_;
    std::vector<int> *ptr_pages_ = nullptr; // of the rows below; only a model's root has it
};

} // namespace Ravel
