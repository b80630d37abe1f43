// SPDX-License-Identifier: MIT
#pragma once

#include "ui/FilterTreeViewEx/FlatProxy.h"

#include <QtCore/QPersistentModelIndex>

#include <optional>
#include <vector>

namespace Vantor {

struct CFlatProxyPtr
{
    bool b_flat_ = true;       // otherwise Qt's engine has the rows
    Ravel::CRowOrder order_;   // the rows shown
    int source_rows_ = 0;      // that order_ was made for
    int holds_ = 0;            // BeginHold() without EndHold()
    bool b_announced_ = false; // the next layoutChanged() is our own
    // During a hold that views know of: what they hold on to, and the rows behind that.
    struct Held
    {
        QModelIndexList indexes;
        QList<QPersistentModelIndex> rows;
    };
    std::optional<Held> held_;
    std::vector<QMetaObject::Connection> vec_connections_; // to the source
};

} // namespace Vantor
