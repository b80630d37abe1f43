// SPDX-License-Identifier: MIT
#pragma once

#include "KeyBoard/KeyBoard.h"

namespace KeyBoard {

/// \brief The driver of the devices that need none of their own; one in the process.
[[nodiscard]] KeyBoardDriver &DefaultDriver();

/// \brief See KeyBoard_SetSerialPorts().
void SetSerialPorts(const QStringList &paths);

} // namespace KeyBoard
