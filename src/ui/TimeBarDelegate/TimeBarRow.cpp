// SPDX-License-Identifier: MIT
#include "ui/TimeBarDelegate/TimeBarRow.h"

#include <algorithm>

namespace Vantor {

void CTimeBarRow::Append(const QVector<CTimeBarParam> &bars)
{
    if (bars.isEmpty())
        return;
    parts_.push_back(bars);
    count_ += bars.size();
    CTimeBarIndex *index = nullptr;
    int type = 0;
    const QVector<CTimeBarParam> &part = parts_.back();
    for (const CTimeBarParam &record : part) {
        const TimeBarParam &bar = record.Read();
        if (!index || bar.iTimeType != type) {
            type = bar.iTimeType;
            index = &index_of_type_[type];
        }
        index->Add({qBound(-kFarSeconds, bar.dtStart, kFarSeconds),
                    qBound(-kFarSeconds, bar.dtEnd, kFarSeconds), bar.barColor.rgba64(), &record});
    }
}

const QVector<CTimeBarParam> &CTimeBarRow::Bars() const
{
    if (sorted_.size() == count_)
        return sorted_;
    std::vector<TimeBarEntry> all;
    all.reserve(size_t(count_));
    for (const CTimeBarIndex &index : index_of_type_) {
        const auto middle = std::ptrdiff_t(all.size());
        all.insert(all.end(), index.Entries().begin(), index.Entries().end());
        std::inplace_merge(all.begin(), all.begin() + middle, all.end(), StartsBefore);
    }
    QVector<CTimeBarParam> sorted;
    sorted.reserve(count_);
    for (const TimeBarEntry &entry : all)
        sorted.append(CTimeBarParam(entry.bar->GetDataPtr()));
    sorted_ = sorted;
    return sorted_;
}

void CTimeBarRow::Clear()
{
    *this = {};
}

const CTimeBarIndex *CTimeBarRow::Index(int type) const
{
    const auto found = index_of_type_.constFind(type);
    return found == index_of_type_.cend() ? nullptr : &*found;
}

} // namespace Vantor
