// SPDX-License-Identifier: MIT
#include "Ravel/MultiPairData.h"

#include <algorithm>

namespace Ravel {
namespace {

template <class Pairs> auto Find(Pairs &pairs, const QVariant &key)
{
    return std::find_if(pairs.begin(), pairs.end(), [&key](const QPair<QVariant, QVariant> &pair) {
        return pair.first.userType() == key.userType() && pair.first == key;
    });
}

} // namespace

void CMultiPairData::InsertPairData(const QVariant &key, const QVariant &value)
{
    const auto found = Find(vec_pairs_, key);
    if (found != vec_pairs_.end())
        found->second = value;
    else
        vec_pairs_.append(qMakePair(key, value));
}

QVariant CMultiPairData::GetPairData(const QVariant &key) const
{
    const auto found = Find(vec_pairs_, key);
    return found != vec_pairs_.end() ? found->second : QVariant();
}

} // namespace Ravel
