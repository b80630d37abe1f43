// SPDX-License-Identifier: MIT
#pragma once

namespace Vantor {

class CAnimationProgressBar;

/// \brief Let assistive technology see time lines as sliders whose value is the time at the cursor
/// line. Called by each time line that is made; works once.
void InstallTimeLineAccess();

/// \brief Tell assistive technology that the value has changed.
void NotifyTimeLineAccess(CAnimationProgressBar &bar);

} // namespace Vantor
