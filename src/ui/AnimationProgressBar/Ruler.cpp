// SPDX-License-Identifier: MIT
#include "ui/AnimationProgressBar/Ruler.h"

#include "common/DateText.h"
#include "common/ZoneTime.h"

#include <QtCore/QDateTime>
#include <QtCore/QLocale>

#include <algorithm>
#include <array>

namespace Vantor {
namespace {

constexpr qint64 kMinute = 60;
constexpr qint64 kHour = 60 * kMinute;
constexpr qint64 kDay = 24 * kHour;
constexpr qint64 kWeek = 7 * kDay;
constexpr qint64 kMonth = 2629746; // a twelfth of the mean Gregorian year
constexpr qint64 kYear = 12 * kMonth;
constexpr qint64 kFirstMonday = 4 * kDay; // 1970-01-05
constexpr int kMonthsOfYear = 12;
constexpr size_t kMostMarks = 10000;

constexpr RulerStep kSteps[] = {
    {5, 1, 0, 0, RulerLabel::Second},
    {10, 1, 0, 0, RulerLabel::Second},
    {30, 5, 0, 0, RulerLabel::Second},
    {kMinute, 10, 0, 0, RulerLabel::Minute},
    {2 * kMinute, 30, 0, 0, RulerLabel::Minute},
    {5 * kMinute, kMinute, 0, 0, RulerLabel::Minute},
    {10 * kMinute, 2 * kMinute, 0, 0, RulerLabel::Minute},
    {30 * kMinute, 5 * kMinute, 0, 0, RulerLabel::Minute},
    {kHour, 10 * kMinute, 0, 0, RulerLabel::Minute},
    {2 * kHour, 30 * kMinute, 0, 0, RulerLabel::Minute},
    {3 * kHour, kHour, 0, 0, RulerLabel::Minute},
    {6 * kHour, kHour, 0, 0, RulerLabel::Minute},
    {12 * kHour, 2 * kHour, 0, 0, RulerLabel::Minute},
    {kDay, 6 * kHour, 0, 0, RulerLabel::Day},
    {kWeek, kDay, 0, 0, RulerLabel::Day},
    {kMonth, kWeek, 1, 0, RulerLabel::Month},
    {3 * kMonth, kMonth, 3, 1, RulerLabel::Month},
    {kYear, 3 * kMonth, 12, 3, RulerLabel::Year},
    {2 * kYear, 6 * kMonth, 24, 6, RulerLabel::Year},
    {5 * kYear, kYear, 60, 12, RulerLabel::Year},
    {10 * kYear, 2 * kYear, 120, 24, RulerLabel::Year},
    {50 * kYear, 10 * kYear, 600, 120, RulerLabel::Year},
    {100 * kYear, 20 * kYear, 1200, 240, RulerLabel::Year},
};

qint64 FloorDivide(qint64 dividend, qint64 divisor)
{
    return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}

// The offsets that a zone may have.
std::array<qint64, 2> OffsetsOf(const TimeZoneParam &zone)
{
    const qint64 standard_s = -qint64(zone.utc_bias) * kMinute;
    return {standard_s, standard_s - zone.daylight_bias * kMinute};
}

// Calls `visit` with each moment at which a clock of that offset shows a multiple of the step.
template <class Visit>
void ForEachRoundTime(qint64 from_s, qint64 to_s, qint64 step_s, qint64 offset_s, Visit &&visit)
{
    const qint64 first_day_s = step_s % kWeek == 0 ? kFirstMonday : 0;
    const qint64 shift_s = offset_s - first_day_s;
    qint64 wall_s = FloorDivide(from_s + shift_s + step_s - 1, step_s) * step_s;
    for (size_t count = 0; wall_s - shift_s <= to_s && count < kMostMarks; ++count) {
        visit(wall_s - shift_s);
        wall_s += step_s;
    }
}

// The same for calendar months, counted from year 0.
template <class Visit>
void ForEachRoundMonth(qint64 from_s, qint64 to_s, int months, qint64 offset_s, Visit &&visit)
{
    const QDate first = QDateTime::fromSecsSinceEpoch(from_s + offset_s, Qt::UTC).date();
    if (!first.isValid())
        return;
    qint64 month =
        FloorDivide(qint64(first.year()) * kMonthsOfYear + first.month() - 1, months) * months;
    for (size_t count = 0; count < kMostMarks; ++count, month += months) {
        const auto year = int(FloorDivide(month, kMonthsOfYear));
        const QDate date(year, int(month - qint64(year) * kMonthsOfYear) + 1, 1);
        if (!date.isValid()) // there is no year 0
            continue;
        const qint64 seconds = QDateTime(date, QTime(0, 0), Qt::UTC).toSecsSinceEpoch() - offset_s;
        if (seconds > to_s)
            return;
        if (seconds >= from_s)
            visit(seconds);
    }
}

void AppendMarks(const TimeZoneParam &zone, qint64 from_s, qint64 to_s, qint64 step_s, int months,
                 bool is_major, std::vector<RulerMark> &marks)
{
    for (const qint64 offset_s : OffsetsOf(zone)) {
        const auto append = [&](qint64 seconds) {
            // Only the clock that is in force at that moment shows it.
            if (WallClockOffset(zone, seconds) == offset_s)
                marks.push_back({seconds, is_major});
        };
        if (months > 0)
            ForEachRoundMonth(from_s, to_s, months, offset_s, append);
        else
            ForEachRoundTime(from_s, to_s, step_s, offset_s, append);
        if (!zone.b_dst || zone.daylight_bias == 0)
            return;
    }
}

} // namespace

const RulerStep &ChooseRulerStep(double pixels_per_second, double least_px)
{
    for (const RulerStep &step : kSteps) {
        if (double(step.major_s) * pixels_per_second >= least_px)
            return step;
    }
    return kSteps[std::size(kSteps) - 1];
}

std::vector<RulerMark> RulerMarks(const TimeZoneParam &zone, qint64 from_s, qint64 to_s,
                                  const RulerStep &step)
{
    std::vector<RulerMark> marks;
    AppendMarks(zone, from_s, to_s, step.minor_s, step.minor_months, false, marks);
    AppendMarks(zone, from_s, to_s, step.major_s, step.major_months, true, marks);
    std::sort(marks.begin(), marks.end(), [](const RulerMark &a, const RulerMark &b) {
        return a.seconds != b.seconds ? a.seconds < b.seconds : a.is_major && !b.is_major;
    });
    marks.erase(std::unique(marks.begin(), marks.end(),
                            [](const RulerMark &a, const RulerMark &b) {
                                return a.seconds == b.seconds; // the major one comes first
                            }),
                marks.end());
    return marks;
}

QString RulerText(const TimeZoneParam &zone, qint64 seconds, RulerLabel label,
                  const QLocale &locale)
{
    const QDateTime wall = WallClockOf(zone, seconds);
    const bool is_midnight = wall.time() == QTime(0, 0);
    switch (label) {
    case RulerLabel::Second:
        if (!is_midnight)
            return locale.toString(wall.time(), QStringLiteral("HH:mm:ss"));
        break;
    case RulerLabel::Minute:
        if (!is_midnight)
            return locale.toString(wall.time(), QStringLiteral("HH:mm"));
        break;
    case RulerLabel::Day:
        break;
    case RulerLabel::Month:
        return DateText(locale, wall.date(), DateParts::MonthYear);
    case RulerLabel::Year:
        return locale.toString(wall.date(), QStringLiteral("yyyy"));
    }
    return DateText(locale, wall.date(), DateParts::DayMonth);
}

} // namespace Vantor
