// SPDX-License-Identifier: MIT
#include "controller/JoystickKeyBoardControl/USBJoystickControlManager/USBJoystickControlManager.h"

#include "common/ForwardEvents.h"
#include "common/Guard.h"
#include "controller/JoystickKeyBoardControl/ControlFlow.h"
#include "controller/JoystickKeyBoardControl/ControlHost.h"

#include <QtCore/QPointer>

#include <iterator>

template class Ravel::CObjectSingleton<Vantor::CUSBJoystickControlManager>;

namespace Vantor {

namespace {

using Source = ControlCode::Source;
using Second = ControlCode::Second;
using Stop = ControlCode::Stop;
using namespace KeyboradData::KeyOperation;

constexpr char kClass[] = "Vantor::CUSBJoystickControlManager";
constexpr char kInputEvent[] = "Vantor::CUSBJoystickControlManager::InputEvent";

constexpr quint32 kDeviceFound = 1301;
constexpr quint32 kDeviceGone = 1302;
constexpr quint32 kFirstButton = 7; // as the host's function knows it
constexpr int kNoIndex = -1;
constexpr int kFirstSpeed = 0; // compared with the first move's, unlike after a stop

constexpr ControlCode kCodes[] = {
    {1303, Source::kKeyPlusSecond, kNone, kFirstButton, Second::kUnused, Stop::kRelease},
    {1304, Source::kKeyPlusSecond, kNone, kFirstButton, Second::kUnused, Stop::kNever},
    {1305, Source::kRow, kMove100, 0, Second::kSpeed, Stop::kNever},
    {1306, Source::kRow, kMove101, 0, Second::kSpeed, Stop::kNever},
    {1307, Source::kRow, kMove102, 0, Second::kSpeed, Stop::kNever},
    {1308, Source::kRow, kMove103, 0, Second::kSpeed, Stop::kNever},
    {1309, Source::kRow, kMove109, 0, Second::kSpeed, Stop::kNever},
    {1310, Source::kRow, kMove106, 0, Second::kSpeed, Stop::kNever},
    {1311, Source::kRow, kMove108, 0, Second::kSpeed, Stop::kNever},
    {1312, Source::kRow, kMove107, 0, Second::kSpeed, Stop::kNever},
    {1313, Source::kLast, kNone, 0, Second::kUnused, Stop::kAlways},
    {1314, Source::kRow, kPair104, 0, Second::kUnused, Stop::kNever},
    {1315, Source::kRow, kPair105, 0, Second::kUnused, Stop::kNever},
};

constexpr ControlTable kTable{kCodes, std::size(kCodes), ControlTable::Repeats::kMoves};

} // namespace

struct CUSBJoystickControlManagerDataPtr
{
    CUSBJoystickControlManagerDataPtr(QObject *manager, CControlFlow::Send send)
        : flow_(manager, kClass, kTable, std::move(send))
    {
        flow_.Device().SetWindowControl(true);
    }

    // Also when the joystick ends, as it still translates then.
    void BeginAnew()
    {
        const CControlHost *const host = flow_.Host();
        flow_.Device().Reset(kFirstSpeed);
        flow_.Device().SetWindowControl(!host || !host->BeginsWithCamera());
    }

    KeyboradData::ModUsb mod_usb_ = KeyboradData::kDisconnected;
    CControlFlow flow_;
};

CUSBJoystickControlManager::CUSBJoystickControlManager(QObject *parent)
    : QObject(parent), d_ptr_(std::make_unique<CUSBJoystickControlManagerDataPtr>(
                           this, [this](const ControlCommand &command) { Send(command); }))
{}

CUSBJoystickControlManager::~CUSBJoystickControlManager() = default;

bool CUSBJoystickControlManager::InitUSBJoystick()
{
    d_ptr_->BeginAnew();
    return true;
}

bool CUSBJoystickControlManager::UnInitUSBJoystick()
{
    if (d_ptr_->flow_.StopAll())
        d_ptr_->BeginAnew();
    return true;
}

bool CUSBJoystickControlManager::IsWindowControl() const
{
    return d_ptr_->flow_.Device().IsWindowControl();
}

KeyboradData::ModUsb CUSBJoystickControlManager::ConnetZellUSBJoystickType() const
{
    return d_ptr_->mod_usb_;
}

void CUSBJoystickControlManager::InputEvent(quint32 first_param, quint32 second_param,
                                            TranslateFunction translate)
{
    VANTOR_LOG(kInputEvent, 3, VANTOR_LOG_USER_OPERATE,
               "InputEvent first param:[%d], second param:[%d]", static_cast<int>(first_param),
               static_cast<int>(second_param));
    if (first_param == kDeviceFound || first_param == kDeviceGone)
        OnDevice(first_param == kDeviceFound);
    else
        d_ptr_->flow_.Take({first_param, second_param}, TranslateKeys(translate));
}

void CUSBJoystickControlManager::Send(const ControlCommand &command)
{
    const bool is_window_control = IsWindowControl();
    VANTOR_LOG(kInputEvent, 3, VANTOR_LOG_USER_OPERATE,
               "SignalUSBJostickControl, operation_type:[%d], stop_action:[%d], speed:[%d], "
               "wnd control mode:[%d]",
               command.operation, command.is_stop, command.speed, is_window_control);
    Q_EMIT SignalUSBJostickControl(command.operation, command.is_stop, command.speed, kNoIndex,
                                   is_window_control, false);
}

void CUSBJoystickControlManager::OnDevice(bool is_found)
{
    const auto mode = is_found ? KeyboradData::kUsbJoystick : KeyboradData::kDisconnected;
    if (!d_ptr_->flow_.ShowTip(is_found ? "USBJoystickDeviceIsFound" : "TheUSBJoystickDisconnected",
                               is_found))
        return;
    const QPointer<QObject> alive(this);
    RunGuarded(kInputEvent, [&] { Q_EMIT SignalSwitchToUsbJostickMode(mode); });
    if (alive)
        d_ptr_->mod_usb_ = mode; // slots still see the state before
}

KeyOperationMode CUSBJoystickControlManager::GetOperationType(Type operation)
{
    return OperationKind(operation);
}

void CUSBJoystickControlManager::SetHost(CControlHost *host)
{
    d_ptr_->flow_.SetHost(host);
}

VANTOR_FORWARD_EVENTS(CUSBJoystickControlManager, QObject)

} // namespace Vantor
