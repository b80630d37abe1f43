// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

#include <limits>

namespace Nim::Base {

/// \brief Store \a left - \a right in \a difference.
/// \return false if the difference does not fit into 64 bits; \a difference is then unspecified.
[[nodiscard]] inline bool Subtract(qint64 left, qint64 right, qint64 &difference)
{
#if defined(__GNUC__)
    return !__builtin_sub_overflow(left, right, &difference);
#else
    using Limits = std::numeric_limits<qint64>;
    if (right < 0 ? left > Limits::max() + right : left < Limits::min() + right)
        return false;
    difference = left - right;
    return true;
#endif
}

} // namespace Nim::Base
