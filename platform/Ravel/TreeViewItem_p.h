// SPDX-License-Identifier: MIT
#pragma once

#include "Ravel/RowPages.h"
#include "Ravel/TreeViewItem.h"

#include <QtCore/QMap>
#include <QtCore/QPair>

#include <vector>

namespace Ravel {

struct CTreeViewItemExtras
{
    QMap<QPair<int, int>, QVariant> map_others_; // by column and role
    std::vector<std::unique_ptr<CTreeViewItem>> vec_children_;
    CRowPages *ptr_pages_ = nullptr; // of the rows below; only a model's root has it
};

} // namespace Ravel
