// SPDX-License-Identifier: MIT
#include "Ravel/TextRanks.h"

#include "Ravel/TextBlock.h"

#include <QtCore/QChar>

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>

namespace Ravel {
namespace {

// A piece of text as a number that sorts as the text does: units of so many bits, each one above
// the folded character, so that 0 is the text's end and comes first.
constexpr int kLatinUnits = 7;
constexpr int kLatinBits = 9;
constexpr int kWideUnits = 3;
constexpr int kWideBits = 21;

struct CEntry
{
    quint64 key;
    int text;
    bool is_as_before; // the same text as the entry in front
};

struct CGroup
{
    size_t begin;
    size_t end;
    size_t offset; // of the characters that the keys do not hold yet
};

// The micro sign alone folds to a character beyond Latin-1; 256 keeps it behind all others.
const std::array<quint16, 256> &LatinFolds()
{
    static const std::array<quint16, 256> folds = [] {
        std::array<quint16, 256> table{};
        for (uint i = 0; i < table.size(); ++i)
            table[i] = static_cast<quint16>(std::min(QChar::toCaseFolded(i), 256U));
        return table;
    }();
    return folds;
}

quint64 LatinKey(std::string_view text, size_t offset)
{
    const auto &folds = LatinFolds();
    quint64 key = 0;
    for (size_t i = offset; i < offset + kLatinUnits; ++i)
        key = key << kLatinBits | (i < text.size() ? folds[static_cast<uchar>(text[i])] + 1U : 0U);
    return key;
}

// A low surrogate gives the fold of the whole character, as in QString's own comparison.
uint FoldedUnit(std::u16string_view text, size_t at)
{
    const char16_t unit = text[at];
    if (at > 0 && QChar::isLowSurrogate(unit) && QChar::isHighSurrogate(text[at - 1]))
        return QChar::toCaseFolded(QChar::surrogateToUcs4(text[at - 1], unit));
    return QChar::toCaseFolded(static_cast<uint>(unit));
}

// A text of one column, as it is in its row.
struct CText
{
    std::string_view latin;
    std::u16string_view wide;
    bool is_wide;
};

quint64 WideKey(const CText &text, size_t offset)
{
    quint64 key = 0;
    const auto append = [&key, offset](size_t length, auto &&unit_at) {
        for (size_t i = offset; i < offset + kWideUnits; ++i)
            key = key << kWideBits | (i < length ? unit_at(i) + 1U : 0U);
    };
    if (text.is_wide) {
        append(text.wide.size(), [&text](size_t at) { return FoldedUnit(text.wide, at); });
    } else {
        append(text.latin.size(), [&text](size_t at) {
            return QChar::toCaseFolded(static_cast<uint>(static_cast<uchar>(text.latin[at])));
        });
    }
    return key;
}

// Ranks different texts; those that differ in case alone share a rank.
class CRanking
{
public:
    explicit CRanking(const std::vector<CText> &texts) : texts_(texts)
    {
        entries_.reserve(texts.size());
        for (size_t text = 0; text < texts.size(); ++text) {
            entries_.push_back({0, static_cast<int>(text), false});
            is_wide_ = is_wide_ || texts[text].is_wide;
        }
    }

    // The rank of each text; `count` becomes the number of ranks.
    std::vector<int> Ranks(int &count)
    {
        std::vector<CGroup> groups;
        if (!entries_.empty())
            groups.push_back({0, entries_.size(), 0});
        while (!groups.empty()) {
            const CGroup group = groups.back();
            groups.pop_back();
            SortByKey(group);
            SplitByKey(group, groups);
        }

        std::vector<int> ranks(texts_.size());
        count = 0;
        for (const CEntry &entry : entries_) {
            count += entry.is_as_before ? 0 : 1;
            ranks[static_cast<size_t>(entry.text)] = count - 1;
        }
        return ranks;
    }

private:
    std::vector<CEntry>::iterator At(size_t place)
    {
        return entries_.begin() + static_cast<std::ptrdiff_t>(place);
    }

    void SortByKey(const CGroup &group)
    {
        bool differ = false;
        for (size_t i = group.begin; i < group.end; ++i) {
            const CText &text = texts_[static_cast<size_t>(entries_[i].text)];
            entries_[i].key =
                is_wide_ ? WideKey(text, group.offset) : LatinKey(text.latin, group.offset);
            differ = differ || entries_[i].key != entries_[group.begin].key;
        }
        if (differ)
            std::sort(At(group.begin), At(group.end),
                      [](const CEntry &left, const CEntry &right) { return left.key < right.key; });
    }

