// SPDX-License-Identifier: MIT
#pragma once

#include "Nim/Base/DisplayInfo.h"

namespace Nim::Base::MonitorDriveUtil {

/// \brief Qt's screens now. GUI thread.
[[nodiscard]] std::vector<DeviceInfoStru> QtScreens();

/// \brief The default Backend: call \a callback on the GUI thread at each change of Qt's screens.
/// \return false, after a log line, when there is no QGuiApplication.
bool WatchScreens(bool enable, DeviceChangeCallBack callback, void *user_data);

} // namespace Nim::Base::MonitorDriveUtil
