// SPDX-License-Identifier: MIT
#pragma once

#include "KeyBoard/KeyBoardDriver.h"

#include <QtCore/QStringList>

#include <functional>

namespace KeyBoard {

/// \brief The driver of the devices that need no special one; one in the process.
[[nodiscard]] KeyBoardDriver &DefaultDriver();

/// \brief See KeyBoard_SetSerialPorts().
void SetSerialPorts(const QStringList &paths);

/// \brief See KeyBoard_SetPortListener().
void SetPortListener(std::function<void(const KeyBoardPortNews &news)> listener);

} // namespace KeyBoard
