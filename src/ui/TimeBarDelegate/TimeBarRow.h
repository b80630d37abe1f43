// SPDX-License-Identifier: MIT
#pragma once

#include "ui/TimeBarDelegate/TimeBarIndex.h"
#include "ui/TimeBarDelegate/TimeBarParam.h"

#include <QtCore/QHash>
#include <QtCore/QVector>

#include <vector>

namespace Vantor {

/// \brief A row of bars, sorted by start, with an index of each type beside it.
class CTimeBarRow
{
public:
    /// \brief Add \a bars, in any order. Costs a pass over the row at most, not a sort of it.
    void Append(const QVector<CTimeBarParam> &bars);
    void Clear();

    [[nodiscard]] const QVector<CTimeBarParam> &Bars() const { return bars_; }
    /// \return null when there is no bar of \a type.
    [[nodiscard]] const CTimeBarIndex *Index(int type) const;
    /// \brief The number of the bar that \a entry of the index of \a type was made from; -1 when
    /// its structure has been changed since.
    [[nodiscard]] int NumberOf(int type, const TimeBarEntry &entry) const;

private:
    struct Key
    {
        qint64 start_s;
        int number; // in the vector, before it is sorted
    };

    static bool IsBefore(const Key &a, const Key &b);
    void Sort(const std::vector<Key> &keys);

    QVector<CTimeBarParam> bars_;
    std::vector<qint64> starts_s_; // of bars_, side by side
    QHash<int, CTimeBarIndex> index_of_type_;
};

} // namespace Vantor
