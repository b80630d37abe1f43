// SPDX-License-Identifier: MIT
#include "controller/JoystickKeyBoardControl/USBJoystickControlManager/USBJoystickControlManager.h"

#include "common/ForwardEvents.h"
#include "controller/JoystickKeyBoardControl/ControlEmit.h"
#include "controller/JoystickKeyBoardControl/ControlTip.h"

template class Ravel::CObjectSingleton<Vantor::CUSBJoystickControlManager>;

namespace Vantor {

struct CUSBJoystickControlManagerDataPtr
{
    bool b_enabled_ = false;
    ControlRepeat repeat_;
    bool b_wnd_ctrl_ = true;
    KeyboradData::ModUsb mod_usb_ = KeyboradData::kDisconnected;
};

namespace {

using Source = ControlCode::Source;
using Second = ControlCode::Second;
using Stop = ControlCode::Stop;
using namespace KeyboradData::KeyOperation;

constexpr char kClass[] = "Vantor::CUSBJoystickControlManager";

constexpr quint32 kDeviceFound = 1301;
constexpr quint32 kDeviceGone = 1302;
constexpr quint32 kButtonReleased = 1303;
constexpr quint32 kButtonPressed = 1304;
constexpr quint32 kFirstButton = 7; // as the host's function knows it
constexpr int kNoIndex = -1;
constexpr ControlRepeat kNothingSent{kNone, 0, kNone}; // speed 0, unlike after a stop

constexpr ControlCode kCodes[] = {
    {kButtonReleased, Source::kKeyPlusSecond, kNone, kFirstButton, Second::kUnused, Stop::kAlways},
    {kButtonPressed, Source::kKeyPlusSecond, kNone, kFirstButton, Second::kUnused, Stop::kNever},
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

// What is in no range is of the kind kOther.
constexpr struct
{
    int first;
    int last;
    KeyOperationMode mode;
} kModes[] = {
    {100, 109, kContinuous}, {112, 115, kContinuous}, {116, 118, kSingle},
    {502, 504, kSingle},     {601, 601, kSingle},
};

} // namespace

CUSBJoystickControlManager::CUSBJoystickControlManager(QObject *parent)
    : QObject(parent), d_ptr_(std::make_unique<CUSBJoystickControlManagerDataPtr>())
{}

CUSBJoystickControlManager::~CUSBJoystickControlManager() = default;

bool CUSBJoystickControlManager::InitUSBJoystick()
{
    d_ptr_->b_enabled_ = true;
    d_ptr_->repeat_ = kNothingSent;
    d_ptr_->b_wnd_ctrl_ = true;
    return true;
}

bool CUSBJoystickControlManager::UnInitUSBJoystick()
{
    d_ptr_->b_enabled_ = false;
    d_ptr_->repeat_ = kNothingSent;
    d_ptr_->b_wnd_ctrl_ = true;
    return true;
}

KeyboradData::ModUsb CUSBJoystickControlManager::ConnetZellUSBJoystickType() const
{
    return d_ptr_->mod_usb_;
}

// The enabled flag is not asked: a joystick works before and after the device library was started.
void CUSBJoystickControlManager::InputEvent(quint32 first_param, quint32 second_param,
                                            TranslateFunction translate)
{
    static constexpr char kFunction[] = "Vantor::CUSBJoystickControlManager::InputEvent";
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
               "InputEvent first param:[%d], second param:[%d]", static_cast<int>(first_param),
               static_cast<int>(second_param));
    if (first_param == kDeviceFound || first_param == kDeviceGone) {
        RunGuarded(kFunction, [&] { OnDevice(first_param == kDeviceFound); });
        return;
    }
    const ControlCode *const code = FindCode(kCodes, first_param);
    if (!code)
        return;
    ControlCommand command;
    const auto to_stop = OperationToStop(d_ptr_->repeat_, AlwaysSendsStops());
    RunGuarded(kFunction, [&] { command = MakeCommand(*code, second_param, to_stop, translate); });
    // Before anything else looks at the command: a button that does nothing ends a move too.
    if (first_param == kButtonReleased && GetOperationType(command.operation) != kContinuous)
        d_ptr_->repeat_.last_operation = kNone;
    const auto send = [this, &command] {
        VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
                   "SignalUSBJostickControl, operation_type:[%d], stop_action:[%d], speed:[%d], "
                   "wnd control mode:[%d]",
                   command.operation, command.is_stop, command.speed, d_ptr_->b_wnd_ctrl_);
        Q_EMIT SignalUSBJostickControl(command.operation, command.is_stop, command.speed, kNoIndex,
                                       d_ptr_->b_wnd_ctrl_, false);
    };
    EmitCommand(
        this, kFunction, command, kUsbJoystickRules, d_ptr_->b_wnd_ctrl_, d_ptr_->repeat_,
        [this] { ToggleMode(); }, send);
}

void CUSBJoystickControlManager::OnDevice(bool is_found)
{
    const auto mode = is_found ? KeyboradData::kUsbJoystick : KeyboradData::kDisconnected;
    ShowControlTip(is_found ? "USBJoystickDeviceIsFound" : "TheUSBJoystickDisconnected", kClass,
                   is_found);
    const QPointer<QObject> alive(this);
    Q_EMIT SignalSwitchToUsbJostickMode(mode);
    if (alive)
        d_ptr_->mod_usb_ = mode; // slots still see the state before
}

void CUSBJoystickControlManager::ToggleMode()
{
    d_ptr_->b_wnd_ctrl_ = !d_ptr_->b_wnd_ctrl_;
    ShowControlTip(d_ptr_->b_wnd_ctrl_ ? "USBJoystickIsCurrentjebLzucZ"
                                       : "USBRockerIsCurrentlyDLwSBpeZ",
                   kClass);
}

KeyOperationMode CUSBJoystickControlManager::GetOperationType(Type operation)
{
    for (const auto &range : kModes) {
        if (operation >= range.first && operation <= range.last)
            return range.mode;
    }
    return kOther;
}

VANTOR_FORWARD_EVENTS(CUSBJoystickControlManager, QObject)

} // namespace Vantor
