// SPDX-License-Identifier: MIT
#pragma once

namespace Client {

/// \brief Another descriptor of the same file, not inherited by child processes; -1 on failure.
[[nodiscard]] int CopyDescriptor(int descriptor);

/// \brief A descriptor whose output vanishes, not inherited by child processes; -1 on failure.
[[nodiscard]] int OpenNowhere();

} // namespace Client
