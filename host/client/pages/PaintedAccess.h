// SPDX-License-Identifier: MIT
#pragma once

namespace Client {

/// \brief Let assistive technology see what the client paints by hand: the bar of the shown share
/// as a progress bar, the camera's view and the colours as pictures. Works once.
void InstallPaintedAccess();

} // namespace Client
