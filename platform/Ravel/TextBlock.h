// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QStringList>

#include <memory>
#include <string_view>

namespace Ravel {

/// \brief Have the memory at \a place brought near, for a walk that comes there soon.
inline void Prefetch(const void *place)
{
#if defined(__GNUC__)
    __builtin_prefetch(place);
#else
    (void)place;
#endif
}

/// The bit of LetterOf() that every character beyond U+00FF has.
constexpr quint64 kWideLetter = quint64{1} << 63U;

/// \brief One bit of 64 for each letter and digit of ASCII, one for the rest of Latin-1; no bit
/// for blanks and signs. A character beyond U+00FF has kWideLetter and the bit of its low byte.
[[nodiscard]] VANTOR_PLATFORM_EXPORT quint64 LetterOf(QChar character);

/// \brief The texts of one row in a single piece of memory, because a list has a million of them.
///
/// The texts follow each other in memory, as Latin-1 where every character allows it and as UTF-16
/// otherwise, behind the ends of the columns in 16 bits each, or 32 where 16 do not reach.
class VANTOR_PLATFORM_EXPORT CTextBlock
{
public:
    CTextBlock() = default; ///< No columns.
    /// \brief One column for each of \a texts.
    explicit CTextBlock(const QStringList &texts);

    /// \brief See Ravel::Prefetch().
    void Prefetch() const
    {
        constexpr int kCacheLine = 64; // bytes
        if (!ptr_bytes_)
            return;
        Ravel::Prefetch(ptr_bytes_.get());
        Ravel::Prefetch(ptr_bytes_.get() + kCacheLine);
    }

    /// \brief How many columns there are.
    [[nodiscard]] int Count() const { return ptr_bytes_ ? static_cast<int>(Head() >> 2U) : 0; }
    /// \brief Whether the texts are UTF-16: then Wide() reads them, otherwise Latin().
    [[nodiscard]] bool IsWide() const { return ptr_bytes_ && (Head() & kWideText); }

    /// \brief LetterOf() of all characters: most rows that lack a keyword lack one of its letters,
    /// and this is found without reading the texts.
    [[nodiscard]] quint64 Letters() const { return letters_; }

    /// \brief The text of \a column; empty outside 0 to Count() - 1.
    [[nodiscard]] QString Text(int column) const;
    /// \brief The texts of all columns.
    [[nodiscard]] QStringList Texts() const;

    /// \brief Where the text of \a column, of 0 to Count() - 1, ends, in characters from the first
    /// column's beginning.
    [[nodiscard]] size_t End(int column) const
    {
        const auto at = static_cast<size_t>(column);
        return Head() & kWideEnds ? reinterpret_cast<const quint32 *>(Ends())[at]
                                  : reinterpret_cast<const quint16 *>(Ends())[at];
    }

    /// \brief The texts of \a columns columns from \a first on; all of them must exist.
    [[nodiscard]] std::string_view Latin(int first, int columns = 1) const
    {
        return View<char>(first, columns);
    }
    /// \brief The same where IsWide(), in UTF-16.
    [[nodiscard]] std::u16string_view Wide(int first, int columns = 1) const
    {
        return View<char16_t>(first, columns);
    }

private:
    static constexpr quint32 kWideText = 1;
    static constexpr quint32 kWideEnds = 2;

    template <class Char, class End>
    void Fill(const QStringList &texts, size_t length, quint32 head);

    quint32 Head() const { return *reinterpret_cast<const quint32 *>(ptr_bytes_.get()); }
    const uchar *Ends() const { return ptr_bytes_.get() + sizeof(quint32); }

    template <class Char> std::basic_string_view<Char> View(int first, int columns) const
    {
        if (columns <= 0)
            return {};
        const size_t width = Head() & kWideEnds ? sizeof(quint32) : sizeof(quint16);
        const auto *const text =
            reinterpret_cast<const Char *>(Ends() + static_cast<size_t>(Count()) * width);
        const size_t begin = first > 0 ? End(first - 1) : 0;
        return {text + begin, End(first + columns - 1) - begin};
    }

    // The number of columns above the two flags, the ends, the texts.
    std::unique_ptr<uchar[]> ptr_bytes_;
    quint64 letters_ = 0;
};

} // namespace Ravel
