// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace BusinessCommon {

/// What happens when the application object ends, in this order.
enum class EndStep {
    FinishWrites, ///< wait for what the user changed last; tasks for the GUI thread still run
    BreakOff,     ///< end the exchanges under way
};

/// \brief Let the end of the application object call \a action at \a step; one action a step. Any
/// thread, as often as one likes, with the same action.
void AtApplicationEnd(EndStep step, void (*action)());

/// \brief Call \a task on the GUI thread, later. Any thread; nothing happens without an application
/// object, which is safe to end meanwhile.
void PostToGui(std::function<void()> task);

} // namespace BusinessCommon