    // Texts that go on behind equal keys are left to a group of their own.
    void SplitByKey(const CGroup &group, std::vector<CGroup> &groups)
    {
        const quint64 last_unit = (quint64(1) << (is_wide_ ? kWideBits : kLatinBits)) - 1;
        const size_t units = is_wide_ ? kWideUnits : kLatinUnits;
        for (size_t begin = group.begin, end = begin; begin < group.end; begin = end) {
            const quint64 key = entries_[begin].key;
            while (end < group.end && entries_[end].key == key)
                ++end;
            if (end - begin == 1)
                continue;
            if (key & last_unit) {
                groups.push_back({begin, end, group.offset + units});
                continue;
            }
            std::for_each(At(begin + 1), At(end), [](CEntry &entry) { entry.is_as_before = true; });
        }
    }

    const std::vector<CText> &texts_;
    bool is_wide_ = false;
    std::vector<CEntry> entries_;
};

} // namespace

CTextRanks::CTextRanks(const std::vector<int> &rank_of_row, std::vector<bool> is_mixed)
    : is_mixed_(std::move(is_mixed)), begins_(is_mixed_.size() + 1)
{
    constexpr size_t kMostFew = 1 << 16;
    if (is_mixed_.size() <= kMostFew) {
        few_.assign(rank_of_row.cbegin(), rank_of_row.cend());
        first_rows_.resize(is_mixed_.size());
        for (size_t row = few_.size(); row-- > 0;)
            first_rows_[few_[row]] = static_cast<int>(row);
    } else {
        many_ = rank_of_row;
    }
    for (const int rank : rank_of_row)
        ++begins_[static_cast<size_t>(rank) + 1];
    std::partial_sum(begins_.cbegin(), begins_.cend(), begins_.begin());
}

// Each row goes straight to its place, because it is known how many rows are of a lower rank.
template <class Ranks>
std::vector<int> CTextRanks::Placed(const CRowOrder &order, const Ranks &ranks,
                                    bool is_descending) const
{
    std::vector<int> next(begins_.cbegin(), begins_.cend() - 1);
    if (is_descending)
        std::transform(begins_.cbegin() + 1, begins_.cend(), next.begin(),
                       [count = order.Count()](int end) { return count - end; });
    std::vector<int> sorted(ranks.size());
    const auto put = [&](int row) {
        sorted[static_cast<size_t>(next[ranks[static_cast<size_t>(row)]]++)] = row;
    };
    const int *const rows = order.Rows();
    for (int place = 0, count = order.Count(); place < count; ++place)
        put(rows ? rows[place] : order.RowAt(place));
    return sorted;
}

CRowOrder CTextRanks::Sorted(const CRowOrder &order, bool is_descending) const
{
    if (order.Count() != RowCount())
        return order;
    return CRowOrder(few_.empty() ? Placed(order, many_, is_descending)
                                  : Placed(order, few_, is_descending));
}

void CRankBuilder::Add(const CTextBlock &row)
{
    if (row.Count() <= column_) {
        text_of_row_.push_back(-1);
    } else if (row.IsWide()) {
        const std::u16string_view text = row.Wide(column_);
        text_of_row_.push_back(
            2 * wide_.Number({reinterpret_cast<const char *>(text.data()), 2 * text.size()}) + 1);
    } else {
        text_of_row_.push_back(2 * latin_.Number(row.Latin(column_)));
    }
}

std::shared_ptr<const CTextRanks> CRankBuilder::Take()
{
    // A copy, because the texts of a table may begin at any byte.
    std::vector<std::u16string> wide_texts;
    std::vector<CText> texts;
    wide_texts.reserve(static_cast<size_t>(wide_.Count()));
    texts.reserve(static_cast<size_t>(latin_.Count()) + static_cast<size_t>(wide_.Count()));
    for (int i = 0; i < latin_.Count(); ++i)
        texts.push_back({latin_.Text(i), {}, false});
    for (int i = 0; i < wide_.Count(); ++i) {
        const std::string_view bytes = wide_.Text(i);
        wide_texts.emplace_back(bytes.size() / sizeof(char16_t), u'\0');
        std::memcpy(wide_texts.back().data(), bytes.data(), bytes.size());
        texts.push_back({{}, wide_texts.back(), true});
    }
    int count = 0;
    const std::vector<int> rank_of_text = CRanking(texts).Ranks(count);
    std::vector<bool> is_mixed(static_cast<size_t>(count));
    std::vector<bool> is_met(is_mixed);
    for (const int rank : rank_of_text) {
        is_mixed[static_cast<size_t>(rank)] = is_met[static_cast<size_t>(rank)];
        is_met[static_cast<size_t>(rank)] = true;
    }
    bool is_short = false;
    for (int &text : text_of_row_) {
        is_short = is_short || text < 0;
        if (text < 0)
            text = count;
        else
            text =
                rank_of_text[static_cast<size_t>(text % 2 ? latin_.Count() + text / 2 : text / 2)];
    }
    if (is_short)
        is_mixed.push_back(false);
    return std::make_shared<const CTextRanks>(text_of_row_, std::move(is_mixed));
}

} // namespace Ravel
