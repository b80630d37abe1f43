// SPDX-License-Identifier: MIT
#include "controller/JoystickKeyBoardControl/ZellSerialKeyboardControlManager/ZellSerialKeyboardControlManager.h"

#include "common/ForwardEvents.h"
#include "controller/JoystickKeyBoardControl/ControlEmit.h"
#include "controller/JoystickKeyBoardControl/ControlTip.h"

template class Ravel::CObjectSingleton<Vantor::CZellSerialKeyboardControlManager>;

namespace Vantor {

struct CZellSerialKeyboardControlManagerDataPtr
{
    bool b_enabled_ = false;
    ControlRepeat repeat_;
    bool b_wnd_ctrl_ = false;
};

namespace {

using Source = ControlCode::Source;
using Second = ControlCode::Second;
using Stop = ControlCode::Stop;
using namespace KeyboradData::KeyOperation;

constexpr char kClass[] = "Vantor::CZellSerialKeyboardControlManager";

constexpr ControlCode kCodes[] = {
    {2001, Source::kRow, kSelectWindow124, 0, Second::kSelectIndex, Stop::kNever},
    {2002, Source::kRow, kSelectWindow125, 0, Second::kSelectIndex, Stop::kNever},
    {3002, Source::kRow, kKey116, 0, Second::kUnused, Stop::kNever},
    {3003, Source::kRow, kKey117, 0, Second::kUnused, Stop::kNever},
    {3011, Source::kRow, kPair104, 0, Second::kUnused, Stop::kNever},
    {3012, Source::kRow, kPair105, 0, Second::kUnused, Stop::kNever},
    {3013, Source::kRow, kKey112, 0, Second::kUnused, Stop::kNever},
    {3014, Source::kRow, kKey113, 0, Second::kUnused, Stop::kNever},
    {3015, Source::kRow, kKey114, 0, Second::kUnused, Stop::kNever},
    {3016, Source::kRow, kKey115, 0, Second::kUnused, Stop::kNever},
    {3021, Source::kRow, kMove100, 0, Second::kSpeed, Stop::kNever},
    {3022, Source::kRow, kMove101, 0, Second::kSpeed, Stop::kNever},
    {3023, Source::kRow, kMove102, 0, Second::kSpeed, Stop::kNever},
    {3024, Source::kRow, kMove103, 0, Second::kSpeed, Stop::kNever},
    {3025, Source::kRow, kMove100, 0, Second::kSpeed, Stop::kNever},
    {3026, Source::kRow, kMove101, 0, Second::kSpeed, Stop::kNever},
    {3027, Source::kRow, kMove102, 0, Second::kSpeed, Stop::kNever},
    {3028, Source::kRow, kMove103, 0, Second::kSpeed, Stop::kNever},
    {3029, Source::kRow, kKey118, 0, Second::kUnused, Stop::kNever},
    {3030, Source::kLast, kNone, 0, Second::kUnused, Stop::kAlways},
    {3050, Source::kRow, kSelectIndex, 0, Second::kSelectIndex, Stop::kNever},
    {3052, Source::kRow, kToggleMode, 0, Second::kUnused, Stop::kNever},
    {3060, Source::kRow, kKey118, 0, Second::kUnused, Stop::kNever},
};

constexpr quint32 kRaisedValue = 1; // these keyboards send 1 for what cameras need 4 for
constexpr quint32 kRaisedTo = 4;

} // namespace

CZellSerialKeyboardControlManager::CZellSerialKeyboardControlManager(QObject *parent)
    : QObject(parent), d_ptr_(std::make_unique<CZellSerialKeyboardControlManagerDataPtr>())
{}

CZellSerialKeyboardControlManager::~CZellSerialKeyboardControlManager() = default;

bool CZellSerialKeyboardControlManager::InitZellSerialKeyboard()
{
    d_ptr_->b_enabled_ = true;
    d_ptr_->b_wnd_ctrl_ = false;
    return true;
}

bool CZellSerialKeyboardControlManager::UnInitZellSerialKeyboard()
{
    d_ptr_->b_enabled_ = false;
    d_ptr_->b_wnd_ctrl_ = false;
    return true;
}

void CZellSerialKeyboardControlManager::InputEvent(quint32 first_param, quint32 second_param)
{
    static constexpr char kFunction[] = "Vantor::CZellSerialKeyboardControlManager::InputEvent";
    if (second_param == kRaisedValue)
        second_param = kRaisedTo;
    if (!d_ptr_->b_enabled_)
        return;
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
               "InputEvent first param:[%d], second param:[%d]", static_cast<int>(first_param),
               static_cast<int>(second_param));
    const ControlCode *const code = FindCode(kCodes, first_param);
    if (!code)
        return;

    const auto command = MakeCommand<int>(
        *code, second_param, OperationToStop(d_ptr_->repeat_, AlwaysSendsStops()), nullptr);
    const auto send = [this, &command] {
        // The text names the USB keyboard's signal: log analysis takes both keyboards together.
        VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE,
                   "SignalZellUSBKeyboardControl, operation_type:[%d], stop_action:[%d], "
                   "speed:[%d], select index:[%d], ptz mode:[%d]",
                   command.operation, command.is_stop, command.speed, command.select_index,
                   d_ptr_->b_wnd_ctrl_);
        Q_EMIT SignalZellSerialKeyboardControl(command.operation, command.is_stop, command.speed,
                                               command.select_index, d_ptr_->b_wnd_ctrl_, false);
    };
    EmitCommand(
        this, kFunction, command, kSerialKeyboardRules, d_ptr_->b_wnd_ctrl_, d_ptr_->repeat_,
        [this] { ToggleMode(); }, send);
}

void CZellSerialKeyboardControlManager::ToggleMode()
{
    d_ptr_->b_wnd_ctrl_ = !d_ptr_->b_wnd_ctrl_;
    ShowControlTip(d_ptr_->b_wnd_ctrl_ ? "USBJoystickIsCurrentjebLzucZ"
                                       : "USBRockerIsCurrentlyDLwSBpeZ",
                   kClass);
}

VANTOR_FORWARD_EVENTS(CZellSerialKeyboardControlManager, QObject)

} // namespace Vantor
