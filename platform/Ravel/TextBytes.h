// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtEndian>
#include <QtCore/QtGlobal>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace Ravel {

// The texts of a list are short, and a call of memcmp() or memcpy() takes longer than they do. So
// they are read as words; the last word overlaps the one before.

template <class Word> quint64 LoadWord(const char *bytes)
{
    Word word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

/// \brief Below, equal to or above 0, as bytes \a left come before, are or come after \a right.
inline int CompareBytes(std::string_view left, std::string_view right)
{
    constexpr size_t kWord = sizeof(quint64);
    const size_t size = std::min(left.size(), right.size());
    if (size < kWord)
        return left.compare(right);
    for (size_t at = 0;; at = std::min(at + kWord, size - kWord)) {
        const quint64 a = LoadWord<quint64>(left.data() + at);
        const quint64 b = LoadWord<quint64>(right.data() + at);
        if (a != b)
            return qFromBigEndian(a) < qFromBigEndian(b) ? -1 : 1;
        if (at == size - kWord)
            return int(left.size() > size) - int(right.size() > size);
    }
}

/// \brief Whether the bytes are the same.
inline bool AreSameBytes(std::string_view left, std::string_view right)
{
    return left.size() == right.size() && CompareBytes(left, right) == 0;
}

} // namespace Ravel
