// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QRect>
#include <QtCore/QString>

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

} // namespace Nim::Base::MonitorDriveUtil
