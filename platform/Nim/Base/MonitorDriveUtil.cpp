// SPDX-License-Identifier: MIT
#include "Nim/Base/MonitorDriveUtil.h"

#include "Nim/Base/Replaceable.h"
#include "Nim/Base/ScreenWatch.h"

namespace Nim::Base::MonitorDriveUtil {
namespace {

using CBackend = CReplaceable<bool(bool, DeviceChangeCallBack, void *)>;

CBackend &CurrentBackend()
{
    static auto *const backend = new CBackend(&WatchScreens);
    return *backend;
}

} // namespace

void SetBackend(Backend backend)
{
    CurrentBackend().Set(std::move(backend));
}

std::vector<DeviceInfoStru> PresentScreens()
{
    return QtScreens();
}

bool SetDeviceChangeCallBack(bool enable, DeviceChangeCallBack callback, void *user_data)
{
    try {
        return (*CurrentBackend().Get())(enable, callback, user_data);
    } catch (...) { // a host's backend may throw; the displays are then not watched
        return false;
    }
}

} // namespace Nim::Base::MonitorDriveUtil
