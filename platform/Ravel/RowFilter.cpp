// SPDX-License-Identifier: MIT
#include "Ravel/RowFilter.h"

#include "Ravel/TextBlock.h"
#include "Ravel/TextBytes.h"
#include "Ravel/TextTable.h"

#include <QtCore/QtAlgorithms>

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace Ravel {
namespace {

std::u16string Wide(const QString &text)
{
    return text.toStdU16String();
}

bool IsLatin(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(),
                       [](QChar character) { return character.unicode() <= 0xFF; });
}

// Looks for the first and the last byte of `needle` at 16 places at once; the last 16 places
// overlap those before. Rows are short and there are a million of them, so a search that has to
// prepare itself would not pay.
size_t Find(std::string_view row, std::string_view needle, size_t from)
{
#if defined(__SSE2__)
    constexpr size_t kStep = sizeof(__m128i);
    const size_t last = needle.size() - 1; // a filter by no text has no needle
    if (last == 0 || row.size() < last + kStep)
        return row.find(needle, from);
    const __m128i first_byte = _mm_set1_epi8(needle.front());
    const __m128i last_byte = _mm_set1_epi8(needle.back());
    const size_t end = row.size() - last; // of the places
    while (from < end) {
        const size_t begin = std::min(from, end - kStep);
        const char *const at = row.data() + begin;
        const __m128i hits = _mm_and_si128(
            _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i *>(at)), first_byte),
            _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i *>(at + last)),
                           last_byte));
        auto bits = static_cast<uint>(_mm_movemask_epi8(hits)) >> (from - begin);
        for (; bits; bits &= bits - 1) {
            const size_t place = from + qCountTrailingZeroBits(bits);
            if (last == 1 || std::memcmp(row.data() + place + 1, needle.data() + 1, last - 1) == 0)
                return place;
        }
        from = begin + kStep;
    }
    return std::string_view::npos;
#else
    return row.find(needle, from);
#endif
}

// The two spellings that a text can have in a block.
struct CNeedle
{
    explicit CNeedle(const QString &text)
        : wide(Wide(text)), is_latin(IsLatin(text)),
          latin(is_latin ? text.toLatin1().toStdString() : std::string())
    {}

    size_t FindIn(std::u16string_view row, size_t from) const { return row.find(wide, from); }
    size_t FindIn(std::string_view row, size_t from) const { return Find(row, latin, from); }

    std::u16string wide;
    bool is_latin; // otherwise no Latin-1 row can hold it
    std::string latin;
};

// The columns of a row follow each other in memory, so a hit that crosses the end of its column
// does not count.
template <class View> bool HasInOneColumn(const CTextBlock &texts, View row, const CNeedle &needle)
{
    const size_t length = needle.wide.size();
    int column = 0;
    for (size_t at = needle.FindIn(row, 0); at != row.npos; at = needle.FindIn(row, at + 1)) {
        while (texts.End(column) <= at)
            ++column;
        if (at + length <= texts.End(column))
            return true;
    }
    return false;
}

// Both kinds of view order texts by code units: bytes of Latin-1 compare as unsigned ones.
struct CRange
{
    explicit CRange(const QStringList &bounds) : is_open(bounds.isEmpty())
    {
        if (is_open)
            return;
        lower = Wide(bounds.constFirst());
        upper = Wide(bounds.constLast());
        is_latin = IsLatin(bounds.constFirst()) && IsLatin(bounds.constLast());
        if (is_latin) {
            latin_lower = bounds.constFirst().toLatin1().toStdString();
            latin_upper = bounds.constLast().toLatin1().toStdString();
        }
    }

    bool Has(std::u16string_view text) const
    {
        return is_open || (text.compare(lower) >= 0 && text.compare(upper) <= 0);
    }
    bool Has(std::string_view text) const
    {
        if (is_open || is_latin)
            return is_open
                   || (CompareBytes(text, latin_lower) >= 0
                       && CompareBytes(text, latin_upper) <= 0);
        std::u16string wide(text.size(), u'\0');
        std::transform(text.cbegin(), text.cend(), wide.begin(),
                       [](char character) { return static_cast<uchar>(character); });
        return Has(std::u16string_view(wide));
    }

    bool is_open;
    bool is_latin = false;
    std::u16string lower;
    std::u16string upper;
    std::string latin_lower;
    std::string latin_upper;
};

struct CNames
{
    explicit CNames(const QStringList &names)
    {
        for (const QString &name : names) {
            wide.Number(Bytes(Wide(name)));
            if (IsLatin(name))
                latin.Number(name.toLatin1().toStdString());
        }
    }

