// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace Nim::Base {

// Replacements for realloc() and free() that overwrite a block before they free it. Libraries that
// let us choose their allocator get them, because their buffers hold passwords and sessions. The
// blocks are those of malloc(), so the two families may be mixed.

void *WipedRealloc(void *block, std::size_t size);
void WipedFree(void *block);

} // namespace Nim::Base
