// SPDX-License-Identifier: MIT
// Bytes become a time text, which has to be read as the scanf family and timegm() read it.
#include <BusinessCommon/IsoTime.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>

namespace {

constexpr size_t kMaximumDigits = 9; // scanf's result is undefined beyond what an int holds

// Random bytes are seldom a time, so most bytes that a time cannot contain are mapped to one that
// it can.
std::string TextOf(const uint8_t *data, size_t size)
{
    static constexpr char kAlphabet[] = "0123456789-+:TZ \t.";
    std::string text;
    for (size_t i = 0; i < size; ++i) {
        const char c = static_cast<char>(data[i]);
        const bool is_kept = data[i] >= 0xE0 || std::strchr(kAlphabet, c) != nullptr;
        text += is_kept ? c : kAlphabet[data[i] % (sizeof kAlphabet - 1)];
    }
    return text;
}

bool HasLongNumber(const std::string &text)
{
    size_t digits = 0;
    for (const char c : text) {
        digits = c >= '0' && c <= '9' ? digits + 1 : 0;
        if (digits > kMaximumDigits)
            return true;
    }
    return false;
}

// NOLINTBEGIN(cert-err34-c): the code is compared with this plain form
long long ScanText(const char *text)
{
    int count = 0;
    int year = 0;
    int month = 0;
    int hours = 0;
    int minutes = 0;
    std::tm tm{};
    if (std::strchr(text, '+')) {
        count = std::sscanf(text, "%d-%d-%dT%d:%d:%d+%d:%d", &year, &month, &tm.tm_mday,
                            &tm.tm_hour, &tm.tm_min, &tm.tm_sec, &hours, &minutes);
    } else if (std::strchr(text, 'Z')) {
        count = std::sscanf(text, "%d-%d-%dT%d:%d:%dZ", &year, &month, &tm.tm_mday, &tm.tm_hour,
                            &tm.tm_min, &tm.tm_sec);
    } else {
        count = std::sscanf(text, "%d-%d-%dT%d:%d:%d-%d:%d", &year, &month, &tm.tm_mday,
                            &tm.tm_hour, &tm.tm_min, &tm.tm_sec, &hours, &minutes);
        hours = -hours;
        minutes = -minutes;
    }
    if (count <= 0)
        return -1;
    tm.tm_year = year - 1900;
    tm.tm_mon = month - 1;
    return static_cast<long long>(timegm(&tm)) - hours * 3600LL - minutes * 60LL;
}
// NOLINTEND(cert-err34-c)

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::string text = TextOf(data, size);
    const long long seconds = BusinessCommon::IsoTextToSeconds(text);
    if (!HasLongNumber(text) && seconds != ScanText(text.c_str())) {
        std::fprintf(stderr, "\"%s\": %lld, not %lld\n", text.c_str(), seconds,
                     ScanText(text.c_str()));
        std::abort();
    }
    return 0;
}
