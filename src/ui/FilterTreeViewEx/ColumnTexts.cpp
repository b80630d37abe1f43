// SPDX-License-Identifier: MIT
#include "ui/FilterTreeViewEx/ColumnTexts.h"

#include <Ravel/TextBlock.h>

#include <algorithm>
#include <cstring>
#include <numeric>

namespace Vantor {
namespace {

constexpr int kNoMain = 0x7FFFFFFF;

bool IsBefore(const QString &a, const QString &b)
{
    const int order = a.compare(b, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : a < b;
}

void Sort(ColumnTexts &column)
{
    std::vector<int> order(column.texts.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&texts = column.texts](int a, int b) {
        return IsBefore(texts[size_t(a)], texts[size_t(b)]);
    });
    std::vector<QString> sorted;
    std::vector<int> place(order.size());
    sorted.reserve(order.size());
    for (const int from : order) {
        place[size_t(from)] = int(sorted.size());
        sorted.push_back(std::move(column.texts[size_t(from)]));
    }
    column.texts = std::move(sorted);
    for (auto &[text, main] : column.related)
        text = place[size_t(text)];
}

// The index of `number` in `texts`, which gets its text when it is new.
template <class TextOf>
int IndexOf(int number, std::unordered_map<int, int> &indexes, std::vector<QString> &texts,
            TextOf &&text_of)
{
    const auto [found, is_new] = indexes.emplace(number, int(texts.size()));
    if (is_new)
        texts.push_back(text_of(number));
    return found->second;
}

} // namespace

// The same text may be in Latin-1 in one row and in UTF-16 in another.
int CColumnCounter::CCounted::Number(const Ravel::CTextBlock &row, int column)
{
    if (column >= row.Count())
        return 2 * latin.Number({});
    if (!row.IsWide())
        return 2 * latin.Number(row.Latin(column));
    const std::u16string_view text = row.Wide(column);
    if (std::any_of(text.cbegin(), text.cend(), [](char16_t unit) { return unit > 0xFF; }))
        return 2 * wide.Number({reinterpret_cast<const char *>(text.data()), 2 * text.size()}) + 1;
    buffer.resize(text.size());
    std::transform(text.cbegin(), text.cend(), buffer.begin(),
                   [](char16_t unit) { return static_cast<char>(unit); });
    return 2 * latin.Number(buffer);
}

QString CColumnCounter::CCounted::Text(int number) const
{
    const std::string_view bytes = number % 2 ? wide.Text(number / 2) : latin.Text(number / 2);
    if (number % 2 == 0)
        return QString::fromLatin1(bytes.data(), int(bytes.size()));
    QString text(int(bytes.size() / sizeof(QChar)), Qt::Uninitialized);
    std::memcpy(text.data(), bytes.data(), bytes.size());
    return text;
}

CColumnCounter::CColumnCounter(int column, int main_column)
    : column_(column), main_column_(main_column)
{}

void CColumnCounter::Count(const Ravel::CTextBlock &row, int by)
{
    const auto own = static_cast<quint32>(own_.Number(row, column_));
    const auto main =
        static_cast<quint32>(main_column_ < 0 ? kNoMain : mains_.Number(row, main_column_));
    rows_of_pair_[quint64{own} << 32U | main] += by;
}

ColumnTexts CColumnCounter::Texts() const
{
    ColumnTexts result;
    std::unordered_map<int, int> texts;
    std::unordered_map<int, int> mains;
    for (const auto &[pair, rows] : rows_of_pair_) {
        if (rows <= 0)
            continue;
        const int text = IndexOf(static_cast<int>(pair >> 32U), texts, result.texts,
                                 [this](int number) { return own_.Text(number); });
        const int main = static_cast<int>(pair & 0xFFFFFFFFU);
        if (main != kNoMain)
            result.related.emplace_back(
                text, IndexOf(main, mains, result.mains,
                              [this](int number) { return mains_.Text(number); }));
    }
    Sort(result);
    return result;
}

} // namespace Vantor