    static std::string_view Bytes(std::u16string_view text)
    {
        return {reinterpret_cast<const char *>(text.data()), sizeof(char16_t) * text.size()};
    }

    bool Has(std::string_view text) const { return latin.Find(text) >= 0; }
    bool Has(std::u16string_view text) const { return wide.Find(Bytes(text)) >= 0; }

    CTextTable latin;
    CTextTable wide;
};

} // namespace

struct CRowFilterPtr
{
    virtual ~CRowFilterPtr() = default;
    virtual bool Accepts(const CTextBlock &texts, int columns) const = 0;
    virtual bool IsByOneLetter() const { return false; }
    virtual int ListCount() const { return 0; }
    virtual bool ListAccepts(const CTextBlock &texts, int column) const = 0;
};

namespace {

struct CWithText final : CRowFilterPtr
{
    explicit CWithText(const QString &text) : needle(text) {}

    bool IsByOneLetter() const override
    {
        const char16_t unit = needle.wide.front();
        return needle.wide.size() == 1 && unit < 0x80 && QChar(unit).isLetterOrNumber();
    }

    bool Accepts(const CTextBlock &texts, int columns) const override
    {
        columns = std::min(columns, texts.Count());
        if (texts.IsWide())
            return HasInOneColumn(texts, texts.Wide(0, columns), needle);
        return needle.is_latin && HasInOneColumn(texts, texts.Latin(0, columns), needle);
    }

    bool ListAccepts(const CTextBlock &texts, int column) const override
    {
        if (column >= texts.Count())
            return false;
        if (texts.IsWide())
            return needle.FindIn(texts.Wide(column), 0) != std::u16string_view::npos;
        return needle.is_latin && needle.FindIn(texts.Latin(column), 0) != std::string_view::npos;
    }

    CNeedle needle;
};

struct CWithLists final : CRowFilterPtr
{
    explicit CWithLists(const std::vector<QStringList> &lists) : range(lists.front())
    {
        for (size_t i = 1; i < lists.size(); ++i)
            names.emplace_back(lists[i]);
    }

    bool Accepts(const CTextBlock &texts, int columns) const override
    {
        columns = std::min(columns, texts.Count());
        return texts.IsWide()
                   ? HasAll([&texts](int column) { return texts.Wide(column); }, columns)
                   : HasAll([&texts](int column) { return texts.Latin(column); }, columns);
    }

    int ListCount() const override { return static_cast<int>(names.size()) + 1; }

    bool ListAccepts(const CTextBlock &texts, int column) const override
    {
        if (column >= texts.Count())
            return Has(std::string_view(), column);
        return texts.IsWide() ? Has(texts.Wide(column), column) : Has(texts.Latin(column), column);
    }

    template <class TextOf> bool HasAll(TextOf &&text_of, int columns) const
    {
        bool is_accepted = true;
        for (int column = 0; is_accepted && column < ListCount(); ++column)
            is_accepted =
                column < columns ? Has(text_of(column), column) : Has(std::string_view(), column);
        return is_accepted;
    }

    template <class View> bool Has(View text, int column) const
    {
        return column == 0 ? range.Has(text) : names[static_cast<size_t>(column) - 1].Has(text);
    }

    CRange range;
    std::vector<CNames> names;
};

} // namespace

CRowFilter::CRowFilter() = default;

CRowFilter CRowFilter::WithText(const QString &text)
{
    CRowFilter filter;
    if (!text.isEmpty())
        filter.d_ptr_ = std::make_shared<const CWithText>(text);
    for (const QChar character : text)
        filter.letters_ |= LetterOf(character);
    return filter;
}

CRowFilter CRowFilter::WithLists(const std::vector<QStringList> &lists)
{
    CRowFilter filter;
    if (!lists.empty())
        filter.d_ptr_ = std::make_shared<const CWithLists>(lists);
    return filter;
}

bool CRowFilter::IsByOneLetter() const
{
    return d_ptr_ && d_ptr_->IsByOneLetter();
}

bool CRowFilter::Accepts(const CTextBlock &texts, int columns) const
{
    return !d_ptr_ || d_ptr_->Accepts(texts, columns);
}

int CRowFilter::ListCount() const
{
    return d_ptr_ ? d_ptr_->ListCount() : 0;
}

bool CRowFilter::ListAccepts(const CTextBlock &texts, int column) const
{
    return !d_ptr_ || d_ptr_->ListAccepts(texts, column);
}

} // namespace Ravel
