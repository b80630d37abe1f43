// SPDX-License-Identifier: MIT
#include "controller/JoystickKeyBoardControl/ZellUSBKeyboardControlManager/ZellUSBKeyboardControlManager.h"

#include "common/ForwardEvents.h"
#include "controller/JoystickKeyBoardControl/ControlEmit.h"
#include "controller/JoystickKeyBoardControl/ControlTip.h"

template class Ravel::CObjectSingleton<Vantor::CZellUSBKeyboardControlManager>;

namespace Vantor {

struct CZellUSBKeyboardControlManagerDataPtr
{
    bool b_enabled_ = false;
    ControlRepeat repeat_;
    bool b_wall_mode_ = false;
    bool b_ptz_mode_ = false;
    KeyboradData::ModUsb mod_usb_ = KeyboradData::kDisconnected;
};

namespace {

using Source = ControlCode::Source;
using Second = ControlCode::Second;
using Stop = ControlCode::Stop;
using namespace KeyboradData::KeyOperation;

constexpr char kClass[] = "Vantor::CZellUSBKeyboardControlManager";

constexpr quint32 kDeviceFound = 5001;
constexpr quint32 kDeviceGone = 5002;
constexpr quint32 kSelection = 5101;
constexpr quint32 kSecondWindow = 2; // the third parameter of a selection

// The moves are not in ascending order: the keyboard counts its directions clockwise in pairs.
constexpr ControlCode kCodes[] = {
    {kSelection, Source::kRow, kSelectWindow124, 0, Second::kSelectIndex, Stop::kNever},
    {5102, Source::kKey, kNone, 10, Second::kUnused, Stop::kNever},
    {5103, Source::kKey, kNone, 11, Second::kUnused, Stop::kNever},
    {5104, Source::kKey, kNone, 12, Second::kUnused, Stop::kWhenSecondIsOne},
    {5105, Source::kKey, kNone, 13, Second::kUnused, Stop::kWhenSecondIsOne},
    {5106, Source::kKey, kNone, 14, Second::kUnused, Stop::kWhenSecondIsOne},
    {5201, Source::kRow, kMove100, 0, Second::kSpeed, Stop::kNever},
    {5202, Source::kRow, kMove101, 0, Second::kSpeed, Stop::kNever},
    {5203, Source::kRow, kMove102, 0, Second::kSpeed, Stop::kNever},
    {5204, Source::kRow, kMove103, 0, Second::kSpeed, Stop::kNever},
    {5205, Source::kRow, kMove109, 0, Second::kSpeed, Stop::kNever},
    {5206, Source::kRow, kMove106, 0, Second::kSpeed, Stop::kNever},
    {5207, Source::kRow, kMove108, 0, Second::kSpeed, Stop::kNever},
    {5208, Source::kRow, kMove107, 0, Second::kSpeed, Stop::kNever},
    {5209, Source::kLast, kNone, 0, Second::kUnused, Stop::kAlways},
    {5210, Source::kRow, kPair104, 0, Second::kUnused, Stop::kNever},
    {5211, Source::kRow, kPair105, 0, Second::kUnused, Stop::kNever},
};

} // namespace

CZellUSBKeyboardControlManager::CZellUSBKeyboardControlManager(QObject *parent)
    : QObject(parent), d_ptr_(std::make_unique<CZellUSBKeyboardControlManagerDataPtr>())
{
    // Hosts reach the wall mode by their own key; nothing here calls it, its slot in the class
    // stays.
    Q_UNUSED(&CZellUSBKeyboardControlManager::SetMode)
}

CZellUSBKeyboardControlManager::~CZellUSBKeyboardControlManager() = default;

bool CZellUSBKeyboardControlManager::InitZellUSBKeyboard()
{
    d_ptr_->b_enabled_ = true;
    return true;
}

bool CZellUSBKeyboardControlManager::UnInitZellUSBKeyboard()
{
    d_ptr_->b_enabled_ = false;
    return true;
}

KeyboradData::ModUsb CZellUSBKeyboardControlManager::ConnetZellUSBJoystickType() const
{
    return d_ptr_->mod_usb_;
}

void CZellUSBKeyboardControlManager::InputEvent(quint32 first_param, quint32 second_param,
                                                quint32 third_param, TranslateFunction translate)
{
    static constexpr char kFunction[] = "Vantor::CZellUSBKeyboardControlManager::InputEvent";
    if (!d_ptr_->b_enabled_)
        return;
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
               "InputEvent first param:[%d], second param:[%d], third param:[%d]",
               static_cast<int>(first_param), static_cast<int>(second_param),
               static_cast<int>(third_param));
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
    if (first_param == kSelection && third_param == kSecondWindow)
        command.operation = kSelectWindow125;
    const auto send = [this, &command] {
        VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
                   "SignalZellUSBKeyboardControl, operation_type:[%d], stop_action:[%d], "
                   "speed:[%d], select index:[%d], ptz mode:[%d]",
                   command.operation, command.is_stop, command.speed, command.select_index,
                   d_ptr_->b_ptz_mode_);
        Q_EMIT SignalZellUSBKeyboardControl(command.operation, command.is_stop, command.speed,
                                            command.select_index, !d_ptr_->b_ptz_mode_, false);
    };
    EmitCommand(
        this, kFunction, command, kUsbKeyboardRules, !d_ptr_->b_ptz_mode_, d_ptr_->repeat_,
        [this] { ToggleMode(); }, send);
}

void CZellUSBKeyboardControlManager::OnDevice(bool is_found)
{
    const auto mode = is_found ? KeyboradData::kUsbKeyboard : KeyboradData::kDisconnected;
    ShowControlTip(is_found ? "TheUSBKeyboardIsDetected" : "TheUSBKeyboardDisconnected", kClass,
                   is_found);
    const QPointer<QObject> alive(this);
    Q_EMIT SignalSwitchToUsbKeyboardMode(mode);
    if (alive)
        d_ptr_->mod_usb_ = mode; // slots still see the state before
}

void CZellUSBKeyboardControlManager::ToggleMode()
{
    d_ptr_->b_ptz_mode_ = !d_ptr_->b_ptz_mode_;
    // The other way round than the other devices, whose flag says window control.
    ShowControlTip(d_ptr_->b_ptz_mode_ ? "USBRockerIsCurrentlyDLwSBpeZ"
                                       : "USBJoystickIsCurrentjebLzucZ",
                   kClass);
}

bool CZellUSBKeyboardControlManager::SetMode(quint32 first_param, quint32 second_param,
                                             TranslateFunction translate)
{
    const ControlCode *const code = FindCode(kCodes, first_param);
    if (!code || code->source != Source::kKey)
        return false;
    const ControlCommand command = MakeCommand(*code, second_param, kNone, translate);
    if (command.is_stop || command.operation != kToggleWall)
        return false;
    d_ptr_->b_wall_mode_ = !d_ptr_->b_wall_mode_;
    ShowControlTip(d_ptr_->b_wall_mode_ ? "SwitchToWallModeAJryBrmWGiU"
                                        : "SwitchToVideoModeMrVWQzLOUDm",
                   kClass);
    Q_EMIT SignalSwitchToUsbKeyboardMode(d_ptr_->b_wall_mode_ ? KeyboradData::kUsbKeyboardWall
                                                              : KeyboradData::kUsbKeyboard);
    return true;
}

VANTOR_FORWARD_EVENTS(CZellUSBKeyboardControlManager, QObject)

} // namespace Vantor
