// SPDX-License-Identifier: MIT
#pragma once

namespace Nim::Base::FileSystem {

// Gives `source` the name `target`, or returns false if that name is taken; never a moment with
// neither.
bool RenameWithoutReplacing(const char *source, const char *target);

} // namespace Nim::Base::FileSystem
