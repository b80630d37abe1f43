// SPDX-License-Identifier: MIT
#include "controller/Screen/ScreenStateManager.h"

#include "common/Guard.h"

#include <functional>
#include <map>

template class Nim::Base::CSingleton<Vantor::CScreenStateManager>;

namespace Vantor {

namespace MonitorDriveUtil = Nim::Base::MonitorDriveUtil;

namespace {

struct Listener
{
    bool b_enable_ = false;
    void *ptr_user_data_ = nullptr;
};

} // namespace

struct CScreenStateManagerDataPtr
{
    bool b_registered_ = false;
    std::map<void *, Listener, std::less<>> map_listeners_;
};

namespace {

// The base library keeps this and the manager's address to the end of the process.
void DeviceCallBack(std::vector<MonitorDriveUtil::DeviceInfoStru> devices, void *user_data)
{
    if (!user_data) {
        // The name as the client's log filters know it.
        VANTOR_LOG("Vantor::`anonymous-namespace'::DeviceCallBack", 4, VANTOR_LOG_WARNING,
                   "Get display manager ptr failed");
        return;
    }
    static_cast<CScreenStateManager *>(user_data)->UpdateScreenParam(std::move(devices));
}

} // namespace

CScreenStateManager::CScreenStateManager() : d_ptr_(std::make_shared<CScreenStateManagerDataPtr>())
{}

CScreenStateManager::~CScreenStateManager() = default;

void CScreenStateManager::SetCallBack(bool enable, void *callback, void *user_data)
{
    static constexpr char kFunction[] = "Vantor::CScreenStateManager::SetCallBack";
    RunGuarded(kFunction, [&] {
        d_ptr_->map_listeners_[callback] = {enable, user_data};
        if (d_ptr_->b_registered_)
            return;
        // Once, whatever the base library answers: it is asked a single time in a process.
        d_ptr_->b_registered_ = true;
        MonitorDriveUtil::SetDeviceChangeCallBack(true, &DeviceCallBack, this);
    });
}

void CScreenStateManager::UpdateScreenParam(std::vector<MonitorDriveUtil::DeviceInfoStru> devices)
{
    static constexpr char kFunction[] = "Vantor::CScreenStateManager::UpdateScreenParam";
    for (const auto &[callback, listener] : d_ptr_->map_listeners_) {
        if (!callback || !listener.b_enable_)
            continue;
        const auto call = reinterpret_cast<MonitorDriveUtil::DeviceChangeCallBack>(callback);
        RunGuarded(kFunction,
                   [&, user_data = listener.ptr_user_data_] { call(devices, user_data); });
    }
}

} // namespace Vantor
