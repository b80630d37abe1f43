// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace ClientComm {

// What a document may hold. A reader refuses more, because its text may come from anybody.

constexpr std::size_t kDocumentBytes = std::size_t(16) << 20;
constexpr std::size_t kDocumentDepth = 1024;
constexpr std::size_t kDocumentNodes = 1'000'000; ///< elements, or members and items
constexpr std::size_t kDocumentNameBytes = 1024;
constexpr std::size_t kDocumentAttributes = 64; ///< of one element

} // namespace ClientComm
