// SPDX-License-Identifier: MIT
#pragma once

#include "Nim/Base/DisplayInfo.h"

#include <PlatformExport.h>

#include <functional>
#include <vector>

namespace Nim::Base::MonitorDriveUtil {

/// What watches the displays: starts (\a enable) or stops calling \a callback; false when it
/// cannot.
using Backend = std::function<bool(bool enable, DeviceChangeCallBack callback, void *user_data)>;

/// \brief Replace what watches the displays; an empty function restores the default.
///
/// The default follows Qt's screens. It calls on the GUI thread, once for all changes of one pass
/// of the event loop, when they are complete. Without a QGuiApplication it cannot watch: it logs
/// that and answers false.
VANTOR_PLATFORM_EXPORT void SetBackend(Backend backend);

/// \brief Have \a callback called with \a user_data whenever a display comes, goes or changes its
/// place, size or rank; \a enable false ends that. There is one callback: a later one takes its
/// place. Any thread.
///
/// \return false when the displays are not watched: the callback will not be called.
VANTOR_PLATFORM_EXPORT bool SetDeviceChangeCallBack(bool enable, DeviceChangeCallBack callback,
                                                    void *user_data);

/// \brief The displays that are present now, as Qt knows them. GUI thread.
[[nodiscard]] VANTOR_PLATFORM_EXPORT std::vector<DeviceInfoStru> PresentScreens();

} // namespace Nim::Base::MonitorDriveUtil
