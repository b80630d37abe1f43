// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QtGlobal>

#include <string>
#include <string_view>
#include <vector>

namespace Ravel {

/// \brief Texts as bytes, each once, numbered in the order in which they came.
///
/// Several times as fast as std::unordered_map for the short texts of a list, because a text is
/// looked up a million times and stored in one piece with the others.
class VANTOR_PLATFORM_EXPORT CTextTable
{
public:
    /// \return the number of \a text, which is added when it is new.
    int Number(std::string_view text);
    /// \return the number of \a text, or -1 when it is not there.
    [[nodiscard]] int Find(std::string_view text) const;
    /// \brief How many texts there are; their numbers are 0 to Count() - 1.
    [[nodiscard]] int Count() const { return static_cast<int>(entries_.size()); }
    /// \brief The text of \a number; good until another text is added.
    [[nodiscard]] std::string_view Text(int number) const;

private:
    struct CEntry
    {
        size_t begin;
        quint32 size;
        quint32 hash;
    };

    [[nodiscard]] size_t SlotOf(std::string_view text, quint32 hash) const;
    void Grow();

    std::string bytes_;
    std::vector<CEntry> entries_;
    std::vector<int> slots_; // a power of two of them; -1: free
};

} // namespace Ravel
