// SPDX-License-Identifier: MIT
#pragma once

namespace Client {

/// \brief Whether a window can be shown, asked before there is an application object: Qt ends the
/// program when it finds no display.
[[nodiscard]] bool HasDisplay();

} // namespace Client
