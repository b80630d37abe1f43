// SPDX-License-Identifier: MIT
#pragma once

#include "Ravel/TreeViewItem.h"

#include <QtCore/QMap>
#include <QtCore/QPair>

#include <vector>

namespace Ravel {

struct CTreeViewItemPtr
{
    QStringList list_texts_;
    QMap<QPair<int, int>, QVariant> map_others_; // by column and role
    std::vector<std::unique_ptr<CTreeViewItem>> vec_children_;
    CTreeViewItem *ptr_parent_ = nullptr; // the model's root for a top-level item
    bool b_root_ = false;                 // holds a model's top-level items, shown to nobody
    int row_ = 0;                         // place among the parent's rows
};

} // namespace Ravel
