// SPDX-License-Identifier: MIT
#include "controller/JoystickKeyBoardControl/ControlFlow.h"

#include "common/Guard.h"
#include "common/Translate.h"
#include "controller/JoystickKeyBoardControl/ControlHost.h"

#include <Faceplate/NewInfoDlg.h>

#include <QtCore/QPointer>

namespace Vantor {
namespace {

constexpr int kDeviceFound = 7;

} // namespace

CControlFlow::CControlFlow(QObject *manager, const char *class_name, const ControlTable &table,
                           Send send)
    : manager_(manager), class_name_(class_name), send_(std::move(send)), device_(table)
{}

void CControlFlow::Take(const ControlInput &input, const CControlDevice::Translate &translate)
{
    ControlCommand command;
    auto outcome = CControlDevice::Outcome::kIgnore;
    RunGuarded(class_name_,
               [&] { outcome = device_.Take(input, translate, AlwaysSendsStops(), command); });
    if (outcome == CControlDevice::Outcome::kToggleMode)
        ToggleMode();
    else if (outcome == CControlDevice::Outcome::kEmit)
        Emit(command);
}

bool CControlFlow::StopAll()
{
    if (!AlwaysSendsStops())
        return true;
    for (const ControlCommand &stop : device_.StopAll()) {
        if (!Emit(stop))
            return false;
    }
    return true;
}

// False when a slot deleted the manager.
bool CControlFlow::Emit(const ControlCommand &command)
{
    if (!command.is_stop && host_)
        host_->OnCommand();
    const QPointer<QObject> alive(manager_);
    const Send send = send_; // a slot may delete the original
    RunGuarded(class_name_, [&] { send(command); });
    if (alive)
        device_.End(command);
    return alive;
}

void CControlFlow::ToggleMode()
{
    const bool is_window_control = !device_.IsWindowControl();
    device_.SetWindowControl(is_window_control);
    if (ShowTip(is_window_control ? "USBJoystickIsCurrentjebLzucZ" : "USBRockerIsCurrentlyDLwSBpeZ")
        && host_)
        host_->OnModeSwitched(); // last: a slot may delete the manager
}

bool CControlFlow::ShowTip(const char *key, bool is_found)
{
    const QPointer<QObject> alive(manager_);
    RunGuarded(class_name_, [&] {
        Faceplate::CStruInfoTipsData data;
        data.text = Translate(QLatin1String(key), class_name_);
        if (is_found)
            data.information_type = kDeviceFound;
        if (host_)
            data.parent = host_->TipParent();
        Faceplate::CNewInfoDlg::ShowInformationAtScreenRightBottom_V3(data);
    });
    return alive;
}

bool CControlFlow::AlwaysSendsStops() const
{
    return host_ && host_->AlwaysSendsStops();
}

} // namespace Vantor
