// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace KeyBoard {

/// \brief The folder of the shared library that this code is in; one source file per system defines
/// it. Empty when the system does not say.
[[nodiscard]] QString LibraryFolder();

} // namespace KeyBoard
