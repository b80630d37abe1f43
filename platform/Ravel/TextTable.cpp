// SPDX-License-Identifier: MIT
#include "Ravel/TextTable.h"

#include "Ravel/TextBytes.h"

namespace Ravel {
namespace {

constexpr size_t kLeastSlots = 64;

quint32 Hash(std::string_view text)
{
    constexpr quint64 kFactor = 0x9E3779B97F4A7C15U;
    constexpr size_t kWord = sizeof(quint64);
    const char *const begin = text.data();
    const size_t size = text.size();
    quint64 hash = size * kFactor;
    const auto mix = [&hash](quint64 word) {
        hash = (hash ^ word) * kFactor;
        hash ^= hash >> 32U;
    };
    for (size_t at = 0; at + kWord < size; at += kWord)
        mix(LoadWord<quint64>(begin + at));
    if (size >= kWord)
        mix(LoadWord<quint64>(begin + size - kWord));
    else if (size >= kWord / 2)
        mix(LoadWord<quint32>(begin) << 32U | LoadWord<quint32>(begin + size - kWord / 2));
    else if (size > 0)
        mix(LoadWord<uchar>(begin) << 16U | LoadWord<uchar>(begin + size / 2) << 8U
            | LoadWord<uchar>(begin + size - 1));
    return static_cast<quint32>(hash >> 16U);
}

} // namespace

std::string_view CTextTable::Text(int number) const
{
    const CEntry &entry = entries_[static_cast<size_t>(number)];
    return {bytes_.data() + entry.begin, entry.size};
}

// The slot that has the text, or the free one that it would get.
size_t CTextTable::SlotOf(std::string_view text, quint32 hash) const
{
    const size_t mask = slots_.size() - 1;
    for (size_t slot = hash & mask;; slot = (slot + 1) & mask) {
        if (slots_[slot] < 0)
            return slot;
        const CEntry &entry = entries_[static_cast<size_t>(slots_[slot])];
        if (entry.hash == hash && AreSameBytes({bytes_.data() + entry.begin, entry.size}, text))
            return slot;
    }
}

int CTextTable::Find(std::string_view text) const
{
    return slots_.empty() ? -1 : slots_[SlotOf(text, Hash(text))];
}

int CTextTable::Number(std::string_view text)
{
    if (entries_.size() * 2 >= slots_.size())
        Grow();
    const quint32 hash = Hash(text);
    int &number = slots_[SlotOf(text, hash)];
    if (number < 0) {
        number = Count();
        entries_.push_back({bytes_.size(), static_cast<quint32>(text.size()), hash});
        bytes_.append(text);
    }
    return number;
}

void CTextTable::Grow()
{
    slots_.assign(slots_.empty() ? kLeastSlots : slots_.size() * 4, -1);
    const size_t mask = slots_.size() - 1;
    for (size_t number = 0; number < entries_.size(); ++number) {
        size_t slot = entries_[number].hash & mask;
        while (slots_[slot] >= 0)
            slot = (slot + 1) & mask;
        slots_[slot] = static_cast<int>(number);
    }
}

} // namespace Ravel
