// SPDX-License-Identifier: MIT
#pragma once

#include "common/TimeZoneRecords.h"

#include <QtCore/QString>

#include <vector>

QT_BEGIN_NAMESPACE
class QLocale;
QT_END_NAMESPACE

namespace Vantor {

/// What the labels of a step show.
enum class RulerLabel { Second, Minute, Day, Month, Year };

/// \brief Distance of the ruler's marks: a number of seconds or of calendar months.
struct RulerStep
{
    qint64 major_s;   ///< from label to label; about that where months count
    qint64 minor_s;   ///< from mark to mark
    int major_months; ///< 0: the seconds count
    int minor_months;
    RulerLabel label;
};

/// \brief The finest step whose labels are at least \a least_px apart.
[[nodiscard]] const RulerStep &ChooseRulerStep(double pixels_per_second, double least_px);

struct RulerMark
{
    qint64 seconds; ///< since 1970 UTC
    bool is_major;
};

/// \brief The marks from \a from_s to \a to_s (seconds since 1970 UTC, both included), in order.
///
/// Marks are at round times of the zone's wall clock. An hour that daylight saving skips has no
/// marks, one that comes twice has them twice. At most 10,000 are returned, as a guard against
/// absurd scales.
[[nodiscard]] std::vector<RulerMark> RulerMarks(const TimeZoneParam &zone, qint64 from_s,
                                                qint64 to_s, const RulerStep &step);

/// \brief The text of a major mark. Where hours or shorter steps are labelled, midnight shows its
/// date.
[[nodiscard]] QString RulerText(const TimeZoneParam &zone, qint64 seconds, RulerLabel label,
                                const QLocale &locale);

} // namespace Vantor
