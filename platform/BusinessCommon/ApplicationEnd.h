// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace BusinessCommon {

/// \brief Let the end of the application object finish the writes of layouts and break off what is
/// still under way. Any thread, as often as one likes.
void WatchApplicationEnd();

/// \brief Call \a task on the GUI thread, later. Any thread; nothing happens without an application
/// object, which is safe to end meanwhile.
void PostToGui(std::function<void()> task);

} // namespace BusinessCommon
