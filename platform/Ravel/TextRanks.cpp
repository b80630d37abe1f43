// SPDX-License-Identifier: MIT
#include "Ravel/TextRanks.h"

#include "Ravel/TextBlock.h"

#include <QtCore/QChar>

#include <algorithm>
#include <array>

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
    int row;
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

// A low surrogate stands for the whole character, as in QString's own comparison.
uint FoldedUnit(std::u16string_view text, size_t at)
{
    const char16_t unit = text[at];
    if (at > 0 && QChar::isLowSurrogate(unit) && QChar::isHighSurrogate(text[at - 1]))
        return QChar::toCaseFolded(QChar::surrogateToUcs4(text[at - 1], unit));
    return QChar::toCaseFolded(static_cast<uint>(unit));
}

quint64 WideKey(const CTextBlock &texts, int column, size_t offset)
{
    quint64 key = 0;
    const auto append = [&key, offset](size_t length, auto &&unit_at) {
        for (size_t i = offset; i < offset + kWideUnits; ++i)
            key = key << kWideBits | (i < length ? unit_at(i) + 1U : 0U);
    };
    if (texts.IsWide()) {
        const std::u16string_view text = texts.Wide(column);
        append(text.size(), [text](size_t at) { return FoldedUnit(text, at); });
    } else {
        const std::string_view text = texts.Latin(column);
        append(text.size(), [text](size_t at) {
            return QChar::toCaseFolded(static_cast<uint>(static_cast<uchar>(text[at])));
        });
    }
    return key;
}

class CRanking
{
public:
    CRanking(const std::vector<const CTextBlock *> &rows, int column) : rows_(rows), column_(column)
    {
        entries_.reserve(rows.size());
        for (size_t row = 0; row < rows.size(); ++row) {
            if (rows[row]->Count() <= column)
                continue;
            entries_.push_back({0, static_cast<int>(row), false});
            is_wide_ = is_wide_ || rows[row]->IsWide();
        }
    }

    std::vector<int> Ranks()
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

        std::vector<int> ranks(rows_.size(), static_cast<int>(entries_.size()));
        int rank = -1;
        for (size_t i = 0; i < entries_.size(); ++i) {
            if (!entries_[i].is_as_before)
                rank = static_cast<int>(i);
            ranks[static_cast<size_t>(entries_[i].row)] = rank;
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
            const CTextBlock &texts = *rows_[static_cast<size_t>(entries_[i].row)];
            entries_[i].key = is_wide_ ? WideKey(texts, column_, group.offset)
                                       : LatinKey(texts.Latin(column_), group.offset);
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

    const std::vector<const CTextBlock *> &rows_;
    const int column_;
    bool is_wide_ = false;
    std::vector<CEntry> entries_;
};

} // namespace

std::vector<int> TextRanks(const std::vector<const CTextBlock *> &rows, int column)
{
    return CRanking(rows, column).Ranks();
}

bool IsTextLess(const CTextBlock &left, const CTextBlock &right, int column)
{
    if (left.Count() <= column || right.Count() <= column)
        return left.Count() > column && right.Count() <= column;
    if (left.IsWide() || right.IsWide())
        return left.Text(column).compare(right.Text(column), Qt::CaseInsensitive) < 0;
    const std::string_view left_text = left.Latin(column);
    const std::string_view right_text = right.Latin(column);
    const auto &folds = LatinFolds();
    return std::lexicographical_compare(left_text.begin(), left_text.end(), right_text.begin(),
                                        right_text.end(), [&folds](char one, char other) {
                                            return folds[static_cast<uchar>(one)]
                                                   < folds[static_cast<uchar>(other)];
                                        });
}

} // namespace Ravel
