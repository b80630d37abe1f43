// SPDX-License-Identifier: MIT
#include "Ravel/RowFilter.h"

#include "Ravel/TextBlock.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

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

// The two spellings that a text can have in a block.
struct CNeedle
{
    explicit CNeedle(const QString &text)
        : wide(Wide(text)), is_latin(IsLatin(text)),
          latin(is_latin ? text.toLatin1().toStdString() : std::string()),
          latin_searcher(latin.cbegin(), latin.cend())
    {}
    CNeedle(const CNeedle &) = delete; // the searcher would look into the other one
    CNeedle &operator=(const CNeedle &) = delete;

    size_t FindIn(std::u16string_view row, size_t from) const { return row.find(wide, from); }
    size_t FindIn(std::string_view row, size_t from) const
    {
        constexpr size_t kWorthSkipping = 3; // characters; a shorter needle skips next to nothing
        if (latin.size() < kWorthSkipping)
            return row.find(latin, from);
        const auto hit =
            std::search(row.begin() + static_cast<std::ptrdiff_t>(from), row.end(), latin_searcher);
        return hit == row.end() ? row.npos : static_cast<size_t>(hit - row.begin());
    }

    std::u16string wide;
    bool is_latin; // otherwise no Latin-1 row can hold it
    std::string latin;
    std::boyer_moore_horspool_searcher<std::string::const_iterator> latin_searcher;
};

// A hit that runs over the end of its column is none: columns stand side by side.
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

// std::string_view orders Latin-1 by unsigned bytes, which is the order of code units.
template <class Char> int Compare(std::basic_string_view<Char> left, const std::u16string &right)
{
    const auto unit = [](Char character) {
        return static_cast<char16_t>(static_cast<std::make_unsigned_t<Char>>(character));
    };
    const size_t shared = std::min(left.size(), right.size());
    for (size_t i = 0; i < shared; ++i) {
        if (unit(left[i]) != right[i])
            return unit(left[i]) < right[i] ? -1 : 1;
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

struct CRange
{
    explicit CRange(const QStringList &bounds)
        : is_open(bounds.isEmpty()), lower(is_open ? std::u16string() : Wide(bounds.constFirst())),
          upper(is_open ? std::u16string() : Wide(bounds.constLast()))
    {}

    template <class Char> bool Has(std::basic_string_view<Char> text) const
    {
        return is_open || (Compare(text, lower) >= 0 && Compare(text, upper) <= 0);
    }

    bool is_open;
    std::u16string lower;
    std::u16string upper;
};

struct CNames
{
    explicit CNames(const QStringList &names)
    {
        for (const QString &name : names) {
            wide_.insert(Wide(name));
            if (IsLatin(name))
                latin_.insert(name.toLatin1().toStdString());
        }
        for (const std::u16string &name : wide_)
            wide.insert(name);
        for (const std::string &name : latin_)
            latin.insert(name);
    }
    CNames(const CNames &) = delete; // the views would look into the other one
    CNames &operator=(const CNames &) = delete;

    bool Has(std::string_view text) const { return latin.count(text) > 0; }
    bool Has(std::u16string_view text) const { return wide.count(text) > 0; }

    std::unordered_set<std::string_view> latin;
    std::unordered_set<std::u16string_view> wide;

private:
    std::unordered_set<std::string> latin_;
    std::unordered_set<std::u16string> wide_;
};

} // namespace

struct CRowFilterPtr
{
    virtual ~CRowFilterPtr() = default;
    virtual bool Accepts(const CTextBlock &texts, int columns) const = 0;
};

namespace {

struct CWithText : CRowFilterPtr
{
    explicit CWithText(const QString &text) : needle(text) {}

    bool Accepts(const CTextBlock &texts, int columns) const override
    {
        columns = std::min(columns, texts.Count());
        if (texts.IsWide())
            return HasInOneColumn(texts, texts.Wide(0, columns), needle);
        return needle.is_latin && HasInOneColumn(texts, texts.Latin(0, columns), needle);
    }

    CNeedle needle;
};

struct CWithLists : CRowFilterPtr
{
    explicit CWithLists(const std::vector<QStringList> &lists) : range(lists.front())
    {
        for (size_t i = 1; i < lists.size(); ++i)
            names.push_back(std::make_unique<CNames>(lists[i]));
    }

    bool Accepts(const CTextBlock &texts, int columns) const override
    {
        columns = std::min(columns, texts.Count());
        return texts.IsWide() ? Passes(
                   [&](int i) { return i < columns ? texts.Wide(i) : std::u16string_view(); })
                              : Passes([&](int i) {
                                    return i < columns ? texts.Latin(i) : std::string_view();
                                });
    }

    template <class TextOf> bool Passes(TextOf &&text_of) const
    {
        if (!range.Has(text_of(0)))
            return false;
        int column = 0;
        return std::all_of(names.cbegin(), names.cend(),
                           [&](const auto &list) { return list->Has(text_of(++column)); });
    }

    CRange range;
    std::vector<std::unique_ptr<CNames>> names;
};

} // namespace

CRowFilter::CRowFilter() = default;

CRowFilter CRowFilter::WithText(const QString &text)
{
    CRowFilter filter;
    if (!text.isEmpty())
        filter.d_ptr_ = std::make_shared<const CWithText>(text);
    return filter;
}

CRowFilter CRowFilter::WithLists(const std::vector<QStringList> &lists)
{
    CRowFilter filter;
    if (!lists.empty())
        filter.d_ptr_ = std::make_shared<const CWithLists>(lists);
    return filter;
}

bool CRowFilter::Accepts(const CTextBlock &texts, int columns) const
{
    return !d_ptr_ || d_ptr_->Accepts(texts, columns);
}

} // namespace Ravel
