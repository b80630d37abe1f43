// SPDX-License-Identifier: MIT
#pragma once

#include "ui/TimeBarDelegate/TimeBarIndex.h"
#include "ui/TimeBarDelegate/TimeBarParam.h"

#include <QtCore/QHash>
#include <QtCore/QVector>

#include <vector>

namespace Vantor {

/// \brief A row of bars: the parts in which they came, and an index of each type over them.
class CTimeBarRow
{
public:
    /// \brief Add \a bars, in any order.
    void Append(const QVector<CTimeBarParam> &bars);
    void Clear();

    /// \brief All bars, sorted by start. Made when it is asked for after a change; the reference
    /// keeps its contents until it is asked for again.
    [[nodiscard]] const QVector<CTimeBarParam> &Bars() const;
    /// \return null when there is no bar of \a type.
    [[nodiscard]] const CTimeBarIndex *Index(int type) const;

private:
    // Never written to, so that their structures stay where the entries point; a copy that a caller
    // has and changes becomes a copy of its own.
    std::vector<QVector<CTimeBarParam>> parts_;
    QHash<int, CTimeBarIndex> index_of_type_;
    int count_ = 0;
    mutable QVector<CTimeBarParam> sorted_; // current when it has count_ bars
};

} // namespace Vantor
