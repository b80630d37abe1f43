// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/KeyWordTrail.h"

#include <algorithm>
#include <utility>

namespace Vantor {
namespace {

constexpr size_t kMostSteps = 16; // a million rows take 125 KB each

} // namespace

void CKeyWordTrail::SetVersion(quint64 version)
{
    if (std::exchange(version_, version) != version)
        steps_.clear();
}

const Ravel::CRowSet *CKeyWordTrail::Find(const QString &keyword) const
{
    const auto found = std::find_if(steps_.cbegin(), steps_.cend(), [&keyword](const CStep &step) {
        return step.keyword == keyword;
    });
    return found != steps_.cend() ? &found->rows : nullptr;
}

const Ravel::CRowSet *CKeyWordTrail::Within(const QString &keyword) const
{
    const Ravel::CRowSet *fewest = nullptr;
    for (const CStep &step : steps_) {
        if (keyword.contains(step.keyword) && (!fewest || step.rows.Count() < fewest->Count()))
            fewest = &step.rows;
    }
    return fewest;
}

const Ravel::CRowSet &CKeyWordTrail::Add(const QString &keyword, Ravel::CRowSet rows)
{
    if (steps_.size() == kMostSteps)
        steps_.erase(steps_.begin());
    steps_.push_back({keyword, std::move(rows)});
    return steps_.back().rows;
}

} // namespace Vantor
