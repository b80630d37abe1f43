// SPDX-License-Identifier: MIT
#include "Ravel/TextBlock.h"

#include <algorithm>
#include <array>
#include <limits>

namespace Ravel {
namespace {

using Letters = std::array<quint64, 256>;

constexpr Letters MakeLetters()
{
    constexpr unsigned kBeyondAscii = 62;
    Letters letters{}; // blanks and signs have no bit, because nearly every row has some of them
    for (unsigned byte = 0x80; byte < letters.size(); ++byte)
        letters[byte] = quint64{1} << kBeyondAscii;
    unsigned bit = 0;
    for (unsigned byte = 'a'; byte <= 'z'; ++byte)
        letters[byte] = quint64{1} << bit++;
    for (unsigned byte = 'A'; byte <= 'Z'; ++byte)
        letters[byte] = quint64{1} << bit++;
    for (unsigned byte = '0'; byte <= '9'; ++byte)
        letters[byte] = quint64{1} << bit++;
    return letters;
}

constexpr Letters kLetters = MakeLetters();

} // namespace

quint64 LetterOf(QChar character)
{
    return kLetters[character.cell()] | (character.row() ? kWideLetter : 0);
}

CTextBlock::CTextBlock(const QStringList &texts)
{
    if (texts.isEmpty())
        return;
    size_t length = 0;
    ushort all_bits = 0;
    for (const QString &text : texts) {
        length += static_cast<size_t>(text.size());
        for (const QChar character : text) {
            all_bits |= character.unicode();
            letters_ |= kLetters[character.cell()];
        }
    }
    const bool is_wide = all_bits > 0xFF;
    letters_ |= is_wide ? kWideLetter : 0;
    const bool has_wide_ends = length > std::numeric_limits<quint16>::max();
    const quint32 head = static_cast<quint32>(texts.size()) << 2U | (has_wide_ends ? kWideEnds : 0)
                         | (is_wide ? kWideText : 0);
    if (is_wide && has_wide_ends)
        Fill<char16_t, quint32>(texts, length, head);
    else if (is_wide)
        Fill<char16_t, quint16>(texts, length, head);
    else if (has_wide_ends)
        Fill<char, quint32>(texts, length, head);
    else
        Fill<char, quint16>(texts, length, head);
}

template <class Char, class End>
void CTextBlock::Fill(const QStringList &texts, size_t length, quint32 head)
{
    const auto columns = static_cast<size_t>(texts.size());
    ptr_bytes_.reset(new uchar[sizeof head + columns * sizeof(End) + length * sizeof(Char)]);
    *reinterpret_cast<quint32 *>(ptr_bytes_.get()) = head;
    auto *end = reinterpret_cast<End *>(ptr_bytes_.get() + sizeof head);
    auto *const begin = reinterpret_cast<Char *>(end + columns);
    Char *out = begin;
    for (const QString &text : texts) {
        out = std::transform(text.cbegin(), text.cend(), out, [](QChar character) {
            return static_cast<Char>(character.unicode());
        });
        *end++ = static_cast<End>(out - begin);
    }
}

QString CTextBlock::Text(int column) const
{
    if (column < 0 || column >= Count())
        return {};
    if (IsWide()) {
        const std::u16string_view text = Wide(column);
        return QString(reinterpret_cast<const QChar *>(text.data()), static_cast<int>(text.size()));
    }
    const std::string_view text = Latin(column);
    return QString::fromLatin1(text.data(), static_cast<int>(text.size()));
}

QStringList CTextBlock::Texts() const
{
    QStringList texts;
    texts.reserve(Count());
    for (int column = 0; column < Count(); ++column)
        texts.append(Text(column));
    return texts;
}

} // namespace Ravel
