// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

namespace Nim::Base {

// 64 bits, so that a product with a number of seconds or minutes does not overflow.
inline constexpr qint64 kMillisecondsPerSecond = 1000;
inline constexpr qint64 kSecondsPerMinute = 60;
inline constexpr qint64 kMinutesPerHour = 60;
inline constexpr qint64 kSecondsPerHour = kSecondsPerMinute * kMinutesPerHour;
inline constexpr qint64 kSecondsPerDay = 24 * kSecondsPerHour;

} // namespace Nim::Base
