// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QPair>
#include <QtCore/QVariant>
#include <QtCore/QVector>

namespace Ravel {

/// \brief A few key/value pairs, in the order in which their keys were inserted. Copies are
/// independent.
///
/// Two keys are equal only if type *and* value are equal: 1 and "1" are different keys, although
/// QVariant's own comparison calls them equal.
class VANTOR_PLATFORM_EXPORT CMultiPairData
{
public:
    /// \brief Store \a value under \a key, replacing an earlier value.
    void InsertPairData(const QVariant &key, const QVariant &value);

    /// \brief The value under \a key; an invalid QVariant if there is no such key.
    [[nodiscard]] QVariant GetPairData(const QVariant &key) const;

private:
    QVector<QPair<QVariant, QVariant>> vec_pairs_;
};

} // namespace Ravel
