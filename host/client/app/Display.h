// SPDX-License-Identifier: MIT
#pragma once

namespace Client {

/// \brief Whether a window can be shown. Called before the application object exists, because Qt
/// ends the program if there is no display.
[[nodiscard]] bool HasDisplay();

} // namespace Client
