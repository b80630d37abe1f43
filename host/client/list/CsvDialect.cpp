// SPDX-License-Identifier: MIT
#include "list/CsvDialect.h"

#include <algorithm>
#include <array>
#include <map>
#include <tuple>
#include <vector>

namespace Client {
namespace {

// Of those that divide the lines equally well, the first one wins: a comma is in numbers and
// sentences, too.
constexpr std::array<char, 4> kCandidates{'\t', ';', '|', ','};
constexpr std::size_t kLines = 50;

using Counts = std::array<int, kCandidates.size()>;

// How often each candidate is in each of the first lines, outside of quotes.
std::vector<Counts> CountInLines(const QByteArray &bytes)
{
    std::vector<Counts> lines(1);
    bool is_quoted = false;
    bool has_text = false;
    for (const char byte : bytes) {
        is_quoted ^= byte == '"';
        if (!is_quoted && (byte == '\n' || byte == '\r')) {
            if (has_text && lines.size() == kLines)
                return lines;
            if (has_text)
                lines.emplace_back();
            has_text = false;
            continue;
        }
        has_text = true;
        for (std::size_t i = 0; i < kCandidates.size() && !is_quoted; ++i)
            lines.back()[i] += byte == kCandidates[i] ? 1 : 0;
    }
    if (lines.size() > 1) // the last one may go on beyond these bytes
        lines.pop_back();
    return lines;
}

// How many lines have the same number of a candidate, but some, and that number.
std::pair<int, int> Agreement(const std::vector<Counts> &lines, std::size_t candidate)
{
    std::map<int, int> lines_by_count;
    for (const Counts &line : lines) {
        if (line[candidate] > 0)
            ++lines_by_count[line[candidate]];
    }
    std::pair<int, int> best{0, 0};
    for (const auto &[count, of_lines] : lines_by_count)
        best = std::max(best, std::pair(of_lines, count));
    return best;
}

char FindSeparator(const QByteArray &bytes)
{
    const std::vector<Counts> lines = CountInLines(bytes);
    std::size_t best = kCandidates.size() - 1;
    for (std::size_t i = kCandidates.size(); i-- > 0;) {
        if (Agreement(lines, i) >= Agreement(lines, best) && Agreement(lines, i).first > 0)
            best = i;
    }
    return kCandidates[best];
}

} // namespace

CsvDialect FindDialect(const QByteArray &first, char separator)
{
    CsvDialect dialect;
    const bool names_it = first.size() > 5 && first.left(4).toLower() == "sep="
                          && (first.at(5) == '\r' || first.at(5) == '\n');
    if (names_it) {
        dialect.separator = first.at(4);
        dialect.header_bytes =
            first.at(5) == '\r' && first.size() > 6 && first.at(6) == '\n' ? 7 : 6;
    } else {
        dialect.separator = FindSeparator(first);
    }
    if (separator != '\0')
        dialect.separator = separator;
    return dialect;
}

bool HasBlanksAtQuotes(const QByteArray &bytes, char separator)
{
    const auto is_end = [separator](char byte) {
        return byte == separator || byte == '\n' || byte == '\r';
    };
    char before = '\0'; // the last byte that is no blank
    bool is_after_blank = false;
    for (const char byte : bytes) {
        if (byte == ' ') {
            is_after_blank = true;
            continue;
        }
        if (is_after_blank && ((byte == '"' && is_end(before)) || (before == '"' && is_end(byte))))
            return true;
        is_after_blank = false;
        before = byte;
    }
    return false;
}

} // namespace Client
