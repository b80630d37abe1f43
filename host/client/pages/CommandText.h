// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace Client {

/// \brief A command of a control device in words, such as "pan left at speed 20", in the user's
/// language.
[[nodiscard]] QString CommandText(int operation, bool is_stop, int speed, int index);

} // namespace Client
