// SPDX-License-Identifier: MIT
#include "BusinessCommon/IsoTime.h"

#include <Nim/Base/TimeUnits.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace BusinessCommon {
namespace {

using Nim::Base::kSecondsPerDay;
using Nim::Base::kSecondsPerHour;
using Nim::Base::kSecondsPerMinute;

constexpr qint64 kUnreadable = -1;
constexpr int kMaximumDigits = 9;
constexpr int kMonthsPerYear = 12;

enum Field { kYear, kMonth, kDay, kHour, kMinute, kSecond, kOffsetHours, kOffsetMinutes, kFields };

struct Reading
{
    std::array<qint64, kFields> values{};
    int count = 0; // of the fields that were read
    bool is_too_long = false;
};

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Of the "C" locale, whatever the client's is.
const char *SkipBlanks(const char *text)
{
    return text + std::strspn(text, " \t\n\v\f\r");
}

// One "%d": blanks, a sign, digits. Leaves `text` behind it.
bool ReadNumber(const char *&text, Reading &reading)
{
    text = SkipBlanks(text);
    const bool is_negative = *text == '-';
    if (is_negative || *text == '+')
        ++text;
    const char *const first = text;
    qint64 value = 0;
    for (; IsDigit(*text) && text - first < kMaximumDigits; ++text)
        value = value * 10 + (*text - '0');
    reading.is_too_long = IsDigit(*text);
    if (text == first || reading.is_too_long)
        return false;
    reading.values[static_cast<size_t>(reading.count++)] = is_negative ? -value : value;
    return true;
}

// One number behind each character of `separators`; the year comes without a separator.
Reading Read(const char *text, const char *separators)
{
    Reading reading;
    while (ReadNumber(text, reading) && *separators != '\0' && *text == *separators) {
        ++text;
        ++separators;
    }
    return reading;
}

// Days since 1970 of the proleptic Gregorian calendar, by eras of 400 years that begin in March.
qint64 DaysSince1970(qint64 year, qint64 month, qint64 day)
{
    constexpr qint64 kYearsPerEra = 400;
    constexpr qint64 kDaysPerEra = 146097;
    constexpr qint64 kDaysTo1970 = 719468; // from 0000-03-01
    qint64 months = year * kMonthsPerYear + month - 3;
    const qint64 months_per_era = kYearsPerEra * kMonthsPerYear;
    const qint64 era = (months >= 0 ? months : months - months_per_era + 1) / months_per_era;
    months -= era * months_per_era;
    const qint64 year_of_era = months / kMonthsPerYear;
    const qint64 day_of_year = (153 * (months % kMonthsPerYear) + 2) / 5 + day - 1;
    return era * kDaysPerEra + year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year
           - kDaysTo1970;
}

} // namespace

qint64 IsoTextToSeconds(const std::string &text)
{
    const char *const begin = text.c_str();
    const bool is_east = std::strchr(begin, '+') != nullptr;
    const bool is_utc = !is_east && std::strchr(begin, 'Z') != nullptr;
    const Reading reading = Read(begin, is_east ? "--T::+:" : is_utc ? "--T::" : "--T::-:");
    if (reading.count == 0 || reading.is_too_long)
        return kUnreadable;

    const auto &values = reading.values;
    const qint64 offset =
        values[kOffsetHours] * kSecondsPerHour + values[kOffsetMinutes] * kSecondsPerMinute;
    return DaysSince1970(values[kYear], values[kMonth], values[kDay]) * kSecondsPerDay
           + values[kHour] * kSecondsPerHour + values[kMinute] * kSecondsPerMinute + values[kSecond]
           - (is_east ? offset : -offset);
}

} // namespace BusinessCommon
