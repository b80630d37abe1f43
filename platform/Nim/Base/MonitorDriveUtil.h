// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QRect>
#include <QtCore/QString>

#include <functional>
#include <vector>

namespace Nim::Base::MonitorDriveUtil {

/// \brief One display that is present.
struct DeviceInfoStru
{
    QString name;                 ///< The system's name of the output.
    QRect geometry;               ///< Place on the virtual desktop, device-independent pixels.
    bool is_primary = false;      ///< The display that carries the main menu or task bar.
    qreal device_pixel_ratio = 1; ///< Physical pixels to one device-independent pixel.
};

/// Called with the complete list of displays each time the set changes, on the notifier's thread.
using DeviceChangeCallBack = void (*)(std::vector<DeviceInfoStru> devices, void *user_data);

/// What watches the displays: starts (\a enable) or stops calling \a callback; false when it
/// cannot.
using Backend = std::function<bool(bool enable, DeviceChangeCallBack callback, void *user_data)>;

/// \brief Replace what watches the displays; an empty function restores the default, which follows
/// Qt's screens, calls on the GUI thread, and needs the QGuiApplication to exist.
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
