// SPDX-License-Identifier: MIT
#include "controller/JoystickKeyBoardControl/ZellSerialKeyboardControlManager/ZellSerialKeyboardControlManager.h"

#include "common/ForwardEvents.h"
#include "common/LogMacro.h"
#include "controller/JoystickKeyBoardControl/ControlFlow.h"

#include <iterator>

template class Ravel::CObjectSingleton<Vantor::CZellSerialKeyboardControlManager>;

namespace Vantor {

namespace {

using Source = ControlCode::Source;
using Second = ControlCode::Second;
using Stop = ControlCode::Stop;
using namespace KeyboradData::KeyOperation;

constexpr char kClass[] = "Vantor::CZellSerialKeyboardControlManager";
constexpr char kInputEvent[] = "Vantor::CZellSerialKeyboardControlManager::InputEvent";

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

constexpr ControlTable kTable{kCodes, std::size(kCodes), ControlTable::Repeats::kMovesPairAndStops};

constexpr quint32 kRaisedValue = 1; // these keyboards send 1 for what cameras need 4 for
constexpr quint32 kRaisedTo = 4;

} // namespace

struct CZellSerialKeyboardControlManagerDataPtr
{
    CZellSerialKeyboardControlManagerDataPtr(QObject *manager, CControlFlow::Send send)
        : flow_(manager, kClass, kTable, std::move(send))
    {}

    bool b_enabled_ = false;
    CControlFlow flow_;
};

CZellSerialKeyboardControlManager::CZellSerialKeyboardControlManager(QObject *parent)
    : QObject(parent), d_ptr_(std::make_unique<CZellSerialKeyboardControlManagerDataPtr>(
                           this, [this](const ControlCommand &command) { Send(command); }))
{}

CZellSerialKeyboardControlManager::~CZellSerialKeyboardControlManager() = default;

bool CZellSerialKeyboardControlManager::InitZellSerialKeyboard()
{
    d_ptr_->b_enabled_ = true;
    d_ptr_->flow_.Device().SetWindowControl(false);
    return true;
}

bool CZellSerialKeyboardControlManager::UnInitZellSerialKeyboard()
{
    if (!d_ptr_->flow_.StopAll())
        return true;
    d_ptr_->b_enabled_ = false;
    d_ptr_->flow_.Device().SetWindowControl(false);
    return true;
}

bool CZellSerialKeyboardControlManager::IsWindowControl() const
{
    return d_ptr_->flow_.Device().IsWindowControl();
}

void CZellSerialKeyboardControlManager::InputEvent(quint32 first_param, quint32 second_param)
{
    if (second_param == kRaisedValue)
        second_param = kRaisedTo;
    if (!d_ptr_->b_enabled_)
        return;
    VANTOR_LOG(kInputEvent, 3, VANTOR_LOG_USER_OPERATE,
               "InputEvent first param:[%d], second param:[%d]", static_cast<int>(first_param),
               static_cast<int>(second_param));
    d_ptr_->flow_.Take({first_param, second_param});
}

void CZellSerialKeyboardControlManager::Send(const ControlCommand &command)
{
    const bool is_window_control = IsWindowControl();
    // The text names the USB keyboard's signal: log analysis takes both keyboards together.
    VANTOR_LOG(kInputEvent, 3, VANTOR_LOG_USER_OPERATE,
               "SignalZellUSBKeyboardControl, operation_type:[%d], stop_action:[%d], "
               "speed:[%d], select index:[%d], ptz mode:[%d]",
               command.operation, command.is_stop, command.speed, command.select_index,
               is_window_control);
    Q_EMIT SignalZellSerialKeyboardControl(command.operation, command.is_stop, command.speed,
                                           command.select_index, is_window_control, false);
}

void CZellSerialKeyboardControlManager::SetHost(CControlHost *host)
{
    d_ptr_->flow_.SetHost(host);
}

VANTOR_FORWARD_EVENTS(CZellSerialKeyboardControlManager, QObject)

} // namespace Vantor
