// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QDate>
#include <QtCore/QLocale>
#include <QtCore/QString>

namespace Vantor {

enum class DateParts { DayMonth, MonthYear, DayMonthYear, WeekdayDayMonthYear };

// A date in the order of the locale's language: "29 Mar 2026", but "2026年3月29日".
[[nodiscard]] inline QString DateText(const QLocale &locale, const QDate &date, DateParts parts)
{
    const bool is_year_first = locale.language() == QLocale::Chinese;
    switch (parts) {
    case DateParts::DayMonth:
        return locale.toString(date,
                               is_year_first ? QStringLiteral("M月d日") : QStringLiteral("d MMM"));
    case DateParts::MonthYear:
        return locale.toString(date, is_year_first ? QStringLiteral("yyyy年M月")
                                                   : QStringLiteral("MMM yyyy"));
    case DateParts::WeekdayDayMonthYear:
        return locale.toString(date, is_year_first ? QStringLiteral("yyyy年M月d日 ddd")
                                                   : QStringLiteral("ddd d MMM yyyy"));
    case DateParts::DayMonthYear:
        break;
    }
    return locale.toString(date, is_year_first ? QStringLiteral("yyyy年M月d日")
                                               : QStringLiteral("d MMM yyyy"));
}

} // namespace Vantor
