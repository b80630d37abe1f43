// SPDX-License-Identifier: MIT
#include "Nim/Base/WipedMemory.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace Nim::Base {
namespace {

std::size_t UsableSize(void *block)
{
#ifdef _WIN32
    return _msize(block);
#else
    return malloc_usable_size(block);
#endif
}

} // namespace

void *WipedRealloc(void *block, std::size_t size)
{
    if (!block)
        return std::malloc(size);
    void *const larger = std::malloc(size);
    if (!larger)
        return nullptr;
    std::memcpy(larger, block, std::min(size, UsableSize(block)));
    WipedFree(block);
    return larger;
}

void WipedFree(void *block)
{
    // The compiler would leave out a write to memory that is freed next.
    static void *(*const volatile fill)(void *, int, std::size_t) = std::memset;
    if (block)
        fill(block, 0, UsableSize(block));
    std::free(block);
}

} // namespace Nim::Base
