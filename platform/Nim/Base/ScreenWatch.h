// SPDX-License-Identifier: MIT
#pragma once

#include "Nim/Base/MonitorDriveUtil.h"

namespace Nim::Base::MonitorDriveUtil {

/// \brief The default Backend: call \a callback on the GUI thread at each change of Qt's screens.
/// \return false when there is no QGuiApplication.
bool WatchScreens(bool enable, DeviceChangeCallBack callback, void *user_data);

} // namespace Nim::Base::MonitorDriveUtil
