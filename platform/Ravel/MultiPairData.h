// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QPair>
#include <QtCore/QVariant>
#include <QtCore/QVector>

namespace Ravel {

/// \brief A few key/value pairs, in the order in which their keys first came. Copies are
/// independent.
///
/// Two keys are one only when type *and* value are equal: 1 and "1" are different keys, although
/// QVariant's own comparison takes them for equal.
class VANTOR_PLATFORM_EXPORT CMultiPairData
{
public:
    /// \brief Store \a value under \a key, replacing what was there.
    void InsertPairData(const QVariant &key, const QVariant &value);

    /// \brief The value under \a key; an invalid QVariant when there is none.
    [[nodiscard]] QVariant GetPairData(const QVariant &key) const;

private:
    QVector<QPair<QVariant, QVariant>> vec_pairs_;
};

} // namespace Ravel
